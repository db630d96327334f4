// SPDX-License-Identifier: GPL-3.0-or-later

#include "views/ViewHistory.h"

#include "support/Testing.h"

namespace {

class NotingPresenter final : public ViewPresenter
{
public:
    void showDocuments(const SharedQuery& query, const QString& caption) override
    {
        note(u'D', query, caption);
    }
    void showEvents(const SharedQuery& query, const QString& caption) override { note(u'E', query, caption); }
    void showOrganizations(const SharedQuery& query, const QString& caption) override
    {
        note(u'O', query, caption);
    }
    void showHome() override { shown << QStringLiteral("Home"); }
    void showSearchResults() override { shown << QStringLiteral("Results"); }

    QStringList shown;

private:
    void note(QChar kind, const SharedQuery& query, const QString& caption)
    {
        shown << QStringLiteral("%1 %2 %3").arg(kind).arg(query->WhereClause, caption);
    }
};

clsView view(ViewKind kind, const QString& caption)
{
    auto query = std::make_shared<SQLObject>();
    query->WhereClause = u'#' + caption;
    return {kind, query, caption};
}

TEST(ViewHistory, KeepsTheWholeTrail)
{
    NotingPresenter presenter;
    ViewHistory history;
    history.setPresenter(&presenter);
    EXPECT_FALSE(history.goBack());
    EXPECT_FALSE(history.goForward());

    history.addView({ViewKind::Home, nullptr, QStringLiteral("Home Page")});
    history.addView(view(ViewKind::Documents, QStringLiteral("a")));
    history.addView(view(ViewKind::Events, QStringLiteral("b")));
    EXPECT_FALSE(history.goForward());
    EXPECT_TRUE(history.goBack());
    EXPECT_TRUE(history.goBack());
    EXPECT_FALSE(history.goBack());
    EXPECT_EQ(history.current(), 1u);
    EXPECT_EQ(history.currentKind(), ViewKind::Home);

    // a new view goes to the end, and Back leads to the one that was last before
    history.addView(view(ViewKind::Organizations, QStringLiteral("c")));
    EXPECT_EQ(history.count(), 4u);
    EXPECT_EQ(history.current(), 4u);
    EXPECT_FALSE(history.goForward());
    EXPECT_TRUE(history.goBack());
    EXPECT_EQ(history.currentKind(), ViewKind::Events);

    EXPECT_EQ(presenter.shown.join(u',').toStdString(), "Home,D #a a,E #b b,D #a a,Home,O #c c,E #b b");
    history.showView(0);
    history.showView(5);
    EXPECT_EQ(history.current(), 3u);
}

TEST(ViewHistory, EachViewHasItsSelectedRecord)
{
    ViewHistory history;
    history.addView(view(ViewKind::Events, QStringLiteral("a")));
    history.select(5);
    history.addView(view(ViewKind::Events, QStringLiteral("b")));
    EXPECT_EQ(history.selected(), std::nullopt);
    history.select(6);
    history.goBack();
    EXPECT_EQ(history.selected(), 5);
    history.select(std::nullopt);
    EXPECT_EQ(history.selected(), std::nullopt);
    history.goForward();
    EXPECT_EQ(history.selected(), 6);
    history.clear();
    history.addView(view(ViewKind::Events, QStringLiteral("c")));
    history.addView(view(ViewKind::Events, QStringLiteral("d")));
    EXPECT_EQ(history.selected(), std::nullopt) << "in a history that begins anew";
}

} // namespace

#include "Dialogs.h"
#include "Journey.h"
#include "PseudoLocale.h"
#include "app/frmSplash.h"
#include "opening/frmImport.h"

#include <QCheckBox>
#include <QDir>
#include <QTabWidget>
#include <QTest>

#include <gtest/gtest.h>

namespace {

/// Answers every question with No, and keeps what was said.
class HeardMessages final : public Messages
{
public:
    void show(const QString& text) override { heard << text; }
    [[nodiscard]] bool ask(const QString& text, Question /*about*/) override
    {
        heard << text;
        return false;
    }
    void beep() override {}

    QStringList heard;
};

/// The program with every text of the template transformed, on a database with records of all kinds.
class Translation : public testing::Test
{
protected:
    Translation() : pseudo(QStringLiteral(ORVIK_TRANSLATION_TEMPLATE))
    {
        database.runFile("journeys/rows/Translation.sql");
        QDir().mkpath(folder() + QStringLiteral("documents"));
        QFile::link(database.fileName(), folder() + QStringLiteral("test.sqlite"));
        desktop.setDatabase(QStringLiteral("test.sqlite"));
        Platform platform = desktop.platform();
        program.emplace(Platform{messages, platform.settings, platform.fileAttributes, platform.fileDialogs,
                                 platform.clock, platform.volumes, platform.shell},
                        converter, ProgramFolder(database.folder()), QString());
        program->Main();
        window().resize(1280, 800);
        window().activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&window()));
        for (const char* word : {"Atlas", "Brief",  "Flood", "Storm",  "Bureau", "Agency", "River",
                                 "Coast", "Report", "PDF",   "Rescue", "Austin", "TX",     "None",
                                 "test",  "sqlite", "data",  "maps",   "states", "drawMap"})
            pseudo.allow(QString::fromUtf8(word));
        pseudo.allow(database.folder());
    }

    ~Translation() override
    {
        for (const QString& text : messages.heard)
            pseudo.expectTranslated(text, "a message");
    }

    [[nodiscard]] QString folder() const { return database.folder() + QStringLiteral("/data/"); }
    QWidget& window() { return *program->window(); }
    QAction& action(const char* name) { return *window().findChild<QAction*>(QString::fromUtf8(name)); }

    /// Shows a view by its command and looks at the whole window.
    void lookAt(const char* command)
    {
        action(command).trigger();
        QTest::qWait(50);
        pseudo.expectTranslated(window(), command);
    }

    void lookAtDialog(const char* name, const char* command)
    {
        inDialog(
            name, [&] { action(command).trigger(); },
            [&](OpenDialog& open) {
                lookAtPages(open.dialog(), command);
                open.press(Qt::Key_Escape);
            });
    }

    /// Looks at a dialog with each of its pages in front.
    void lookAtPages(QWidget& dialog, const char* where)
    {
        auto* tabs = dialog.findChild<QTabWidget*>();
        for (int page = 0; page < (tabs == nullptr ? 1 : tabs->count()); ++page) {
            if (tabs != nullptr) tabs->setCurrentIndex(page);
            QTest::qWait(50);
            pseudo.expectTranslated(dialog, where);
        }
    }

    void selectRow(int row)
    {
        auto& list = *window().findChild<QTreeView*>(QStringLiteral("ListView1"));
        list.setCurrentIndex(list.model()->index(row, 0));
        QTest::qWait(0);
    }

    PseudoLocale pseudo;
    TestDatabase database;
    ScriptedPlatform desktop;
    HeardMessages messages;
    NoConverter converter;
    std::optional<Main_Mod> program;
};

TEST_F(Translation, ReachesEveryTextOfTheMainWindow)
{
    pseudo.expectTranslated(window(), "home page");
    for (const char* view : {"mnuViewDocuments", "mnuViewEvents", "mnuViewOrganizations"}) {
        lookAt(view);
        selectRow(0);
        pseudo.expectTranslated(window(), view);
        action("mnuRecordOpen").trigger();
        action("mnuRecordDelete").trigger();
        window().findChild<QTreeView*>(QStringLiteral("ListView1"))->selectAll();
        QTest::qWait(0);
        pseudo.expectTranslated(window(), view);
        action("mnuRecordDelete").trigger();
    }
    for (const auto& [view, command] : {std::pair("mnuViewDocuments", "popDocListViewEvents"),
                                        std::pair("mnuViewDocuments", "popDocListViewOrgs"),
                                        std::pair("mnuViewEvents", "popEventListViewDocs"),
                                        std::pair("mnuViewEvents", "popEventListViewOrgs"),
                                        std::pair("mnuViewOrganizations", "popOrgListViewDocs"),
                                        std::pair("mnuViewOrganizations", "popOrgListViewEvents")}) {
        action(view).trigger();
        selectRow(0);
        action(command).trigger();
    }
    action("mnuNavigateExit").trigger();
    EXPECT_EQ(messages.heard.size(), 18) << qPrintable(messages.heard.join(u'\n'));
}

TEST_F(Translation, ReachesEveryTextOfTheEditors)
{
    const struct
    {
        const char* dialog;
        const char* view;
        const char* add;
    } kinds[] = {{"frmDocument", "mnuViewDocuments", "mnuRecordAddNewDocument"},
                 {"frmEvent", "mnuViewEvents", "mnuRecordAddNewEvent"},
                 {"frmOrganization", "mnuViewOrganizations", "mnuRecordAddNewOrganization"}};
    for (const auto& kind : kinds) {
        action(kind.view).trigger();
        selectRow(0);
        lookAtDialog(kind.dialog, kind.add);
        lookAtDialog(kind.dialog, "mnuRecordEdit");
        lookAtDialog(kind.dialog, "mnuRecordView");
        inDialog(
            kind.dialog, [&] { action(kind.add).trigger(); },
            [&](OpenDialog& open) {
                open.click("cmdOK"); // what is required is missing
                open.press(Qt::Key_Escape);
            });
    }
    inDialog(
        "frmEvent", [&] { action("mnuRecordAddNewEvent").trigger(); },
        [&](OpenDialog& event) {
            inDialog(
                "frmPicList", [&] { event.click("cmdAddEventDoc"); },
                [&](OpenDialog& open) {
                    pseudo.expectTranslated(open.dialog(), "pick list");
                    open.press(Qt::Key_Escape);
                });
            event.press(Qt::Key_Escape);
        });
    EXPECT_EQ(messages.heard.size(), 4) << qPrintable(messages.heard.join(u'\n'));
}

TEST_F(Translation, ReachesEveryTextOfTheSearches)
{
    action("mnuSearchKeyword").trigger();
    OpenDialog search(*window().findChild<QDialog*>(QStringLiteral("frmSearch")));
    QTest::qWait(50);
    pseudo.expectTranslated(search.dialog(), "keyword search");
    search.click("cmdGO");
    search.type("txtKeywords", QStringLiteral("brl"));
    search.press(Qt::Key_Return);
    QTest::qWait(50);
    pseudo.expectTranslated(window(), "search results");

    action("mnuViewDocuments").trigger();
    action("mnuSearchAdvanced").trigger();
    OpenDialog advanced(*window().findChild<QDialog*>(QStringLiteral("frmAdvSearch")));
    const auto boxes = advanced.dialog().findChildren<QCheckBox*>();
    for (QCheckBox* box : boxes)
        box->setChecked(true);
    lookAtPages(advanced.dialog(), "advanced search");
    advanced.find<QTabWidget>("SSTab1").setCurrentIndex(0);
    advanced.click("cmdSearch");
    QTest::qWait(50);
    pseudo.expectTranslated(window(), "list of an advanced search");
    EXPECT_EQ(messages.heard.size(), 1) << qPrintable(messages.heard.join(u'\n'));
}

TEST_F(Translation, ReachesEveryTextOfTheOtherWindows)
{
    for (const char* word : {"Qt", "Charts", "SQLite", "SQLiteCpp", "Shapefile", "Library", "GLib", "Tools",
                             "Breeze", "GPL", "LGPL", "or", "later", "MIT"})
        pseudo.allow(QString::fromUtf8(word));
    lookAtDialog("frmAbout", "mnuHelpAbout");
    frmSplash splash;
    splash.show();
    pseudo.expectTranslated(splash, "splash");
    frmImport conversion(QString(), nullptr);
    conversion.show();
    pseudo.expectTranslated(conversion, "conversion");
}

} // namespace

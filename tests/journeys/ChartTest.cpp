#include "Journey.h"
#include "chart/ChartPane.h"
#include "chart/ChartView.h"

#include <QContextMenuEvent>
#include <QImage>
#include <QMenu>
#include <QScrollArea>
#include <QTest>

#include <gtest/gtest.h>

namespace {

class ChartJourney : public testing::Test
{
protected:
    ChartJourney()
    {
        journey.database.run("INSERT INTO DocumentType VALUES (1, 'None'), (2, 'After-Action Report'), "
                             "(3, 'Maps & Charts')");
        journey.database.run(
            "INSERT INTO Document (DocumentID, DocumentName, dStatus) VALUES (2, 'a', 'ACTIVE'), "
            "(3, 'b', 'ACTIVE'), (4, 'c', 'ACTIVE'), (5, 'd', 'ACTIVE')");
        journey.database.run(
            "INSERT INTO DocumentTypes (DocumentID, DocumentTypeID) VALUES (2, 2), (3, 2), (4, 2), "
            "(4, 3)");
    }

    void show()
    {
        journey.start();
        journey.trigger("mnuViewDocuments");
        QApplication::processEvents();
    }

    ChartView& chart() { return journey.find<ChartView>("MSChart1"); }
    ChartPane& pane() { return journey.find<ChartPane>("ChartPane"); }
    QMenu& menu() { return journey.find<QMenu>("popDocTab"); }

    void click(Qt::MouseButton button, int bar)
    {
        QTest::mouseClick(chart().viewport(), button, {}, chart().barRect(bar).center());
    }

    /// What the menu key brings about.
    void askForMenuByKey()
    {
        QContextMenuEvent event(QContextMenuEvent::Keyboard, QPoint(), QPoint());
        QApplication::sendEvent(&chart(), &event);
    }

    /// What assistive tools read, bar by bar.
    std::string bars()
    {
        QStringList names;
        for (int bar = 0; bar < chart().accessibleItemCount(); ++bar)
            names << chart().accessibleItemName(bar);
        return names.join(u'|').toStdString();
    }

    Journey journey;
};

TEST_F(ChartJourney, ARightClickNarrowsToAType)
{
    show();
    EXPECT_EQ(bars(), "After-Action Report: 3 documents|Maps & Charts: 1 document");
    EXPECT_EQ(chart().chart()->title(), QStringLiteral("Documents by Type"));

    click(Qt::LeftButton, 1);
    EXPECT_EQ(pane().selectedDocType(), QStringLiteral("Maps & Charts"));
    EXPECT_FALSE(menu().isVisible()) << "a left click only selects";
    EXPECT_EQ(journey.program->state().history.count(), 2u);

    click(Qt::RightButton, 1);
    EXPECT_TRUE(menu().isVisible());
    EXPECT_EQ(menu().actions().constFirst()->text(), QStringLiteral("Show Only Maps && Charts Documents"));
    menu().close();

    click(Qt::RightButton, 0);
    EXPECT_EQ(menu().actions().constFirst()->text(),
              QStringLiteral("Show Only After-Action Report Documents"));
    menu().close();
    journey.trigger("popDocTabShowOnlyType");
    EXPECT_EQ(journey.viewPanel(), QStringLiteral("View Only After-Action Report Documents"));
    EXPECT_EQ(journey.column(0), "a|b|c");
    EXPECT_EQ(bars(), "After-Action Report: 3 documents");
    EXPECT_EQ(pane().selectedDocType(), QString());
    journey.trigger("mnuNavigateBack");
    EXPECT_EQ(chart().accessibleItemCount(), 2);
}

TEST_F(ChartJourney, TheKeyboardGoesFromBarToBar)
{
    show();
    chart().setFocus();
    askForMenuByKey();
    EXPECT_FALSE(menu().isVisible()) << "no bar is chosen yet";
    QTest::keyClick(&chart(), Qt::Key_Right);
    QTest::keyClick(&chart(), Qt::Key_Right);
    QTest::keyClick(&chart(), Qt::Key_Right);
    EXPECT_EQ(chart().accessibleCurrentItem(), 1);
    EXPECT_EQ(pane().selectedDocType(), QStringLiteral("Maps & Charts"));
    EXPECT_FALSE(menu().isVisible());
    askForMenuByKey();
    EXPECT_TRUE(menu().isVisible());
    menu().close();
}

TEST_F(ChartJourney, AClickBesideTheBarsMeansNone)
{
    show();
    const QRect bar = chart().barRect(1);
    EXPECT_EQ(chart().barAt(bar.center()), 1);
    EXPECT_EQ(chart().barAt(QPoint(bar.center().x(), chart().height() - 2)), 1) << "its name";
    EXPECT_EQ(chart().barAt(QPoint(bar.center().x(), bar.top() - 20)), std::nullopt);
    EXPECT_EQ(chart().barAt(QPoint(2, bar.center().y())), std::nullopt);
}

TEST_F(ChartJourney, AnEmptyResultAndAFailingStatementShowAnEmptyChart)
{
    show();
    journey.database.run("UPDATE DocumentTypes SET DocumentTypeID = 0");
    journey.trigger("mnuViewRefresh");
    EXPECT_EQ(chart().accessibleItemCount(), 0);
    EXPECT_EQ(journey.column(0), "a|b|c|d");
    const QImage empty = chart().grab().toImage();
    QImage blank = empty;
    blank.fill(chart().palette().color(QPalette::Base));
    EXPECT_NE(empty, blank) << "an empty chart says so";
    EXPECT_EQ(chart().barAt(QPoint(100, 100)), std::nullopt);

    journey.database.run("UPDATE DocumentTypes SET DocumentTypeID = 2");
    journey.trigger("mnuViewRefresh");
    EXPECT_EQ(chart().accessibleItemCount(), 1);
    // the list can do without the types that the chart needs
    SQLObject plain = *journey.program->state().queries.documents;
    plain.FromClause = QStringLiteral("FROM Document");
    plain.SelectClause =
        QStringLiteral("SELECT DocumentID, DocumentName, KeyDocument, FileTypeID, ReleaseForm, "
                       "'' AS FileTypeName, OrganizationID, '' AS OrganizationName, FileLocation, "
                       "Author, DocumentDate");
    journey.program->state().history.addView(
        {ViewKind::Documents, std::make_shared<const SQLObject>(plain), QStringLiteral("Plain")});
    EXPECT_EQ(chart().accessibleItemCount(), 0);
    EXPECT_EQ(journey.column(0), "a|b|c|d");
}

TEST_F(ChartJourney, ManyBarsAreScrolledAndNeverOverlap)
{
    constexpr int types = 60;
    for (int type = 10; type < 10 + types; ++type) {
        const QString name = QStringLiteral("A rather long name of a type of documents, number %1").arg(type);
        journey.database.run(
            QStringLiteral("INSERT INTO DocumentType VALUES (%1, '%2');"
                           "INSERT INTO DocumentTypes (DocumentID, DocumentTypeID) VALUES (2, %1)")
                .arg(QString::number(type), name)
                .toUtf8()
                .constData());
    }
    show();
    ASSERT_EQ(chart().accessibleItemCount(), types + 2);
    EXPECT_GT(chart().width(), pane().width());
    const int textHeight = chart().fontMetrics().height();
    for (int bar = 1; bar < types + 2; ++bar) {
        const QRect before = chart().barRect(bar - 1);
        const QRect rect = chart().barRect(bar);
        EXPECT_GT(rect.left(), before.right());
        EXPECT_GE(rect.center().x() - before.center().x(), textHeight) << "turned names stand side by side";
    }
    journey.trigger("mnuViewGraphicBelow");
    QApplication::processEvents();
    EXPECT_LE(chart().height(), pane().height()) << "it is scrolled to the side only";
    const auto isTitled = [](const QImage& image) {
        for (int x = image.width() / 2 - 20; x < image.width() / 2 + 20; ++x) {
            for (int y = 4; y < 24; ++y) {
                if (image.pixelColor(x, y).lightness() < 100) return true;
            }
        }
        return false;
    };
    chart().setFocus();
    QApplication::processEvents();
    const QImage atBeginning = pane().grab().toImage();
    QTest::keyClick(&chart(), Qt::Key_End);
    QApplication::processEvents();
    const QImage atEnd = pane().grab().toImage();
    EXPECT_TRUE(isTitled(atBeginning) && isTitled(atEnd)) << "the title stays in the middle";
    const QRect axis(2, 30, 12, chart().barRect(0).bottom() - 30);
    EXPECT_EQ(atBeginning.copy(axis), atEnd.copy(axis)) << "so do the numbers of the axis";
    const QRect last = chart().barRect(types + 1);
    const QPoint inPane = pane().mapFromGlobal(chart().viewport()->mapToGlobal(last.center()));
    EXPECT_TRUE(pane().rect().contains(inPane)) << "the chart scrolls to the bar";
}

TEST_F(ChartJourney, SaysHowManyTypesItLeavesOut)
{
    journey.database.run("WITH RECURSIVE n(i) AS (VALUES (100) UNION ALL SELECT i + 1 FROM n WHERE i < 1399) "
                         "INSERT INTO DocumentType SELECT i, 'Type ' || i FROM n");
    show();
    QLabel& more = journey.find<QLabel>("lblMoreTypes");
    EXPECT_FALSE(more.isVisible());
    journey.database.run("INSERT INTO DocumentTypes (DocumentID, DocumentTypeID) "
                         "SELECT 2, DocumentTypeID FROM DocumentType WHERE DocumentTypeID >= 100");
    journey.trigger("mnuViewRefresh");
    EXPECT_EQ(chart().accessibleItemCount(), 50);
    EXPECT_TRUE(more.isVisible());
    EXPECT_EQ(more.text(), QStringLiteral("and 1,252 more"));
}

} // namespace

// SPDX-License-Identifier: GPL-3.0-or-later

#include "Journey.h"
#include "Portrait.h"
#include "chart/ChartPane.h"
#include "chart/ChartView.h"

namespace {

/// What stands out from the ground in a part of a picture, whose corner is ground.
QRect inked(const QImage& image, const QRect& place)
{
    QRegion ink;
    for (int y = place.top(); y <= place.bottom(); ++y) {
        for (int x = place.left(); x <= place.right(); ++x) {
            if (image.pixelColor(x, y) != image.pixelColor(place.bottomLeft())) ink += QRect(x, y, 1, 1);
        }
    }
    return ink.boundingRect();
}

class ChartJourney : public testing::Test
{
protected:
    ChartJourney() { journey.database.runFile("journeys/rows/Chart.sql"); }

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
    EXPECT_EQ(chart().chart()->title(), u"Documents by Type"_s);

    click(Qt::LeftButton, 1);
    EXPECT_EQ(pane().selectedDocType(), u"Maps & Charts"_s);
    EXPECT_FALSE(menu().isVisible()) << "a left click only selects";
    EXPECT_EQ(journey.program->state().history.count(), 2u);

    click(Qt::RightButton, 1);
    EXPECT_TRUE(menu().isVisible());
    EXPECT_EQ(menu().actions().constFirst()->text(), u"Show Only Maps && Charts Documents"_s);
    menu().close();

    click(Qt::RightButton, 0);
    EXPECT_EQ(menu().actions().constFirst()->text(), u"Show Only After-Action Report Documents"_s);
    menu().close();
    journey.trigger("popDocTabShowOnlyType");
    EXPECT_EQ(journey.viewPanel(), u"View Only After-Action Report Documents"_s);
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
    EXPECT_EQ(pane().selectedDocType(), u"Maps & Charts"_s);
    EXPECT_FALSE(menu().isVisible());
    askForMenuByKey();
    EXPECT_TRUE(menu().isVisible());
    menu().close();
}

/// The bars in a picture, as rectangles of one colour.
std::vector<QRect> drawnBars(const QImage& image, const QColor& colour)
{
    std::vector<QRect> bars;
    for (int x = 0; x < image.width(); ++x) {
        int top = -1;
        int bottom = -1;
        for (int y = 0; y < image.height(); ++y) {
            if (image.pixelColor(x, y) != colour) continue;
            if (top < 0) top = y;
            bottom = y;
        }
        if (top < 0) continue;
        if (bars.empty() || bars.back().right() + 1 != x) bars.push_back(QRect(x, top, 0, bottom - top + 1));
        bars.back().setRight(x);
    }
    return bars;
}

TEST_F(ChartJourney, BarsNumbersNamesAndTheAxisTellTheCounts)
{
    journey.database.run("INSERT INTO DocumentType VALUES (4, 'Laws'); "
                         "INSERT INTO DocumentTypes (DocumentID, DocumentTypeID) VALUES (2, 4), (3, 4)");
    show();
    journey.program->window()->resize(1200, 800);
    journey.list().setFocus();
    QTest::qWait(0);
    const QPalette colours = chart().palette();
    const QImage image = chart().grab().toImage();
    const std::vector<QRect> bars = drawnBars(image, colours.color(QPalette::Highlight));
    ASSERT_EQ(bars.size(), 3u);
    // three, one and two documents, from the same ground
    const int unit = bars[1].height();
    const int ground = bars[0].bottom();
    EXPECT_NEAR(bars[0].height(), 3 * unit, 2);
    EXPECT_NEAR(bars[2].height(), 2 * unit, 2);
    EXPECT_EQ(bars[1].bottom(), ground);
    EXPECT_EQ(bars[0].width(), bars[2].width());
    const int slot = bars[1].center().x() - bars[0].center().x();
    EXPECT_NEAR(bars[2].center().x() - bars[1].center().x(), slot, 1);
    const QRectF plot = chart().chart()->plotArea();
    EXPECT_NEAR(plot.right() - bars[2].right(), bars[0].left() - plot.left(), 2) << "no slot is empty";

    // the numbers of the axis stand at their heights
    const int line = chart().fontMetrics().height();
    for (int count = 0; count <= 3; ++count) {
        const QRect place(2, ground - count * unit - line, 12, 2 * line);
        EXPECT_NEAR(inked(image, place).center().y(), ground - count * unit, 3) << count;
    }
    // a bar's number stands above it, its name below it, along it or upwards
    const char* const names[] = {"After-Action Report", "Maps & Charts", "Laws"};
    for (std::size_t i = 0; i < bars.size(); ++i) {
        const QRect& bar = bars[i];
        const QRect number = inked(image, {bar.left(), bar.top() - line - 2, bar.width(), line});
        EXPECT_NEAR(number.center().x(), bar.center().x(), 2) << names[i];
        const QRect name =
            inked(image, {bar.center().x() - slot / 2, ground + 6, slot, image.height() - ground - 6});
        const int length = chart().fontMetrics().horizontalAdvance(QString::fromUtf8(names[i]));
        EXPECT_NEAR(std::max(name.width(), name.height()), length, 4) << names[i];
        EXPECT_NEAR(name.center().x(), bar.center().x(), 4) << names[i];
    }
    chart().setCurrentBar(1);
    const QImage marked = chart().grab().toImage();
    EXPECT_EQ(drawnBars(marked, colours.color(QPalette::Highlight)).size(), 2u);
    EXPECT_EQ(marked.pixelColor(bars[1].center()), colours.color(QPalette::Highlight).darker());
}

TEST_F(ChartJourney, BarsLieDownWithTheirNamesWholeAndAreSorted)
{
    const QString longName = u"Verylongword"_s.repeated(8) + u" and many short ones"_s.repeated(5);
    journey.database.run(
        u"INSERT INTO DocumentType VALUES (4, '%1'), (5, 'bills' || char(10) || 'and acts'); "
        "INSERT INTO DocumentTypes (DocumentID, DocumentTypeID) VALUES (2, 4), (3, 4), (2, 5)"_s.arg(
            longName));
    show();
    click(Qt::LeftButton, 1);
    journey.trigger("chartHorizontal");
    QApplication::processEvents();
    EXPECT_EQ(chart().accessibleCurrentItem(), 1);
    EXPECT_EQ(chart().width(), chart().parentWidget()->width()) << "nothing is scrolled to the side";
    const QString texts = paintingOf(chart()).join(u'\n');
    for (const QString& name : {u"After-ActionReport"_s, longName, u"bills"_s, u"andacts"_s})
        EXPECT_TRUE(texts.contains(QString(name).remove(u' '))) << texts.toStdString();

    // three, one, two and one documents, from the left to the right; the lowest row comes first
    journey.list().setFocus();
    const QPalette colours = chart().palette();
    const auto turnedImage = [this] { return chart().grab().toImage().transformed(QTransform().rotate(90)); };
    EXPECT_EQ(drawnBars(turnedImage(), colours.color(QPalette::Highlight)).size(), 3u) << "one is marked";
    chart().setCurrentBar({});
    const QImage turned = turnedImage();
    EXPECT_EQ(turned.pixelColor(0, 0), colours.color(QPalette::Base));
    const std::vector<QRect> bars = drawnBars(turned, colours.color(QPalette::Highlight));
    ASSERT_EQ(bars.size(), 4u);
    EXPECT_LT(pane().picture()->size.height(), chart().height()) << "there is nothing below the last bar";
    for (const auto& [bar, count] : {std::pair(0, 1), {1, 2}, {2, 1}, {3, 3}}) {
        const QRect& drawn = bars[static_cast<std::size_t>(bar)];
        EXPECT_NEAR(drawn.height(), count * bars[0].height(), 3);
        EXPECT_EQ(drawn.top(), bars[0].top());
        const QPoint name(drawn.top() / 2, turned.width() - drawn.center().x());
        EXPECT_EQ(chart().barAt(name), 3 - bar);
        EXPECT_EQ(chart().barAt(chart().barRect(3 - bar).center()), 3 - bar);
        EXPECT_EQ(chart().barAt(QPoint(chart().barRect(3 - bar).right() + 5, name.y())), std::nullopt);
    }

    QTest::keyClick(&chart(), Qt::Key_Down);
    QTest::keyClick(&chart(), Qt::Key_Down);
    const auto counts = [this] {
        std::string text;
        for (const DocumentTypeCount& count : chart().counts())
            text += count.name.front().toLatin1() + std::to_string(count.documents);
        return text;
    };
    for (const auto& [command, order] : {std::pair("chartByNumber", "A3V2b1M1"),
                                         {"chartHorizontal", "A3V2b1M1"},
                                         {"chartByName", "A3b1M1V2"},
                                         {"chartByName", "A3M1V2b1"},
                                         {"chartHorizontal", "A3M1V2b1"},
                                         {"chartByNumber", "A3V2b1M1"}}) {
        journey.trigger(command);
        EXPECT_EQ(counts(), order) << command;
        EXPECT_EQ(chart().accessibleItemName(chart().accessibleCurrentItem()),
                  u"Maps & Charts: 1 document"_s);
        EXPECT_EQ(pane().selectedDocType(), u"Maps & Charts"_s);
    }
    show();
    EXPECT_TRUE(chart().isHorizontal() && journey.find<QAction>("chartHorizontal").isChecked()) << "kept";
    EXPECT_EQ(counts(), "A3V2b1M1");
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
    journey.trigger("chartHorizontal");
    EXPECT_TRUE(inked(chart().grab().toImage(), chart().rect().adjusted(0, chart().height() / 2 - 10, 0, 0))
                    .isValid());
    EXPECT_EQ(chart().barAt(QPoint(100, 100)), std::nullopt);
    journey.trigger("chartHorizontal");

    journey.database.run("UPDATE DocumentTypes SET DocumentTypeID = 2");
    journey.trigger("mnuViewRefresh");
    EXPECT_EQ(chart().accessibleItemCount(), 1);
    // the list can do without the types that the chart needs
    SQLObject plain = *journey.program->state().queries.documents;
    plain.FromClause = u"FROM Document"_s;
    plain.SelectClause = u"SELECT DocumentID, DocumentName, KeyDocument, FileTypeID, ReleaseForm, "
                         "'' AS FileTypeName, OrganizationID, '' AS OrganizationName, FileLocation, "
                         "Author, DocumentDate"_s;
    journey.program->state().history.addView(
        {ViewKind::Documents, std::make_shared<const SQLObject>(plain), u"Plain"_s});
    EXPECT_EQ(chart().accessibleItemCount(), 0);
    EXPECT_EQ(journey.column(0), "a|b|c|d");
}

TEST_F(ChartJourney, ManyBarsAreScrolledAndNeverOverlap)
{
    constexpr int types = 60;
    for (int type = 10; type < 10 + types; ++type) {
        const QString name = u"A rather long name of a type of documents, number %1"_s.arg(type);
        journey.database.run(u"INSERT INTO DocumentType VALUES (%1, '%2');"
                             "INSERT INTO DocumentTypes (DocumentID, DocumentTypeID) VALUES (2, %1)"_s.arg(
                                 QString::number(type), name));
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
    EXPECT_GT(chart().height() - chart().barRect(0).bottom(), 4 * textHeight) << "with room for long names";
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
    const QImage atBeginning = chart().parentWidget()->grab().toImage();
    QTest::keyClick(&chart(), Qt::Key_End);
    QApplication::processEvents();
    const QImage atEnd = chart().parentWidget()->grab().toImage();
    EXPECT_TRUE(isTitled(atBeginning) && isTitled(atEnd)) << "the title stays in the middle";
    const QRect axis(2, 30, 12, chart().barRect(0).bottom() - 30);
    EXPECT_EQ(atBeginning.copy(axis), atEnd.copy(axis)) << "so do the numbers of the axis";
    const auto isInSight = [&](int bar) {
        const QRect place = chart().barRect(bar);
        return QRect(place.topLeft() + chart().pos(), place.size())
            .intersects(chart().parentWidget()->rect());
    };
    EXPECT_TRUE(isInSight(types + 1)) << "the chart scrolls to the bar";
    EXPECT_FALSE(isInSight(0));

    journey.trigger("chartHorizontal");
    QApplication::processEvents();
    EXPECT_EQ(chart().width(), chart().parentWidget()->width()) << "it is scrolled downwards only";
    EXPECT_FALSE(isInSight(0)) << "and shows the bar that it showed";
    EXPECT_TRUE(isInSight(types + 1));
    QTest::keyClick(&chart(), Qt::Key_Home);
    EXPECT_TRUE(isInSight(0));
    EXPECT_FALSE(isInSight(types + 1));
    for (int bar = 1; bar < types + 2; ++bar)
        EXPECT_GE(chart().barRect(bar).top(), chart().barRect(bar - 1).bottom() + textHeight / 4);
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
    EXPECT_EQ(more.text(), u"and 1,252 more"_s);
    EXPECT_TRUE(chart().accessibleDescription().startsWith(
        u"Types: 1,302. Documents in the list: 4. The longest bar is After-Action Report: 3 documents. "_s));
}

} // namespace

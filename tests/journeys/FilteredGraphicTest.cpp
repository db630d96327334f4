// SPDX-License-Identifier: GPL-3.0-or-later

// The graphic shows the records that the filter has left in the list, unless it is hidden.

#include "MapJourney.h"
#include "chart/ChartView.h"
#include "support/CollectedLog.h"
#include "timeline/TimelinePanel.h"

namespace {

class FilteredGraphic : public MapJourney
{
protected:
    FilteredGraphic()
    {
        journey.database.runFile("journeys/rows/Chart.sql");
        journey.database.runFile("journeys/rows/DrawnTimeline.sql");
        journey.start();
        // a larger view of the same kind, of which nothing may stay
        for (const char* view : {"mnuViewOrganizations", "mnuViewEvents", "mnuViewDocuments"})
            journey.trigger(view);
    }

    void type(const char* words)
    {
        auto& field = journey.find<QLineEdit>("txtFilter");
        field.setFocus();
        field.selectAll();
        QTest::keyClicks(&field, QString::fromUtf8(words));
    }

    /// What the graphic of the list shows, from its beginning, joined by `|`.
    std::string graphic()
    {
        QStringList items;
        if (journey.find<QWidget>("MSChart1").isVisible()) {
            const auto& chart = journey.find<ChartView>("MSChart1");
            for (int bar = 0; bar < chart.accessibleItemCount(); ++bar)
                items << chart.accessibleItemName(bar);
        } else if (map().isVisible()) {
            for (int place = 0; place < map().accessibleItemCount(); ++place)
                items << map().accessibleItemName(place);
            items.sort();
        } else {
            for (const Lane& lane : journey.find<TimelinePanel>("pnlTimeline").timeline().lanes())
                items << lane.caption;
        }
        return items.join(u'|').toStdString();
    }

    /// The number of statements that were run since the log began, without that by which Open is possible.
    static qsizetype statements(const CollectedLog& log)
    {
        return log.lines().size() - log.lines().filter(u"SELECT ChartOption"_s).size();
    }

    /// What the graphic shows once it has followed the keys.
    std::string graphicAfter(const std::string& before)
    {
        EXPECT_TRUE(QTest::qWaitFor([&] { return graphic() != before; })) << before;
        return graphic();
    }
};

TEST_F(FilteredGraphic, FollowsTheKeysAndIsThereAgainWithItsView)
{
    const struct
    {
        const char* view;
        const char* words;
        std::string whole;
        std::string left;
    } cases[] = {
        {"mnuViewDocuments", "c", "After-Action Report: 3 documents|Maps & Charts: 1 document",
         "After-Action Report: 1 document|Maps & Charts: 1 document"},
        {"mnuViewEvents", "dro", "Flood|Fire|Quake|Storm|Drought -->", "Drought -->"},
        {"mnuViewOrganizations", "ta -zeta",
         "Austin, TX: Fire & Rescue|Austin, TX: Relief|Dallas, TX: Law|O'Fallon, MO: Law|Reno, NV: Law",
         "Austin, TX: Relief|Dallas, TX: Law|O'Fallon, MO: Law"},
    };
    for (const auto& [view, words, whole, left] : cases) {
        journey.trigger(view);
        EXPECT_EQ(graphic(), whole);
        type(words);
        EXPECT_EQ(graphicAfter(whole), left) << words;
        journey.trigger("mnuViewRefresh");
        EXPECT_EQ(graphic(), left) << "read again";
        journey.trigger("mnuNavigateHome");
        journey.trigger("mnuNavigateBack");
        EXPECT_EQ(graphic(), left) << "shown again";
        QTest::keyClick(&journey.find<QLineEdit>("txtFilter"), Qt::Key_Escape);
        EXPECT_EQ(graphicAfter(left), whole);
        type("no such word");
        EXPECT_EQ(graphicAfter(whole), "");
    }
}

TEST_F(FilteredGraphic, ReadsNothingWhileItIsHiddenAndIsThenDrawnAsTheListIs)
{
    for (const auto& [view, widget, words, row] : {std::tuple{"mnuViewDocuments", "MSChart1", "c", "c"},
                                                   {"mnuViewEvents", "pnlTimeline", "dro", "Drought"},
                                                   {"mnuViewOrganizations", "Map1", "ta -zeta", "Beta"}}) {
        journey.trigger(view);
        const std::string whole = graphic();
        type(words);
        const std::string left = graphicAfter(whole);
        QTest::keyClick(&journey.find<QWidget>(widget), Qt::Key_F8);
        QTest::keyClick(&journey.find<QLineEdit>("txtFilter"), Qt::Key_Escape);
        QTest::keyClick(&journey.list(), Qt::Key_F8);
        EXPECT_EQ(graphic(), whole) << "without the filter that was there when it was hidden";

        const QString tip = journey.find<QAction>("mnuViewCopyPicture").toolTip();
        journey.find<QWidget>(widget).setFocus();
        QTest::keyClick(&journey.find<QWidget>(widget), Qt::Key_F8);
        EXPECT_TRUE(journey.list().hasFocus());
        EXPECT_FALSE(journey.find<QWidget>(widget).isVisible());
        EXPECT_FALSE(journey.find<QAction>("mnuViewCopyPicture").isEnabled());
        EXPECT_EQ(journey.find<QAction>("mnuViewSavePicture").toolTip().section(u'\n', 1),
                  u"The graphic is hidden."_s);
        {
            const CollectedLog log;
            QLoggingCategory::setFilterRules(u"orvik.statements=true"_s);
            journey.trigger("mnuViewRefresh");
            EXPECT_EQ(statements(log), 1) << log.lines().join(u'\n').toStdString();
            journey.trigger("mnuViewDetails");
            journey.trigger("mnuViewDetails");
            type(words);
            journey.select(row);
            QTest::qWait(200);
            EXPECT_EQ(statements(log), 1) << log.lines().join(u'\n').toStdString();
        }
        QTest::keyClick(&journey.list(), Qt::Key_F8);
        EXPECT_TRUE(journey.find<QWidget>(widget).isVisible());
        EXPECT_EQ(graphic(), left);
        EXPECT_EQ(journey.find<QAction>("mnuViewCopyPicture").toolTip(), tip);
    }
}

TEST_F(FilteredGraphic, KnowsTheEventsThatWereSavedWhileItWasHidden)
{
    const Timeline& timeline = journey.find<TimelinePanel>("pnlTimeline").timeline();
    const auto begins = [&] { return dateTimeText(timeline.window().limits().timelineStart).toStdString(); };
    journey.trigger("mnuViewEvents");
    journey.trigger("mnuViewHideGraphic");
    const std::string before = begins();
    journey.database.run("UPDATE Event SET StartDate = '1901-02-03', StartTime = '00:00' WHERE EventID = 3");
    const CollectedLog log;
    QLoggingCategory::setFilterRules(u"orvik.statements=true"_s);
    journey.trigger("mnuViewRefresh");
    EXPECT_EQ(statements(log), 1) << log.lines().join(u'\n').toStdString();
    EXPECT_EQ(begins(), before);
    const QAction& goToDate = journey.find<QAction>("mnuNavigateGoToDate");
    EXPECT_FALSE(goToDate.isEnabled());
    EXPECT_EQ(goToDate.toolTip().section(u'\n', 1), u"The graphic is hidden."_s);
    journey.trigger("mnuViewHideGraphic");
    EXPECT_TRUE(goToDate.isEnabled());
    EXPECT_EQ(begins(), "02/03/1901 00:00");
}

TEST_F(FilteredGraphic, IsDrawnBeforeItIsCopied)
{
    type("c");
    journey.trigger("mnuViewCopyPicture");
    const QString picture =
        QString::fromUtf8(QGuiApplication::clipboard()->mimeData()->data(u"image/svg+xml"_s));
    EXPECT_TRUE(picture.contains(u"View ALL Documents, filtered: c"_s));
    EXPECT_EQ(graphic(), "After-Action Report: 1 document|Maps & Charts: 1 document");
}

} // namespace

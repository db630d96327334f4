// SPDX-License-Identifier: GPL-3.0-or-later

#include "timeline/Timeline.h"

#include "support/ScriptedPlatform.h"
#include "support/TestDatabase.h"
#include "timeline/Moments.h"
#include "views/StandardQueries.h"
#include "views/ViewHistory.h"

namespace {

/// The timeline of a view of events, seen through a picture of four steps and three lanes.
class Handlers : public testing::Test
{
protected:
    Handlers()
    {
        m_database.runFile("timeline/rows/Timeline.sql");
        m_session.open(m_database.fileName());
        showView(m_queries.events);
        m_timeline.mainLoad();
        m_timeline.resize(4 * 385, 3 * 17 + 5);
    }

    void showView(const SharedQuery& query) { m_history.addView({ViewKind::Events, query, u"Events"_s}); }

    /// The captions of the lanes; the selected one in brackets.
    std::string lanes()
    {
        QStringList texts;
        for (const Lane& lane : m_timeline.lanes())
            texts << (lane.isSelected ? u'[' + lane.caption + u']' : lane.caption);
        return texts.join(u'|').toStdString();
    }

    std::string now() { return m_timeline.captions()[0].toStdString(); }

    /// Where an empty window says that the nearest events are.
    std::string nearest()
    {
        const auto name = [](const std::optional<NearestEvent>& event) {
            return event ? event->eventName.toStdString() : "-";
        };
        return name(m_timeline.nearestBefore()) + " " + name(m_timeline.nearestAfter());
    }

    TestDatabase m_database;
    ScriptedPlatform m_desktop;
    DatabaseSession m_session;
    StandardQueries m_queries;
    ViewHistory m_history;
    Timeline m_timeline{
        m_session,
        m_history,
        m_desktop.clock,
        m_desktop.messages,
        [](const QString& text) { return static_cast<int>(text.size()) * 7; },
        [](const QString& text, bool /*isDate*/) { return static_cast<int>(text.size()) * 7; }};
};

TEST_F(Handlers, AnEmptyWindowSaysWhereTheNearestEventsAre)
{
    m_timeline.NavEnd();
    EXPECT_EQ(now(), "09/20/2001 23:40");
    EXPECT_EQ(lanes(), "");
    EXPECT_EQ(nearest(), "Last -");
    EXPECT_EQ(m_timeline.hitCount(), 1u) << "what the last window that had any held";
    EXPECT_FALSE(m_timeline.scroll().isShown);
    m_timeline.chooseEvent(2);
    m_timeline.NavJumpForward();
    EXPECT_EQ(nearest(), "First A");

    auto none = std::make_shared<SQLObject>(*m_queries.events);
    none->WhereClause += u" AND EventID = 99"_s;
    showView(none);
    m_timeline.drawTimeline();
    EXPECT_TRUE(m_timeline.isEmpty());
    EXPECT_EQ(nearest(), "- -");
}

TEST_F(Handlers, ChoosingAnEventShowsItAndItsLane)
{
    m_timeline.chooseEvent(15);
    EXPECT_EQ(now(), "09/10/2001 10:04");
    EXPECT_EQ(lanes(), "<-- C -->|<-- D -->|[E -->]") << "the lane is shown as far as the scroll bar goes";
    EXPECT_EQ(m_timeline.scroll().value, 2);
    EXPECT_EQ(m_timeline.scroll().max, 2);

    m_timeline.chooseEvent(12);
    EXPECT_EQ(now(), "09/10/2001 10:04") << "it is in view";
    EXPECT_EQ(lanes(), "[<-- B -->]|<-- C -->|<-- D -->");

    m_timeline.chooseEvent(4);
    EXPECT_EQ(now(), "09/20/2001 00:00");
    EXPECT_EQ(lanes(), "[Last]") << "an event without a time is at midnight";

    m_timeline.chooseEvent(3);
    EXPECT_EQ(now(), "09/20/2001 00:00") << "without a date there is no place to go to";
    EXPECT_EQ(lanes(), "Last");
}

TEST_F(Handlers, TheScrollBarMovesTheFirstLaneAndGoesBackWithTheWindow)
{
    m_timeline.chooseEvent(11);
    EXPECT_EQ(lanes(), "[A -->]|B -->|C -->");
    EXPECT_EQ(m_timeline.hitCount(), 5u);
    m_timeline.VScroll1_Change(1);
    EXPECT_EQ(lanes(), "B -->|C -->|D -->");
    m_timeline.resize(4 * 385, 4 * 17);
    EXPECT_EQ(lanes(), "B -->|C -->|D -->|E -->") << "a higher picture shows more";
    EXPECT_EQ(m_timeline.scroll().max, 1);
    m_timeline.resize(4 * 385, 5 * 17);
    EXPECT_EQ(lanes(), "[A -->]|B -->|C -->|D -->|E -->");
    EXPECT_FALSE(m_timeline.scroll().isShown);

    m_timeline.resize(4 * 385, 2 * 17);
    m_timeline.VScroll1_Change(3);
    m_database.run("UPDATE Event SET Status = 'DELETED' WHERE EventID = 12");
    m_timeline.VScroll1_Change(3);
    EXPECT_EQ(lanes(), "D -->|E -->") << "fewer rows than the bar thought";
    m_timeline.NavStepForward();
    EXPECT_EQ(m_timeline.scroll().value, 0);
    EXPECT_EQ(lanes(), "[<-- A -->]|<-- C -->");
    m_timeline.resize(4 * 385, 16);
    EXPECT_EQ(lanes(), "") << "no room for a lane";
    m_timeline.resize(1, 17);
    EXPECT_EQ(m_timeline.window().windowEnd(), m_timeline.window().currentTime());
}

TEST_F(Handlers, TheSelectedEventKeepsALaneInSight)
{
    m_timeline.chooseEvent(15);
    m_timeline.NavStepBack();
    EXPECT_EQ(lanes(), "C -->|D -->|[E -->]") << "it would be the fifth of three lanes";
    m_timeline.resize(4 * 385, 17);
    EXPECT_EQ(lanes(), "[E -->]") << "nor does a lower picture hide it";

    m_timeline.resize(4 * 385, 3 * 17);
    m_timeline.VScroll1_Change(0);
    m_timeline.resize(4 * 385, 2 * 17);
    EXPECT_EQ(lanes(), "A -->|B -->") << "who scrolled it out of sight wants to see others";

    m_history.select(12);
    m_timeline.NavStepForward();
    EXPECT_EQ(lanes(), "<-- A -->|[<-- B -->]") << "which has a lane in sight anyway";
}

TEST_F(Handlers, UpAndDownSelectTheEventsOfTheWindowInTheirOrder)
{
    m_timeline.showPeriod(at("2001-09-10 10:00"), 0);
    const struct
    {
        int lanes;
        qint64 event;
        const char* shown;
    } steps[]{{1, 11, "[A -->]|B -->|C -->"}, {1, 12, "A -->|[B -->]|C -->"}, {2, 14, "B -->|C -->|[D -->]"},
              {1, 15, "C -->|D -->|[E -->]"}, {1, 15, "C -->|D -->|[E -->]"}, {-1, 14, "C -->|[D -->]|E -->"},
              {-4, 11, "[A -->]|B -->|C -->"}};
    for (const auto& [lanes, event, shown] : steps) {
        EXPECT_EQ(m_timeline.selectBeside(lanes), event);
        EXPECT_EQ(m_history.selected(), event);
        EXPECT_EQ(this->lanes(), shown);
    }
    m_timeline.VScroll1_Change(2);
    m_timeline.selectBeside(1);
    EXPECT_EQ(lanes(), "[B -->]|C -->|D -->") << "from the selected event on, wherever the lanes are";

    m_history.select(2);
    m_timeline.VScroll1_Change(1);
    EXPECT_EQ(m_timeline.selectBeside(-1), 14) << "none in the window is selected: from the last lane";
    m_timeline.NavEnd();
    EXPECT_EQ(m_timeline.selectBeside(1), std::nullopt);
    EXPECT_EQ(m_history.selected(), 14);
}

TEST_F(Handlers, TheFirstViewShowsSomethingIfItCan)
{
    const auto state = [this] {
        return m_timeline.description().toStdString() + " by " +
               TimelineScale::zoomName(m_timeline.window().zoomFactor()).toStdString();
    };
    const auto showFirst = [this](const QString& condition) {
        auto part = std::make_shared<SQLObject>(*m_queries.events);
        part->WhereClause += condition;
        m_timeline.mainLoad();
        showView(part);
        m_timeline.drawTimeline();
    };
    m_timeline.drawTimeline();
    EXPECT_EQ(state(), "09/01/2001 10:00 to 09/01/2001 10:20: 1 event by 5 minutes");
    showFirst(u" AND Event.EventID > 2"_s);
    EXPECT_EQ(state(), "09/01/2001 10:00 to 09/01/2001 10:20: 0 events by 5 minutes")
        << "none is near enough to be seen at any scale";
    m_database.run("UPDATE Event SET StartDate = '2001-09-03' WHERE EventID IN (11, 12)");
    showFirst(u" AND Event.EventID > 2"_s);
    EXPECT_EQ(state(), "09/01/2001 10:00 to 09/05/2001 10:00: 2 events by 1 day");
    m_timeline.NavStepForward();
    for (int level = 7; level > 0; --level)
        m_timeline.ZoomIn();
    m_timeline.drawTimeline();
    EXPECT_EQ(state(), "09/02/2001 10:00 to 09/02/2001 10:20: 0 events by 5 minutes") << "only the first";
}

TEST_F(Handlers, AfterASaveTheTimelineReachesToTheEventAndShowsIt)
{
    m_timeline.NavStepForward();
    const std::string before = now();
    m_database.run("INSERT INTO Event (EventID, EventName, StartDate, StartTime, EndDate, EndTime, Status) "
                   "VALUES (20, 'New', '2010-01-01', '12:00', '2010-01-01', '12:10', 'ACTIVE')");
    m_timeline.updateTimeline(std::nullopt);
    EXPECT_EQ(now(), before) << "an event without a date has no place to go to";
    m_timeline.NavEnd();
    EXPECT_EQ(m_timeline.captions()[0], u"01/02/2010 11:50"_s) << "the limits were read again";

    m_timeline.updateTimeline(at("2010-01-01 12:00"));
    EXPECT_EQ(now(), "01/01/2010 12:00");
    EXPECT_EQ(lanes(), "New");
    for (int level = 0; level < TimelineScale::dayLevel; ++level)
        m_timeline.ZoomOut();
    m_timeline.updateTimeline(at("2010-01-01 12:00"));
    EXPECT_EQ(now(), "01/01/2010 12:00") << "though the window then reaches beyond the end";
    m_timeline.updateTimeline(at("1990-01-01 12:00"));
    EXPECT_EQ(now(), "09/01/2001 10:00") << "never before the start";
}

TEST_F(Handlers, OneFailureShowsOneMessage)
{
    auto broken = std::make_shared<SQLObject>(*m_queries.events);
    broken->WhereClause += u" AND NoSuchColumn = 1"_s;
    m_timeline.drawTimeline();
    EXPECT_EQ(m_timeline.density()->days().size(), 3u);
    showView(broken);
    m_timeline.drawTimeline();
    EXPECT_TRUE(m_timeline.density()->days().empty()) << "the band is not that of another view";
    m_timeline.resize(2 * 385, 100);
    EXPECT_EQ(lanes(), "First -->") << "what it showed stays";
    m_desktop.messages.expectMessage(u"searchByTimeConstraint Error (1): no such column: NoSuchColumn"_s);
    m_timeline.NavStepForward();
    m_desktop.messages.finish();

    showView(m_queries.events);
    m_timeline.resize(4 * 385, 5 * 17);
    m_database.run("UPDATE Event SET StartTime = '10:0x' WHERE EventID = 12");
    m_desktop.messages.expectMessage(
        u"DisplayRecords Error (13): 2001-09-10 10:0x is not a date and time (B)"_s);
    m_timeline.chooseEvent(11);
    EXPECT_EQ(lanes(), "[A -->]|C -->|D -->|E -->") << "what was drawn before it stays";
    m_timeline.resize(5 * 385, 5 * 17);
}

TEST_F(Handlers, AnEventThatCannotBeReadLeavesTheWindowAsItWas)
{
    // before an empty window lies an event with an unreadable time
    struct Case
    {
        const char* what;
        void (Timeline::*before)();
        void (Timeline::*handler)();
        const char* state;
    };
    const Case cases[]{
        {"into the empty window", &Timeline::NavBeginning, &Timeline::NavJumpForward,
         "09/01/2001 10:00 First --> - -"},
        {"a coarser scale", &Timeline::NavJumpForward, &Timeline::ZoomOut, "09/01/2001 10:30  First A"},
        {"the view again", &Timeline::NavJumpForward, &Timeline::drawTimeline, "09/01/2001 10:30  First A"},
    };
    const auto state = [this] { return now() + ' ' + lanes() + ' ' + nearest(); };
    for (const Case& each : cases) {
        m_database.run("UPDATE Event SET StartTime = '10:00' WHERE EventID = 2");
        m_timeline.NavBeginning();
        (m_timeline.*each.before)();
        ASSERT_EQ(state(), each.state);
        const bool wasEmpty = m_timeline.isEmpty();
        m_database.run("UPDATE Event SET StartTime = '10:0x' WHERE EventID = 2");
        m_desktop.messages.expectMessage(
            u"searchByTimeConstraint Error (13): 2001-09-01 10:0x is not a date and time (First)"_s);
        (m_timeline.*each.handler)();
        m_desktop.messages.finish();
        EXPECT_EQ(state(), each.state) << each.what;
        EXPECT_EQ(m_timeline.isEmpty(), wasEmpty) << each.what;
        EXPECT_EQ(m_timeline.window().zoomFactor(), 0) << each.what;
    }

    m_timeline.chooseEvent(11);
    m_database.run("UPDATE Event SET StartTime = '10:0x' WHERE EventID = 14");
    m_desktop.messages.expectMessage(
        u"searchByTimeConstraint Error (13): 2001-09-10 10:0x is not a date and time (D)"_s);
    m_timeline.chooseEvent(14);
    EXPECT_EQ(now() + ' ' + lanes(), "09/10/2001 10:00 A -->|B -->|C -->")
        << "what is selected is out of sight";
}

TEST_F(Handlers, WithoutAViewOfEventsNothingIsRead)
{
    m_history.addView({ViewKind::Home, std::make_shared<const SQLObject>(), u"Home Page"_s});
    m_timeline.mainLoad();
    m_timeline.NavEnd();
    m_timeline.chooseEvent(11);
    EXPECT_EQ(now(), "09/20/2001 23:40");
    EXPECT_EQ(lanes(), "");

    m_session.close();
    m_timeline.mainLoad();
    EXPECT_EQ(now(), "06/15/2005 00:00");
    m_timeline.NavEnd();
    EXPECT_EQ(now(), "06/16/2005 11:40") << "a day from now";
}

} // namespace

// SPDX-License-Identifier: GPL-3.0-or-later

#include "timeline/TimeWindow.h"

#include "support/Testing.h"
#include "timeline/Moments.h"

namespace {

/// Ten days, seen through a picture that is four steps wide.
class Window : public testing::Test
{
protected:
    Window() { begin("2001-09-01 08:03", "2001-09-11 08:03"); }

    void begin(const char* start, const char* end)
    {
        m_window.setWidth(4 * 385);
        m_window.begin({at(start), at(end)});
    }

    void zoomTo(int zoomFactor)
    {
        while (m_window.zoomFactor() < zoomFactor && m_window.canZoomOut())
            m_window.ZoomOut();
        ASSERT_EQ(m_window.zoomFactor(), zoomFactor);
    }

    [[nodiscard]] std::string now() const { return dateTimeText(m_window.currentTime()).toStdString(); }
    [[nodiscard]] std::string end() const { return dateTimeText(m_window.windowEnd()).toStdString(); }

    TimeWindow m_window;
};

TEST_F(Window, MovesByStepsAndJumpsWithinTheLimits)
{
    EXPECT_EQ(now(), "09/01/2001 08:03");
    EXPECT_EQ(end(), "09/01/2001 08:23");
    m_window.NavStepForward();
    EXPECT_EQ(now(), "09/01/2001 08:08");
    m_window.NavJumpForward();
    EXPECT_EQ(now(), "09/01/2001 08:38") << "a jump is a step two levels coarser";
    m_window.NavJumpBack();
    m_window.moveTo(at("2001-09-01 08:06"));
    m_window.NavStepBack();
    EXPECT_EQ(now(), "09/01/2001 08:03") << "not two minutes before the start";
    m_window.NavJumpBack();
    EXPECT_EQ(now(), "09/01/2001 08:03");

    m_window.NavEnd();
    EXPECT_EQ(end(), "09/11/2001 08:03");
    m_window.NavStepForward();
    EXPECT_EQ(end(), "09/11/2001 08:03");
    m_window.NavStepBack();
    m_window.NavStepBack();
    m_window.NavJumpForward();
    EXPECT_EQ(end(), "09/11/2001 08:03");
    m_window.NavBeginning();
    EXPECT_EQ(now(), "09/01/2001 08:03");
}

TEST_F(Window, IsDraggedByWholeMinutesWithinTheLimits)
{
    const struct
    {
        int level;
        int units;
        const char* now;
    } drags[]{
        {0, 0, "09/05/2001 12:00"},   {0, -38, "09/05/2001 12:00"},     {0, -39, "09/05/2001 12:01"},
        {0, 39, "09/05/2001 11:59"},  {0, -385, "09/05/2001 12:05"},    {7, -1, "09/05/2001 12:04"},
        {7, 385, "09/04/2001 12:00"}, {7, 5 * 385, "09/01/2001 08:03"}, {7, -5 * 385, "09/07/2001 08:03"}};
    for (const auto& [level, units, expected] : drags) {
        zoomTo(level);
        m_window.drag(at("2001-09-05 12:00"), units);
        EXPECT_EQ(now(), expected) << units;
    }
}

TEST_F(Window, ItsEndIsTheLastWholeMinuteBeforeTheRightEdge)
{
    m_window.setWidth(1600);
    EXPECT_EQ(m_window.windowEnd() - m_window.currentTime(), 20) << "20.8 minutes";
    m_window.setWidth(384);
    EXPECT_EQ(m_window.windowEnd() - m_window.currentTime(), 4);
    m_window.setWidth(1000000);
    zoomTo(0);
    m_window.begin({at("0100-01-01"), at("9999-12-31")});
    zoomTo(7);
    EXPECT_EQ(m_window.windowEnd() - m_window.currentTime(), 1000000LL * 1440 / 385);
}

TEST_F(Window, ZoomKeepsTheLeftEdgeWhereTheLimitsAllow)
{
    EXPECT_FALSE(m_window.canZoomIn());
    m_window.ZoomIn();
    EXPECT_EQ(m_window.zoomFactor(), 0);

    m_window.moveTo(at("2001-09-05 12:00"));
    zoomTo(7);
    EXPECT_EQ(now(), "09/05/2001 12:00");
    m_window.setWidth(4 * 385);
    EXPECT_FALSE(m_window.canZoomOut()) << "a resize does not lead beyond the coarsest level";
    m_window.ZoomOut();
    EXPECT_EQ(m_window.zoomFactor(), 7);
    m_window.ZoomIn();
    EXPECT_TRUE(m_window.canZoomOut());

    m_window.NavEnd();
    m_window.ZoomOut();
    EXPECT_EQ(end(), "09/11/2001 08:03") << "the window moves back where it would reach beyond the end";
    EXPECT_EQ(now(), "09/07/2001 08:03");
    while (m_window.canZoomIn())
        m_window.ZoomIn();
    EXPECT_EQ(m_window.zoomFactor(), 0);
    EXPECT_EQ(now(), "09/07/2001 08:03");
}

TEST_F(Window, ATimelineShorterThanTheWindowStaysAtItsStart)
{
    begin("2001-09-11 08:46", "2001-09-12 10:28");
    zoomTo(6);
    EXPECT_FALSE(m_window.canZoomOut()) << "all is in view";
    EXPECT_EQ(now(), "09/11/2001 08:46");
    const std::vector<void (TimeWindow::*)()> moves{&TimeWindow::NavEnd, &TimeWindow::NavStepForward,
                                                    &TimeWindow::NavJumpForward, &TimeWindow::NavStepBack,
                                                    &TimeWindow::NavBeginning};
    for (const auto move : moves) {
        (m_window.*move)();
        EXPECT_EQ(now(), "09/11/2001 08:46");
    }
    m_window.setWidth(385);
    EXPECT_TRUE(m_window.canZoomOut()) << "in a narrow picture it is not";
    m_window.setWidth(4 * 385);
    EXPECT_FALSE(m_window.canZoomOut());
    m_window.setLimits({at("2001-09-11 08:46"), at("2001-09-20")});
    EXPECT_TRUE(m_window.canZoomOut()) << "nor is that all of a longer timeline";
    m_window.setLimits({at("2001-09-11 08:46"), at("2001-09-12 10:28")});
    m_window.ZoomIn();
    EXPECT_TRUE(m_window.canZoomOut());
}

TEST_F(Window, GoesToAnEventThatIsNotInView)
{
    struct Case
    {
        const char* name;
        const char* start;
        const char* end;
        const char* currentTime;
    };
    const std::vector<Case> cases{
        {"before the window", "2001-09-02 10:00", "2001-09-02 11:00", "09/02/2001 10:00"},
        {"ends as the window begins", "2001-09-05 11:00", "2001-09-05 12:00", "09/05/2001 11:00"},
        {"runs into the window", "2001-09-05 11:00", "2001-09-05 12:01", "09/05/2001 12:00"},
        {"an instant at the left edge", "2001-09-05 12:00", "2001-09-05 12:00", "09/05/2001 12:00"},
        {"an instant inside", "2001-09-05 12:19", "2001-09-05 12:19", "09/05/2001 12:00"},
        {"starts at the right edge", "2001-09-05 12:20", "2001-09-05 13:00", "09/05/2001 12:20"},
        {"near the end", "2001-09-11 08:00", "2001-09-11 08:01", "09/11/2001 07:43"},
        {"before the start", "2001-08-01 00:00", "2001-08-01 00:00", "09/01/2001 08:03"},
        {"beyond the end", "2001-10-01 00:00", "2001-10-01 00:00", "10/01/2001 00:00"},
    };
    for (const Case& entry : cases) {
        m_window.moveTo(at("2001-09-05 12:00"));
        m_window.showEvent(at(entry.start), at(entry.end));
        EXPECT_EQ(now(), entry.currentTime) << entry.name;
    }
}

TEST_F(Window, NewLimitsLeaveTheWindowWhereItIs)
{
    zoomTo(3);
    m_window.moveTo(at("2001-09-05 12:00"));
    m_window.setLimits({at("2001-09-05 00:00"), at("2001-09-05 14:00")});
    EXPECT_EQ(now(), "09/05/2001 12:00");
    m_window.NavStepBack();
    EXPECT_EQ(now(), "09/05/2001 11:00");
    m_window.NavStepForward();
    EXPECT_EQ(now(), "09/05/2001 10:00") << "the window now ends with the timeline";
}

} // namespace

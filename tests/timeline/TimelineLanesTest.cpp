// SPDX-License-Identifier: GPL-3.0-or-later

#include "timeline/TimelineLanes.h"

#include "support/Testing.h"
#include "timeline/Moments.h"
#include "util/Error.h"

#include <cstdlib>
#include <limits>

namespace {

/// A window of 1540 units from 10:00 to 10:20, and a font whose letters are 10 units wide.
class Lanes : public testing::Test
{
protected:
    Lanes()
    {
        m_window.setWidth(1540);
        m_window.begin({at("2001-09-11 10:00"), at("2001-09-12 10:00")});
    }

    static WindowEvent event(const QString& name, const char* start, const char* end, bool isKey = false)
    {
        const std::string from(start);
        const std::string to(end);
        return {7, name, isKey, "2001-09-11", from, to.empty() ? "" : "2001-09-11", to};
    }

    Lane draw(const WindowEvent& event)
    {
        std::vector<Lane> lanes;
        TimelineLanes::draw(m_window, {event}, 0, 1, std::nullopt, textWidth, lanes);
        return lanes.at(0);
    }

    static int textWidth(const QString& text) { return static_cast<int>(text.size()) * 10; }

    TimeWindow m_window;
};

TEST_F(Lanes, ABarSpansWhatIsVisibleOfAnEvent)
{
    struct Case
    {
        const char* start;
        const char* end;
        double left;
        double width;
        const char* caption;
    };
    const std::vector<Case> cases{
        {"09:00", "11:00", 0, 1540, "<-- Fire -->"}, {"09:59", "10:05", 0, 385, "<-- Fire"},
        {"10:05", "10:21", 385, 1155, "Fire -->"},   {"10:05", "10:10", 385, 385, "Fire"},
        {"10:00", "10:20", 0, 1540, "Fire"}, // at both edges, and neither before nor after them
        {"10:19", "10:20", 1463, 77, "Fire"},        {"10:20", "10:30", 1540, 0, "Fire -->"},
    };
    for (const Case& entry : cases) {
        const Lane lane = draw(event(QStringLiteral("Fire"), entry.start, entry.end));
        EXPECT_NEAR(lane.barLeft, entry.left, 1e-9) << entry.start;
        EXPECT_NEAR(lane.barWidth, entry.width, 1e-9) << entry.start;
        EXPECT_EQ(lane.caption.toStdString(), entry.caption);
        EXPECT_FALSE(lane.isInstant);
    }
}

TEST_F(Lanes, AnEventWithoutASoundEndIsAnInstantAtItsStart)
{
    for (const char* end : {"10:05", "", "08:00"}) {
        const Lane lane = draw(event(QStringLiteral("Quake"), "10:05", end));
        EXPECT_TRUE(lane.isInstant) << end;
        EXPECT_EQ(lane.barWidth, 0);
        EXPECT_EQ(lane.markerLeft, 385 - 9);
        EXPECT_EQ(lane.captionLeft, 385 + 10);
        EXPECT_EQ(lane.caption, QStringLiteral("Quake"));
        EXPECT_EQ(lane.toolTip, QStringLiteral("(09/11/2001 10:05) Quake"));
    }
    EXPECT_EQ(draw(event(QStringLiteral("Quake"), "10:00", "10:00")).markerLeft, -9) << "at the left edge";
}

TEST_F(Lanes, WhatIsFarOutOfSightHasAPlaceAllTheSame)
{
    for (const auto& [start, end] :
         {std::pair("9999-12-31", "9999-12-31"), std::pair("0100-01-01", "0100-01-01"),
          std::pair("9999-12-30", "9999-12-31"), std::pair("0100-01-01", "0100-01-02")}) {
        WindowEvent far = event(QStringLiteral("Far"), "10:00", "10:00");
        far.startDate = start;
        far.endDate = end;
        const Lane lane = draw(far);
        const bool isLater = std::string_view(start) > "2001";
        EXPECT_EQ(lane.place, isLater ? Lane::CaptionPlace::Before : Lane::CaptionPlace::After) << start;
        EXPECT_LT(std::abs(lane.barLeft) + std::abs(lane.barWidth), std::numeric_limits<int>::max()) << start;
        EXPECT_EQ(lane.captionWidth, textWidth(lane.caption)) << start;
    }
}

TEST_F(Lanes, ACaptionStandsWhereItCanBeRead)
{
    using Place = Lane::CaptionPlace;
    struct Case
    {
        const char* start;
        const char* end;
        int letters;
        bool isKey;
        Place place;
        int left;
        int width;
    };
    const std::vector<Case> cases{
        {"10:05", "10:10", 38, false, Place::Inside, 387, 380},
        {"10:05", "10:10", 39, false, Place::After, 772, 390},
        {"10:05", "10:10", 38, true, Place::After, 772, 380},
        {"10:05", "10:10", 36, true, Place::Inside, 385 + 13 + 2, 360},
        {"10:18", "10:20", 20, false, Place::Before, 1386 - 2 - 200, 200},
        {"10:05", "10:10", 90, false, Place::After, 772, 1540 - 772 - 2}, // the most room
        {"10:12", "10:18", 140, false, Place::Before, 2, 924 - 4},
        {"10:20", "10:20", 5, false, Place::Before, 1531 - 2 - 50, 50}, // an instant at the right edge
        {"10:00", "10:20", 200, false, Place::Inside, 2, 1536},
    };
    for (const Case& entry : cases) {
        const Lane lane = draw(event(QString(entry.letters, u'x'), entry.start, entry.end, entry.isKey));
        EXPECT_EQ(lane.place, entry.place) << entry.letters;
        EXPECT_GE(lane.captionLeft, 0) << entry.letters;
        EXPECT_LE(lane.captionLeft + lane.captionWidth, 1540) << entry.letters;
        EXPECT_EQ(lane.captionLeft, entry.left) << entry.letters;
        EXPECT_EQ(lane.captionWidth, entry.width) << entry.letters;
    }
}

TEST_F(Lanes, ThereAreAsManyAsThePictureHoldsFromTheFirstShown)
{
    EXPECT_EQ(TimelineLanes::laneCount(16), 0);
    EXPECT_EQ(TimelineLanes::laneCount(17), 1);
    EXPECT_EQ(TimelineLanes::laneCount(400), 23);

    std::vector<WindowEvent> events;
    for (int i = 0; i < 5; ++i) {
        events.push_back(event(QString::number(i), "10:00", "10:05"));
        events.back().eventId = 10 + i;
    }
    const auto drawn = [&](std::size_t first, int laneCount) {
        std::vector<Lane> lanes;
        TimelineLanes::draw(m_window, events, first, laneCount, 12, textWidth, lanes);
        std::string text;
        for (const Lane& lane : lanes)
            text += std::to_string(lane.eventId) + (lane.isSelected ? "! " : " ");
        return text;
    };
    EXPECT_EQ(drawn(0, 3), "10 11 12! ");
    EXPECT_EQ(drawn(2, 3), "12! 13 14 ");
    EXPECT_EQ(drawn(4, 3), "14 ");
    EXPECT_EQ(drawn(0, 0), "");

    events[2].startDate = "soon";
    std::vector<Lane> lanes;
    EXPECT_THROW(TimelineLanes::draw(m_window, events, 0, 5, std::nullopt, textWidth, lanes), Error);
    EXPECT_EQ(lanes.size(), 2u) << "those drawn before it stay";
    events[1].endDate = "2001-02-30";
    lanes.clear();
    EXPECT_THROW(TimelineLanes::draw(m_window, events, 0, 5, std::nullopt, textWidth, lanes), Error);
    EXPECT_EQ(lanes.size(), 1u) << "an end that is no day is not taken for a missing one";
}

} // namespace

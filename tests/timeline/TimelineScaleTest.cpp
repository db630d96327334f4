// SPDX-License-Identifier: GPL-3.0-or-later

#include "timeline/TimelineScale.h"

#include "support/TestDatabase.h"
#include "timeline/Moments.h"
#include "timeline/TimelineLimits.h"

namespace {

using namespace TimelineScale;

TEST(TimelineScale, StepsOfTheTwoExtraLevelsAreOddOnPurpose)
{
    EXPECT_EQ(stepAt(7), 24 * 60);
    EXPECT_EQ(stepAt(11), 2 * 7 * 24 * 60);
    EXPECT_EQ(stepAt(12), stepAt(11));
    EXPECT_EQ(stepAt(13), 30320);
    EXPECT_EQ(stepAt(15), 0);
    EXPECT_EQ(errorNumberOf([] { return stepAt(16); }), 9);
    EXPECT_EQ(errorNumberOf([] { return stepAt(-1); }), 9);
}

TEST(TimelineScale, RemaindersKeepTheSignOfWhatIsDivided)
{
    EXPECT_DOUBLE_EQ(floatMod(12, 12), 0);
    EXPECT_DOUBLE_EQ(floatMod(30.5, 12), 6.5);
    EXPECT_DOUBLE_EQ(floatMod(-1.5, 12), -1.5);
}

/// Where the strip lies, and the moment at the left edge of the window as the strip has it.
TEST(TimelineScale, TheStripLiesWhereItsMomentsAre)
{
    struct Case
    {
        int zoomFactor;
        const char* timelineStart;
        const char* currentTime;
        double left;
        const char* origin;
    };
    const std::vector<Case> cases{
        {0, "2001-09-11 00:00", "2001-09-11 01:00", 0, "2001-09-11 01:00"},
        {0, "2001-09-11 00:00", "2001-09-11 00:55", -385.0 * 11, "2001-09-11 00:00"},
        {0, "2001-09-11 08:46", "2001-09-11 08:46", -385.0 * 9.2, "2001-09-11 08:00"},
        {3, "1600-01-01 10:00", "9999-12-31 13:30", -385.0 * 1.5, "9999-12-31 12:00"},
        {6, "2001-09-11 08:46", "2001-09-15 00:00", 0, "2001-09-15 00:00"},
        {6, "2001-09-11 08:46", "2001-09-14 16:00", -385.0 * 11, "2001-09-11 00:00"},
        {7, "2001-09-11 08:46", "2001-09-11 12:00", -385.0 * 10.5, "2001-09-01 00:00"},
        {7, "1999-12-31 23:00", "2000-02-29 18:00", -385.0 * 28.75, "2000-02-01 00:00"},
        {7, "1999-12-31 23:00", "2000-03-01 00:00", 0, "2000-03-01 00:00"},
        {7, "1999-01-01 00:00", "1999-02-28 00:00", -385.0 * 27, "1999-02-01 00:00"},
        {7, "1999-01-01 00:00", "1999-04-30 00:00", -385.0 * 29, "1999-04-01 00:00"},
        {7, "1999-01-01 00:00", "9999-12-31 00:00", -385.0 * 30, "9999-12-01 00:00"},
    };
    for (const Case& entry : cases) {
        const auto strip = positionScale(entry.zoomFactor, at(entry.timelineStart), at(entry.currentTime));
        ASSERT_TRUE(strip.has_value());
        EXPECT_NEAR(strip->left, entry.left, 1e-3) << entry.currentTime;
        EXPECT_EQ(strip->origin, at(entry.origin)) << entry.currentTime;
    }
    EXPECT_FALSE(positionScale(8, at("2001-09-11"), at("2001-09-11")).has_value());
}

TEST(Moment, ReadsWhatTheFileHolds)
{
    EXPECT_EQ(momentOfHeld("2001-09-11", "08:46:59"), at("2001-09-11 08:46"));
    EXPECT_EQ(momentOfHeld("2001-09-11", ""), at("2001-09-11 00:00"));
    EXPECT_EQ(at("1900-03-01") - at("1900-02-28"), minutesOfDay);
    EXPECT_EQ(dateTimeText(at("0100-01-02 03:04")), QStringLiteral("01/02/0100 03:04"));
    EXPECT_EQ(dateTimeText(at("9999-12-31 23:59") + 1), QStringLiteral("01/01/10000 00:00"));
    for (const char* date : {"", "2001-02-29", "2001-9-11", "09/11/2001", "2001-0x-11"})
        EXPECT_FALSE(momentOfHeld(date, "08:46").has_value()) << date;
    for (const char* time : {"24:00", "8:46", "noon", "-1:00"})
        EXPECT_FALSE(momentOfHeld("2001-09-11", time).has_value()) << time;
}

/// The last of them cannot be read to its end, and leaves the end as it was.
TEST(TimelineLimits, ReachFromTheFirstStartToADayAfterTheLastEndOrAreTheDayOfToday)
{
    const struct
    {
        const char* events;
        const char* start;
        Moment end;
        int error;
    } cases[] = {
        {"(1, '1500-01-01', '00:00', '9000-01-01', '00:00', 'ACTIVE'),"
         "(2, '1600-05-06', '07:08:59', '1700-01-01', '10:00', 'ACTIVE'),"
         "(3, '1600-05-06', '09:00', '9999-12-31', '23:59', 'active'),"
         "(4, '1550-01-01', '00:00', '9999-12-31', NULL, 'DELETED'), (5, NULL, '03:00', NULL, NULL, "
         "'ACTIVE'),"
         "(6, '1590-01-01', '03:00', '9999-12-31', NULL, NULL)",
         "1600-05-06 07:08", at("9999-12-31 23:59") + minutesOfDay, 0},
        {"(1, '1500-01-01', NULL, '1500-01-01', NULL, 'ACTIVE'), (3, NULL, NULL, NULL, NULL, 'ACTIVE'),"
         "(2, '1501-01-01', NULL, '1501-01-01', NULL, 'DELETED')",
         "2005-06-15 00:00", at("2005-06-16 13:45"), 0},
        {"(2, '1900-01-01', NULL, 'some day', NULL, 'ACTIVE')", "1900-01-01", 8, 13},
    };
    for (const auto& [events, start, end, error] : cases) {
        SCOPED_TRACE(events);
        TestDatabase database;
        const std::string insert =
            "INSERT INTO Event (EventID, StartDate, StartTime, EndDate, EndTime, Status) VALUES ";
        database.run((insert + events).c_str());
        TimelineLimits limits{7, 8};
        const QDateTime today(QDate(2005, 6, 15), QTime(13, 45));
        EXPECT_EQ(errorNumberOf([&] { setTimelineLimits(database.session(), today, limits); }), error);
        EXPECT_EQ(limits.timelineStart, at(start));
        EXPECT_EQ(limits.timelineEnd, end);
    }
}

} // namespace

// SPDX-License-Identifier: GPL-3.0-or-later

#include "timeline/EventDensity.h"

#include "support/TestDatabase.h"
#include "timeline/Moments.h"
#include "views/NarrowedQuery.h"
#include "views/StandardQueries.h"

namespace {

QString dayAndMonth(Moment midnight)
{
    return dateText(midnight).left(5);
}

/// The days with their events and key events, then the runs.
std::string written(const EventDensity& density)
{
    QStringList texts;
    for (const auto& day : density.days())
        texts << u"%1:%2/%3"_s.arg(dayAndMonth(day.midnight)).arg(day.events).arg(day.keyEvents);
    for (const auto& run : density.runs())
        texts << dayAndMonth(run.begin) + u'-' + dayAndMonth(run.end - minutesOfDay);
    return texts.join(u' ').toStdString();
}

TEST(EventDensity, CountsEachEventOfAViewOnceOnTheDayItBegins)
{
    TestDatabase database;
    database.run(
        "INSERT INTO Event (EventID, EventName, KeyEvent, StartDate, StartTime, EndDate, Status) VALUES "
        "(2, 'linked', 1, '2001-03-01', '10:00', '2001-03-04', 'ACTIVE'),"
        "(3, 'the old form of true', -1, '2001-03-01', NULL, '2001-03-01', 'ACTIVE'),"
        "(4, 'touches the first', NULL, '2001-03-05', NULL, '2001-03-06', 'ACTIVE'),"
        "(5, 'within', 0, '2001-03-06', '23:59', NULL, 'ACTIVE'),"
        "(6, 'ends before it starts', 0, '2001-03-06', NULL, '2001-02-01', 'ACTIVE'),"
        "(7, 'apart', 0, '2001-03-08', NULL, '2001-03-09', 'ACTIVE'),"
        "(8, 'no day', 1, NULL, NULL, '2001-03-09', 'ACTIVE'),"
        "(9, 'no such day', 0, '2001-02-30', NULL, NULL, 'ACTIVE'),"
        "(10, 'no such end', 0, '2001-03-11', '1x:00', 'soon', 'ACTIVE'),"
        "(11, 'gone', 1, '2001-03-12', NULL, NULL, 'deleted'),"
        "(12, 'hidden', 1, '2001-03-12', NULL, NULL, NULL)");
    database.run("INSERT INTO EventFunctions VALUES (2, 5), (2, 6), (2, 6), (4, 5), (4, 7)");
    database.run("INSERT INTO DocumentEvents VALUES (3, 2), (3, 2), (3, 7)");
    const StandardQueries queries;
    const auto narrowed = [&](const QString& condition) {
        return queries.narrowed(RecordKind::Event, condition);
    };
    const struct
    {
        SharedQuery view;
        const char* days;
    } cases[]{
        {queries.events, "03/01:2/2 03/05:1/0 03/06:2/0 03/08:1/0 03/11:1/0 03/01-03/06 03/08-03/09"},
        {narrowed(u" AND (EventFunctions.FunctionID IN (5, 6))"_s), "03/01:1/1 03/05:1/0 03/01-03/06"},
        {narrowed(u" AND DocumentEvents.DocumentID = 3"_s), "03/01:1/1 03/08:1/0 03/01-03/04 03/08-03/09"},
        {narrowedTo(RecordKind::Event, queries.events, {3, 5}, {2, 3, 4, 5, 6, 7, 8, 9, 10}),
         "03/01:1/1 03/06:1/0"},
        {narrowed(u" AND EventID = 99"_s), ""},
    };
    for (const auto& each : cases)
        EXPECT_EQ(written(EventDensity::read(database.session(), *each.view)), each.days);
    EXPECT_EQ(errorNumberOf([&] {
                  (void)EventDensity::read(database.session(), *narrowed(u" AND NoSuchColumn = 1"_s));
              }),
              1);
    EXPECT_EQ(database.planOf(EventDensity::statement(*queries.events)),
              u"SCAN Event USING COVERING INDEX EventByStart\n"_s)
        << "a million events are read in one pass, and nothing is kept of them";
}

} // namespace

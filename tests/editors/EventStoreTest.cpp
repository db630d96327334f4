// SPDX-License-Identifier: GPL-3.0-or-later

#include "records/EventStore.h"

#include "editors/EditorTest.h"

namespace {

constexpr int overflow = 6;
constexpr int gone = 12;
constexpr int noDateOrTime = 20;

class EventStoreTest : public EditorTest
{
protected:
    /// A new event that can be saved.
    EventRecord filled()
    {
        EventRecord record = m_store.blank(std::nullopt);
        record.eventName = u"Ice storm"_s;
        record.eventDescription = u"Lines came down"_s;
        check(record.venues, {12});
        return record;
    }

    EventStore m_store{m_state.session, m_clock};
};

TEST_F(EventStoreTest, DatesAndTimesGoInAndComeBackAsTheyAre)
{
    const struct
    {
        QString date;
        QString time;
        QString held;
    } cases[] = {{u"01/01/1600"_s, u"00:00"_s, u"1600-01-01|00:00"_s},
                 {u"12/31/9999"_s, u"23:59"_s, u"9999-12-31|23:59"_s},
                 {u"02/29/2000"_s, u"12:00"_s, u"2000-02-29|12:00"_s},
                 {u"09/09/1752"_s, QString(), u"1752-09-09|NULL"_s},
                 {QString(), u"01:02"_s, u"NULL|01:02"_s}};
    for (const auto& [date, time, held] : cases) {
        EventRecord record = filled();
        record.eventName = held;
        record.startDate = date;
        record.startTime = time;
        ASSERT_FALSE(m_store.saveEvent(record)) << qPrintable(held);
        EXPECT_EQ(ask("SELECT StartDate, StartTime FROM Event ORDER BY EventID DESC LIMIT 1"), held);
        const EventRecord again = m_store.load(record.id).record;
        EXPECT_EQ(again.startDate, date) << qPrintable(held);
        EXPECT_EQ(again.startTime, time) << qPrintable(held);
        EXPECT_EQ(EventStore::getStartDate(again).has_value(), !date.isEmpty());
    }
}

TEST_F(EventStoreTest, ADateThatCannotBeReadIsShownAndNeverLost)
{
    const QString noDate = u" is not a date. Please type month, day and year, such as 09/11/2001."_s;
    const QString noTime = u" is not a time. Please type hour and minute, such as 13:05."_s;
    const struct
    {
        const char* column;
        const char* held;
        QString EventRecord::*shownIn;
        QString shown;
        EventField field;
        QString message;
    } cases[] = {
        {"StartDate", "abc", &EventRecord::startDate, u"abc"_s, EventField::StartDate,
         u"Start date \"abc\""_s + noDate},
        {"EndDate", "2001-02-30", &EventRecord::endDate, u"02/30/2001"_s, EventField::EndDate,
         u"End date \"02/30/2001\""_s + noDate},
        {"StartTime", "24:10", &EventRecord::startTime, u"24:10"_s, EventField::StartTime,
         u"Start time \"24:10\""_s + noTime},
        {"EndTime", "%1 noon", &EventRecord::endTime, u"%1 noon"_s, EventField::EndTime,
         u"End time \"%1 noon\""_s + noTime},
    };
    for (const auto& [column, held, shownIn, shown, field, message] : cases) {
        m_database.run(
            u"UPDATE Event SET %1 = '%2' WHERE EventID = 2"_s.arg(QLatin1String(column), QLatin1String(held))
                .toUtf8()
                .constData());
        const QByteArray before = m_database.bytes();
        EventRecord record = m_store.load(2).record;
        EXPECT_EQ(record.*shownIn, shown);
        const auto problem = EventStore::check(record);
        ASSERT_TRUE(problem) << column;
        EXPECT_EQ(problem->field, field) << column;
        EXPECT_EQ(problem->message, message);
        EXPECT_EQ(errorNumberOf([&] { (void)m_store.updateEvent(record); }), noDateOrTime) << column;
        EXPECT_EQ(m_database.bytes(), before) << column;
        (record.*shownIn).clear();
        EXPECT_FALSE(EventStore::check(record)) << column;
        EXPECT_FALSE(m_store.updateEvent(record));
    }
    EXPECT_EQ(ask("SELECT StartDate, StartTime, EndDate, EndTime FROM Event WHERE EventID = 2"),
              u"NULL|NULL|NULL|NULL"_s);
}

TEST_F(EventStoreTest, WhatCannotBeSavedIsRefusedBeforeAnythingIsWritten)
{
    EventRecord record = m_store.load(2).record;
    const QByteArray before = m_database.bytes();
    EXPECT_EQ(errorNumberOf([&] { (void)m_store.load(40000); }), overflow);
    for (const auto list : {&EventRecord::functions, &EventRecord::documents, &EventRecord::organizations}) {
        EventRecord changed = record;
        (changed.*list).push_back({u"far"_s, 32768});
        EXPECT_EQ(errorNumberOf([&] { (void)m_store.updateEvent(changed); }), overflow);
        EXPECT_EQ(errorNumberOf([&] { (void)m_store.saveEvent(changed); }), overflow);
    }
    record.venues.push_back({{u"far"_s, 32768}, true});
    EXPECT_EQ(errorNumberOf([&] { (void)m_store.updateEvent(record); }), overflow);
    record.venues.pop_back();
    record.id = 77;
    EXPECT_EQ(errorNumberOf([&] { (void)m_store.updateEvent(record); }), gone);
    EXPECT_EQ(m_database.bytes(), before);
    EXPECT_FALSE(m_store.load(77).isFound);
    EXPECT_EQ(EventStore::notFoundMessage(77), u"Event 77 not found"_s);
}

} // namespace

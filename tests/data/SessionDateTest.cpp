// SPDX-License-Identifier: GPL-3.0-or-later

#include "support/TestDatabase.h"

#include <gtest/gtest.h>

#include <vector>

using namespace Qt::StringLiterals;

namespace {

class SessionDates : public testing::Test
{
protected:
    QString found(const QString& condition)
    {
        return firstColumnOf(m_database.session(),
                             u"SELECT EventID FROM Q_Event WHERE "_s + condition + u" ORDER BY EventID"_s);
    }

    void addEvent(int id, const char* startDate, const char* startTime)
    {
        m_database.run(
            QStringLiteral(
                "INSERT "
                "INTO Event (EventID, StartDate, StartTime, Status) VALUES (%1, '%2', '%3', 'ACTIVE')")
                .arg(id)
                .arg(QString::fromLatin1(startDate), QString::fromLatin1(startTime))
                .toUtf8()
                .constData());
    }

    TestDatabase m_database;
};

TEST_F(SessionDates, LimitsOfTheTimeline)
{
    m_database.runFile("data/rows/Statements.sql");
    DatabaseSession& session = m_database.session();
    EXPECT_EQ(
        rowsOf(session,
               u"SELECT DISTINCT StartDate, StartTime FROM Event WHERE Status <> 'DELETED' AND EventID > 1 "
               "ORDER BY StartDate, StartTime"_s),
        u"NULL|NULL\n02/29/2000|00:00\n09/10/2001|23:00\n09/11/2001|09:00\n09/11/2001|10:30\n11/30/2001|NULL"_s);
    EXPECT_EQ(
        rowsOf(session,
               u"SELECT DISTINCT EndDate, EndTime FROM Event WHERE Status <> 'DELETED' AND EventID > 1 "
               "ORDER BY EndDate DESC, EndTime DESC"_s),
        u"11/30/2001|NULL\n09/12/2001|01:00\n09/11/2001|11:00\n09/11/2001|10:00\n02/29/2000|23:59\nNULL|NULL"_s);
    EXPECT_EQ(
        rowsOf(session, u"SELECT StartDate, EndDate, StartTime, EndTime FROM Event WHERE EventID = 4"_s),
        u"09/11/2001|09/11/2001|10:30|11:00"_s);
}

TEST_F(SessionDates, DaysCompareAcrossAllCenturies)
{
    const std::vector<const char*> days{"1600-01-01", "1752-09-14", "1899-12-31", "1900-02-28", "1900-03-01",
                                        "2000-02-29", "2001-09-11", "2001-10-01", "9999-12-31"};
    for (std::size_t i = 0; i < days.size(); ++i)
        addEvent(static_cast<int>(i) + 1, days[i], "00:00");
    EXPECT_EQ(found(u"StartDate < #1/1/1900#"_s), u"1 2 3"_s);
    EXPECT_EQ(found(u"StartDate >= #3/1/1900# AND StartDate < #10/1/2001#"_s), u"5 6 7"_s);
    EXPECT_EQ(found(u"StartDate = #9/11/2001#"_s), u"7"_s);
    EXPECT_EQ(found(u"StartDate = #09/11/2001#"_s), u"7"_s);
    EXPECT_EQ(found(u"StartDate = #2/29/2000#"_s), u"6"_s);
    EXPECT_EQ(found(u"StartDate > #12/30/9999#"_s), u"9"_s);
    EXPECT_EQ(found(u"StartDate BETWEEN #1/1/1600# AND #12/31/1899#"_s), u"1 2 3"_s);
}

TEST_F(SessionDates, ADayThatDoesNotExistIsAnError)
{
    addEvent(2, "1900-02-28", "00:00");
    for (const char* day :
         {"2/29/1900", "2/30/2000", "4/31/2001", "13/1/2001", "2001-09-11", "", "24:00", "soon"}) {
        const QString literal = QString::fromLatin1(day);
        EXPECT_EQ(errorNumberOf([&] { found(u"StartDate <> #%1#"_s.arg(literal)); }), 20) << day;
        EXPECT_EQ(errorNumberOf([&] {
                      m_database.session().execute(u"UPDATE Event SET StartDate = #%1#"_s.arg(literal));
                  }),
                  20)
            << day;
    }
    EXPECT_EQ(errorNumberOf([&] { found(u"StartDate = #9/11/2001"_s); }), 1);
    EXPECT_EQ(m_database.ask("SELECT StartDate FROM Event"), u"1900-02-28"_s);
}

TEST_F(SessionDates, TimesCompareToTheMinute)
{
    addEvent(2, "2001-09-11", "00:00");
    addEvent(3, "2001-09-11", "09:05:59");
    addEvent(4, "2001-09-11", "12:00:00");
    addEvent(5, "2001-09-11", "23:59:59");
    EXPECT_EQ(found(u"StartTime = #12:00:00 AM#"_s), u"2"_s);
    EXPECT_EQ(found(u"StartTime = #9:05#"_s), u"3"_s);
    EXPECT_EQ(found(u"StartTime > #09:05#"_s), u"4 5"_s);
    EXPECT_EQ(found(u"StartTime <= #09:05:00 AM#"_s), u"2 3"_s);
    EXPECT_EQ(found(u"StartTime = #12:00:00 PM#"_s), u"4"_s);
    EXPECT_EQ(found(u"StartTime >= #00:00# AND StartTime <= #23:59#"_s), u"2 3 4 5"_s);
    EXPECT_EQ(rowsOf(m_database.session(), u"SELECT StartTime FROM Q_Event WHERE EventID = 3"_s), u"09:05"_s);
    EXPECT_EQ(rowsOf(m_database.session(), u"SELECT StartTime FROM Event WHERE EventID = 3"_s), u"09:05"_s);
}

TEST_F(SessionDates, AMissingTimeBesideADateIsMidnightForALiteral)
{
    m_database.run("INSERT INTO Event (EventID, StartDate, StartTime, EndDate, EndTime) VALUES "
                   "(2, '2001-09-11', NULL, '2001-09-12', '10:00'), (3, '2001-09-11', '09:00', NULL, NULL), "
                   "(4, NULL, NULL, '2001-09-12', NULL)");
    const std::vector<std::pair<QString, QString>> cases{
        {u"StartTime >= #00:00#"_s, u"2 3"_s},
        {u"StartTime <= #00:00#"_s, u"2"_s},
        {u"Event.StartTime = #12:00:00 AM#"_s, u"2"_s},
        {u"StartTime <> #00:00#"_s, u"3"_s},
        {u"StartTime > #00:00# OR StartTime < #00:01#"_s, u"2 3"_s},
        {u"#08:00# < StartTime"_s, u"3"_s},
        {u"starttime BETWEEN #00:00# AND #08:00#"_s, u"2"_s},
        {u"StartTime NOT BETWEEN #00:01# AND #08:00#"_s, u"2 3"_s},
        {u"EndTime < #10:00#"_s, u"4"_s},
        {u"StartTime IS NULL"_s, u"2 4"_s},
        {u"StartDate >= #9/11/2001# AND StartTime >= #00:00# AND StartDate <= #9/11/2001# AND StartTime <= #08:59#"_s,
         u"2"_s},
    };
    for (const QString& from : {u"Q_Event"_s, u"Event"_s}) {
        for (const auto& [condition, events] : cases) {
            EXPECT_EQ(
                firstColumnOf(m_database.session(),
                              u"SELECT EventID FROM %1 WHERE %2 ORDER BY EventID"_s.arg(from, condition)),
                events)
                << from.toStdString() << ": " << condition.toStdString();
        }
    }
    EXPECT_EQ(m_database.session().execute(u"UPDATE Event SET EndTime = #11:00# WHERE StartTime = #00:00#"_s),
              1);
    EXPECT_EQ(m_database.ask("SELECT EventID FROM Event WHERE EndTime = '11:00'"), u"2"_s);
}

TEST_F(SessionDates, ADayWithATimeIsAMoment)
{
    addEvent(2, "2001-09-10", "09:00");
    addEvent(3, "2001-09-11", "09:00");
    EXPECT_EQ(found(u"StartDate < #9/11/2001 10:00#"_s), u"2 3"_s);
    EXPECT_EQ(found(u"StartDate >= #9/11/2001 00:00#"_s), u"3"_s);
    EXPECT_EQ(found(u"StartDate = #9/11/2001 12:00:00 AM#"_s), u"3"_s);
    EXPECT_EQ(found(u"StartDate >= #9/11/2001 00:01#"_s), u""_s);

    m_database.run("INSERT INTO Event_HIST (EventID, UpdateTime) VALUES (2, '2003-05-06 07:08:09')");
    DatabaseSession& session = m_database.session();
    EXPECT_EQ(
        rowsOf(session, u"SELECT UpdateTime FROM Event_HIST WHERE UpdateTime = #5/6/2003 7:08:09 AM#"_s),
        u"05/06/2003 07:08:09"_s);
    EXPECT_EQ(rowsOf(session, u"SELECT UpdateTime FROM Event_HIST WHERE UpdateTime > #5/6/2003 7:08:09#"_s),
              u""_s);
}

TEST_F(SessionDates, ADocumentDateStaysAsTyped)
{
    m_database.run(
        "INSERT INTO Document (DocumentID, DocumentDate) VALUES (2, '9/11/2001'), (3, '2001-09-11'), (4, "
        "'Spring 1906'), (5, '08:46:40')");
    EXPECT_EQ(
        firstColumnOf(m_database.session(), u"SELECT DocumentDate FROM Q_Document ORDER BY DocumentID"_s),
        u"9/11/2001 2001-09-11 Spring 1906 08:46:40"_s);
    EXPECT_EQ(firstColumnOf(m_database.session(),
                            u"SELECT DocumentID FROM Q_Document WHERE DocumentDate = 'SPRING 1906'"_s),
              u"4"_s);
}

TEST_F(SessionDates, ADateThatIsNotInHeldFormIsShownAsItIs)
{
    addEvent(2, "September 1900", "noon");
    EXPECT_EQ(rowsOf(m_database.session(), u"SELECT StartDate, StartTime FROM Event"_s),
              u"September 1900|noon"_s);
}

} // namespace

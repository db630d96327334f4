#include "timeline/TimeWindowQuery.h"

#include "data/EngineRules.h"
#include "data/StatementTranslator.h"
#include "support/TestDatabase.h"
#include "timeline/Moments.h"
#include "views/StandardQueries.h"

#include <QRegularExpression>

#include <SQLiteCpp/SQLiteCpp.h>
#include <gtest/gtest.h>

#include <vector>

using namespace Qt::StringLiterals;

namespace {

/// An event as a table row; empty texts are missing values.
struct Row
{
    int identifier = 0;
    std::string startDate;
    std::string startTime;
    std::string endDate;
    std::string endTime;
};

class Query : public testing::Test
{
protected:
    void add(const std::vector<Row>& rows)
    {
        std::string values;
        const auto value = [](const std::string& text) { return text.empty() ? "NULL" : '\'' + text + '\''; };
        for (const Row& row : rows) {
            values += (values.empty() ? "" : ",") + ("(" + std::to_string(row.identifier)) + ", 'E', " +
                      value(row.startDate) + ", " + value(row.startTime) + ", " + value(row.endDate) + ", " +
                      value(row.endTime) + ", 'ACTIVE')";
        }
        m_database.run(
            ("INSERT INTO Event (EventID, EventName, StartDate, StartTime, EndDate, EndTime, Status) "
             "VALUES " +
             values)
                .c_str());
    }

    std::string found(const QString& statement)
    {
        return firstColumnOf(m_database.session(), statement).toStdString();
    }

    std::string inWindow(std::string_view from, std::string_view to)
    {
        return found(TimeWindowQuery::inWindow(*m_view, at(from), at(to)));
    }

    /// What the engine does for a statement, one line a step.
    QString planOf(const QString& statement)
    {
        const QString sql = StatementTranslator(m_database.session().catalog()).select(statement).sql;
        SQLite::Database database(m_database.fileName().toStdString());
        addTextRules(database.getHandle());
        SQLite::Statement steps(database, "EXPLAIN QUERY PLAN " + sql.toStdString());
        QString plan;
        while (steps.executeStep())
            plan += QString::fromUtf8(steps.getColumn(3).getText()) + u'\n';
        return plan;
    }

    TestDatabase m_database;
    SharedQuery m_view = StandardQueries().events;
};

TEST_F(Query, IsBuiltFromTheClausesOfTheView)
{
    const SQLObject view{u"SELECT *"_s, u"FROM Q_Event"_s, u"WHERE EventID > 1"_s, u"ORDER BY EventID"_s};
    EXPECT_EQ(
        TimeWindowQuery::inWindow(view, at("2001-09-01 08:05"), at("9999-12-31 23:59") + 60),
        u"SELECT * FROM Q_Event WHERE EventID > 1 AND ((((StartDate > #09/01/2001#) OR (StartDate = "
        "#09/01/2001# AND StartTime >= #08:05#)) AND ((StartDate < #12/31/9999#) OR (StartDate = "
        "#12/31/9999# AND StartTime <= #23:59#))) OR (((StartDate < #09/01/2001#) OR (StartDate = "
        "#09/01/2001# AND StartTime < #08:05#)) AND ((EndDate > #09/01/2001#) OR (EndDate = #09/01/2001# "
        "AND EndTime > #08:05#)))) ORDER BY StartDate, StartTime, EndDate, EndTime, EventName"_s);
}

TEST_F(Query, TakesWhatStartsInTheWindowOrRunsAtItsBeginning)
{
    add({{2, "2001-09-11", "09:00", "2001-09-11", "10:00"},
         {3, "2001-09-10", "22:00", "2001-09-12", "01:00"},
         {4, "2001-09-11", "10:00:59", "2001-09-11", "10:00:59"},
         {5, "2001-09-11", "", "2001-09-11", ""},
         {6, "2001-09-09", "12:00", "2001-09-08", "12:00"},
         {7, "2001-09-11", "09:30", "", ""},
         {8, "1600-01-01", "", "9999-12-31", "23:59"},
         {9, "", "", "2001-09-12", "00:00"}});
    struct Case
    {
        const char* from;
        const char* to;
        const char* events;
    };
    const std::vector<Case> cases{
        {"2001-09-11 10:00", "2001-09-11 10:10", "8 3 4"}, // what ends as the window begins is out
        {"2001-09-11 08:50", "2001-09-11 09:00", "8 3 2"}, // what starts as it ends is in
        {"2001-09-11 00:00", "2001-09-11 00:20", "8 3 5"}, // without a time at midnight
        {"2001-09-10 23:40", "2001-09-11 00:00", "8 3 5"},
        {"2001-09-11 00:01", "2001-09-11 00:20", "8 3"},
        {"2001-09-09 12:00", "2001-09-09 12:20", "8 6"}, // an end before the start is none
        {"2001-09-09 12:01", "2001-09-09 12:20", "8"},
        {"2001-09-11 09:30", "2001-09-11 09:31", "8 3 2 7"},
        {"1599-12-31 23:50", "1600-01-01 00:00", "8"},
        {"9999-12-31 23:59", "9999-12-31 23:59", ""},
    };
    for (const Case& entry : cases)
        EXPECT_EQ(inWindow(entry.from, entry.to), entry.events) << entry.from;
    EXPECT_EQ(found(TimeWindowQuery::before(*m_view, at("2001-09-11 09:30"))), "2 5 3 6 8");
    EXPECT_EQ(found(TimeWindowQuery::after(*m_view, at("2001-09-11 09:00"))), "7 4");
}

TEST_F(Query, IsServedByIndexesWithoutASearchThroughAllEvents)
{
    add({{2, "2001-09-11", "09:00", "2001-09-11", "10:00"}});
    const QString plan = planOf(TimeWindowQuery::inWindow(*m_view, at("2001-09-11"), at("2001-09-12")));
    EXPECT_TRUE(
        plan.contains(QRegularExpression(u"EventByStart\\w* \\(StartDate>\\? AND StartDate<\\?\\)"_s)))
        << plan.toStdString();
    EXPECT_TRUE(plan.contains(u"EventByLength (<expr>=? AND StartDate>? AND StartDate<?)"_s))
        << plan.toStdString();
    EXPECT_FALSE(plan.contains(QRegularExpression(u"SCAN (e|Event)\\b"_s))) << plan.toStdString();
    for (const QString& nearest : {TimeWindowQuery::before(*m_view, at("2001-09-11")),
                                   TimeWindowQuery::after(*m_view, at("2001-09-11"))}) {
        EXPECT_TRUE(planOf(nearest).startsWith(u"SEARCH Event USING INDEX EventByStart (StartDate"_s));
        EXPECT_FALSE(planOf(nearest).contains(u"TEMP B-TREE"_s)) << "the first row is enough";
    }
}

} // namespace

// SPDX-License-Identifier: GPL-3.0-or-later

#include "timeline/TimeWindowQuery.h"

#include "support/TestDatabase.h"
#include "timeline/Moments.h"
#include "views/StandardQueries.h"

namespace {

class Query : public testing::Test
{
protected:
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

TEST_F(Query, IsServedByIndexesWithoutASearchThroughAllEvents)
{
    m_database.run("INSERT INTO Event (EventID, StartDate, StartTime, EndDate, EndTime, Status) VALUES "
                   "(2, '2001-09-11', '09:00', '2001-09-11', '10:00', 'ACTIVE')");
    const QString plan =
        m_database.planOf(TimeWindowQuery::inWindow(*m_view, at("2001-09-11"), at("2001-09-12")));
    EXPECT_TRUE(
        plan.contains(QRegularExpression(u"EventByStart\\w* \\(StartDate>\\? AND StartDate<\\?\\)"_s)))
        << plan.toStdString();
    EXPECT_TRUE(plan.contains(u"EventByLength (<expr>=? AND StartDate>? AND StartDate<?)"_s))
        << plan.toStdString();
    EXPECT_FALSE(plan.contains(QRegularExpression(u"SCAN (e|Event)\\b"_s))) << plan.toStdString();
    // the nearest event before or after a moment never begins at it
    const auto found = [this](const QString& statement) {
        return firstColumnOf(m_database.session(), statement);
    };
    EXPECT_EQ(found(TimeWindowQuery::before(*m_view, at("2001-09-11 09:00"))), QString());
    EXPECT_EQ(found(TimeWindowQuery::before(*m_view, at("2001-09-11 09:01"))), u"2"_s);
    EXPECT_EQ(found(TimeWindowQuery::after(*m_view, at("2001-09-11 09:00"))), QString());
    EXPECT_EQ(found(TimeWindowQuery::after(*m_view, at("2001-09-11 08:59"))), u"2"_s);
    for (const QString& nearest : {TimeWindowQuery::before(*m_view, at("2001-09-11")),
                                   TimeWindowQuery::after(*m_view, at("2001-09-11"))}) {
        EXPECT_TRUE(
            m_database.planOf(nearest).startsWith(u"SEARCH Event USING INDEX EventByStart (StartDate"_s));
        EXPECT_FALSE(m_database.planOf(nearest).contains(u"TEMP B-TREE"_s)) << "the first row is enough";
    }
}

} // namespace

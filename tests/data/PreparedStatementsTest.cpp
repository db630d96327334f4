// SPDX-License-Identifier: GPL-3.0-or-later

#include "support/TestDatabase.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

class Prepared : public testing::Test
{
protected:
    Prepared()
    {
        m_database.run("INSERT INTO Event (EventID, EventName, StartDate, StartTime, Status) VALUES "
                       "(2, '#1#', '2001-09-01', '10:00', 'A'),"
                       "(3, 'two', '2001-09-02', '11:00', 'A'),"
                       "(4, 'three', '2001-09-03', '12:00', 'A')");
    }

    std::string from(const QString& date)
    {
        return firstColumnOf(
                   m_database.session(),
                   u"SELECT EventID FROM Event WHERE EventID > 1 AND StartDate >= #%1# ORDER BY EventID"_s
                       .arg(date))
            .toStdString();
    }

    TestDatabase m_database;
};

TEST_F(Prepared, TheSameStatementReadsAnewWithOtherDates)
{
    EXPECT_EQ(from(u"9/2/2001"_s), "3 4");
    EXPECT_EQ(from(u"09/03/2001"_s), "4");
    EXPECT_EQ(from(u"9/1/2001"_s), "2 3 4");
    EXPECT_EQ(errorNumberOf([this] { from(u"9/31/2001"_s); }), 20);
    m_database.run("UPDATE Event SET StartDate = '2001-10-01' WHERE EventID = 2");
    EXPECT_EQ(from(u"09/03/2001"_s), "2 4") << "what was prepared sees what was written meanwhile";
    EXPECT_EQ(rowsOf(m_database.session(), u"SELECT EventID FROM Event WHERE EventName = \"#1#\""_s), u"2"_s);
}

TEST_F(Prepared, EachReaderHasAStatementOfItsOwnThatHoldsNoLockWhenAbandoned)
{
    m_database.session().read(u"SELECT EventID FROM Event WHERE EventID > 1"_s).next();
    m_database.run("UPDATE Event SET EventName = 'changed' WHERE EventID = 2");
    EXPECT_EQ(rowsOf(m_database.session(), u"SELECT EventName FROM Event WHERE EventID = 2"_s), u"changed"_s);

    const QString statement =
        u"SELECT EventID FROM Event WHERE EventID > 1 AND StartDate >= #%1# ORDER BY EventID"_s;
    RecordSet first = m_database.session().read(statement.arg(u"9/1/2001"_s));
    ASSERT_TRUE(first.next());
    {
        RecordSet second = m_database.session().read(statement.arg(u"9/3/2001"_s));
        ASSERT_TRUE(second.next());
        EXPECT_EQ(second.integer(0), 4);
    }
    ASSERT_TRUE(first.next());
    EXPECT_EQ(first.integer(0), 3);
    EXPECT_EQ(from(u"9/3/2001"_s), "4");
    m_database.session().close();
    ASSERT_TRUE(first.next()) << "a reader goes on if the file is closed meanwhile";
    EXPECT_EQ(first.integer(0), 4);
    EXPECT_FALSE(first.next());
}

} // namespace

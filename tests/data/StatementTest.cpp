// SPDX-License-Identifier: GPL-3.0-or-later

#include "data/LikePrefix.h"
#include "data/StatementTranslator.h"
#include "support/TestDatabase.h"
#include "views/StandardQueries.h"

namespace {

/// The statements over the stored queries, as the lists, the graphics and the searches build them.
class Statement : public testing::Test
{
protected:
    Statement() { m_database.runFile("data/rows/Statements.sql"); }

    TestDatabase m_database;
    StandardQueries m_standard;
};

TEST_F(Statement, TheDirectionAppliesToTheLastSortKeyAlone)
{
    SQLObject documents = *m_standard.documents;
    documents.AtoZ = false;
    EXPECT_EQ(firstColumnOf(m_database.session(), documents.sqlStr()), u"2 7 3 4"_s);
    SQLObject events = *m_standard.events;
    events.AtoZ = false;
    EXPECT_EQ(firstColumnOf(m_database.session(), events.sqlStr()), u"8 7 3 2 9 4 6"_s);
}

TEST_F(Statement, EmptyClausesLeaveAValidStatement)
{
    const SQLObject bare{u"SELECT FileTypeID"_s, u"FROM FileTypes"_s, {}, {}};
    EXPECT_EQ(firstColumnOf(m_database.session(), bare.sqlStr()), u"1 2 3"_s);
}

TEST_F(Statement, AdvancedSearchTakesAsManyPlacesAsThereAre)
{
    QString places = u" AND ("_s;
    for (int i = 0; i < 3000; ++i) {
        places += i == 0 ? u" "_s : u" OR "_s;
        places += u"(City LIKE 'Town %1' AND State LIKE 'TX') "_s.arg(i);
    }
    places += u" OR (City LIKE 'Boston' AND State LIKE 'MA') ) "_s;
    SQLObject query = *m_standard.organizations;
    query.WhereClause += places;
    EXPECT_EQ(firstColumnOf(m_database.session(), query.sqlStr()), u"4"_s);
}

TEST_F(Statement, PlacesThatDifferByCaseAloneAreOne)
{
    m_database.run("UPDATE Organization SET City = 'BOSTON', State = 'ma', Lat = NULL, FunctionID = 2 WHERE "
                   "OrganizationID IN (3, 5)");
    const SQLObject& all = *m_standard.organizations;
    EXPECT_EQ(firstColumnOf(m_database.session(),
                            u"SELECT DISTINCT FunctionName, LocationID, Lat, Lon, City, State "_s +
                                all.FromClause + u' ' + all.WhereClause +
                                u" AND Organization.FunctionID = 2 AND Lat IS NOT NULL"_s),
              u"Police"_s);
}

TEST(LongTexts, AreComparedWholeOrAnError)
{
    TestDatabase database;
    DatabaseSession& session = database.session();
    const RecordWriting writing(session);
    EditableRecordSet records = session.edit(u"SELECT * FROM Document WHERE DocumentID = 0"_s);
    const QString longText(300000, u'é');
    for (const QString& name :
         {longText + u'X', longText + u'Y', QString(50000, u'A'), QString(50001, u'A')}) {
        records.addNew();
        records.set(u"DocumentName"_s, name);
        records.update();
    }
    const auto found = [&session](const QString& condition) {
        return firstColumnOf(session, u"SELECT DocumentID FROM Document WHERE "_s + condition);
    };
    EXPECT_EQ(found(u"DocumentName = '"_s + longText + u"x'"_s), u"1"_s);
    EXPECT_EQ(found(u"DocumentName LIKE '%ÉÉy'"_s), u"2"_s);
    EXPECT_EQ(found(u"DocumentID > 0 ORDER BY DocumentName DESC"_s), u"2 1 4 3"_s);
    EXPECT_EQ(found(u"lower(DocumentName) IS NULL ORDER BY DocumentID"_s), u"1 2 4"_s)
        << "no name of a city is so long";
    // a pattern has a bound of its own, far above any title, and reading on past the error is one too
    EXPECT_NE(errorNumberOf([&] { found(u"DocumentName LIKE '"_s + longText + u"'"_s); }), 0);
    RecordSet rows =
        session.read(u"SELECT DocumentID FROM Document WHERE 'a' LIKE DocumentName OR DocumentID = 1"_s);
    for (int time = 0; time < 2; ++time)
        EXPECT_NE(errorNumberOf([&] { rows.next(); }), 0);
}

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
    for (int time = 0; time < 2; ++time)
        EXPECT_FALSE(first.next()) << "also if it is asked again";
}

TEST(LikePrefix, FindsATakenTitleByAnIndex)
{
    TestDatabase database;
    const QString statement =
        u"SELECT EventID FROM Event WHERE EventName LIKE \"Flood\" AND Status = 'ACTIVE'"_s;
    const QString plan = database.planOf(statement);
    EXPECT_TRUE(plan.contains(u"EventNames (EventName>? AND EventName<?)"_s)) << plan.toStdString();
}

/// Short chains are tried pair by pair, so they tell what a long one must find.
TEST(TextPairs, FindWhatPairsTriedOneByOneFind)
{
    TestDatabase database;
    database.run(
        "INSERT INTO Organization (OrganizationID, City, State, Status) VALUES "
        "(2, 'Austin', 'TX', 'ACTIVE'), (3, 'AUSTIN', 'tx', 'ACTIVE'), (4, 'Austin', 'MN', 'ACTIVE'), "
        "(5, 'Cañon City', 'CO', 'ACTIVE'), (6, 'CAÑON CITY', 'CO', 'ACTIVE'), "
        "(7, 'Canon City', 'CO', 'ACTIVE'), (8, NULL, 'TX', 'ACTIVE'), (9, 'Austin', NULL, 'ACTIVE'), "
        "(10, '', '', 'ACTIVE'), (11, '\u212Aent', 'WA', 'ACTIVE'), (12, 'O''Fallon', 'MO', 'ACTIVE'), "
        "(13, 'Austin ', 'TX', 'ACTIVE'), (14, 'Waco', 'TX', 'ACTIVE')");
    const QStringList pairs{
        u"(City LIKE 'austin' AND State LIKE 'TX')"_s, u"(City LIKE 'Cañon City' AND State LIKE 'co')"_s,
        u"(City LIKE '' AND State LIKE '')"_s, u"(City LIKE 'kent' AND State LIKE 'WA')"_s,
        u"(City LIKE \"O'Fallon\" AND State LIKE 'MO')"_s};
    const auto found = [&database](const QStringList& chain, const QString& before) {
        const QString statement = u"SELECT OrganizationID FROM Q_Organization WHERE Organization.Status <> "
                                  "'DELETED' AND %1( %2 ) ORDER BY Organization.OrganizationID"_s;
        return firstColumnOf(database.session(), statement.arg(before, chain.join(u" OR "_s)));
    };
    const QString wild = u"(City LIKE 'W%' AND State LIKE 'T_')"_s;
    for (const QString& before : {QString(), u"NOT "_s}) {
        EXPECT_EQ(found(pairs + pairs, before), found(pairs, before)) << before.toStdString();
        EXPECT_EQ(found(pairs + pairs + QStringList{wild}, before), found(pairs + QStringList{wild}, before));
    }
    EXPECT_EQ(found(pairs + pairs, {}), u"2 3 5 6 10 11 12"_s);

    const QString chain = (pairs + pairs).join(u" OR "_s);
    const QString sql = StatementTranslator(database.session().catalog())
                            .select(u"SELECT OrganizationID FROM Organization WHERE ("_s + chain + u')')
                            .sql;
    EXPECT_FALSE(sql.contains(u"LIKE"_s)) << "a long chain is looked up: " << sql.toStdString();
}

} // namespace

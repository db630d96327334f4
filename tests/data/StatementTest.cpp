// SPDX-License-Identifier: GPL-3.0-or-later

#include "support/TestDatabase.h"
#include "views/StandardQueries.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

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

TEST_F(Statement, AfterTheLastRowThereIsNone)
{
    RecordSet rows = m_database.session().read(u"SELECT * FROM JurisdictionTypes"_s);
    EXPECT_TRUE(rows.next());
    EXPECT_TRUE(rows.next());
    EXPECT_FALSE(rows.next());
    EXPECT_FALSE(rows.next());
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

} // namespace

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

TEST_F(Statement, PlacesAreKnownWithoutRegardToCaseInEveryScript)
{
    m_database.run("UPDATE Organization SET City = ' CAÑON CITY', State = 'co', Lat = NULL;"
                   "INSERT INTO CityLocations VALUES (8, 'Cañon City', 'CO', 38.5, -105.25),"
                   "(7, 'Canon City', 'CO', 1, 1), (9, 'cañon city', 'CO', 2, 2)");
    EXPECT_EQ(rowsOf(m_database.session(),
                     u"SELECT DISTINCT LocationID, Lat, Lon FROM Q_Organization WHERE OrganizationID > 1"_s),
              u"8|38.5|-105.25"_s);
}

TEST_F(Statement, PlacesToChooseFrom)
{
    DatabaseSession& session = m_database.session();
    m_database.run("UPDATE Organization SET City = 'Amarillo', State = 'tx' WHERE OrganizationID = 5;INSERT "
                   "INTO CityLocations VALUES (9, 'AMARILLO', 'TX', 35.25, -101.75)");
    EXPECT_EQ(rowsOf(session,
                     u"SELECT DISTINCT LocationID as idField, City as nameField, State FROM Q_Organization "
                     "WHERE OrganizationID > 1 AND Status <> 'DELETED' AND LocationID > 0 AND City <> '' "
                     "AND State <> '' AND State <> 'None' ORDER BY State, City"_s),
              u"4|Boston|MA\n2| AUSTIN|tx\n9|Amarillo|tx\n3|Dallas|TX"_s);
    EXPECT_EQ(rowsOf(session,
                     u"SELECT DISTINCT LocationID, City, State FROM Q_Organization WHERE OrganizationID > 1 "
                     "AND Status <> 'DELETED' AND LocationID > 0 AND City <> '' AND State LIKE 'TX' ORDER "
                     "BY State, City"_s),
              u"2| AUSTIN|tx\n9|Amarillo|tx\n3|Dallas|TX"_s);
}

} // namespace

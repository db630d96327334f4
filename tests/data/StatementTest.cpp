#include "data/StandardQueries.h"
#include "data/StatementRows.h"
#include "support/TestDatabase.h"

#include <gtest/gtest.h>

#include <vector>

using namespace Qt::StringLiterals;

namespace {

/// The statements over the stored queries, as the lists, the graphics and the searches build them.
class Statement : public testing::Test
{
protected:
    Statement() { m_database.run(statementRows); }

    /// A standard query with more said after its where clause.
    static QString narrowed(const SharedQuery& standard, const QString& condition)
    {
        SQLObject query = *standard;
        query.WhereClause += condition;
        return query.sqlStr();
    }

    /// What the graphic of a kind asks: a select list of its own, the clauses of the view, and more.
    static QString graphic(const QString& select, const SharedQuery& view, const QString& condition)
    {
        return select + u' ' + view->FromClause + u' ' + view->WhereClause + condition;
    }

    struct Case
    {
        QString condition;
        QString identifiers;
    };

    void expectNarrowed(const SharedQuery& standard, const std::vector<Case>& cases)
    {
        for (const Case& entry : cases) {
            EXPECT_EQ(firstColumnOf(m_database.session(), narrowed(standard, entry.condition)),
                      entry.identifiers)
                << entry.condition.toStdString();
        }
    }

    TestDatabase m_database;
    StandardQueries m_standard;
};

TEST_F(Statement, StandardListsGiveEveryColumn)
{
    DatabaseSession& session = m_database.session();
    EXPECT_EQ(rowsOf(session, m_standard.documents->sqlStr()),
              u"4|Étude des incendies|0|2|1|PDF|1|None|NULL|NULL|NULL\n"
              "3|fire plan|0|3|0|HTML|3|Dallas Police|3.htm|NULL|Spring 1906\n"
              "7|Report \"A\" on 50% of fires|0|1|0|None|NULL|None|NULL|NULL|NULL\n"
              "2|Zoo evacuation plan|1|2|1|PDF|2|Austin Fire|2.pdf|Zoo Board|9/11/2001"_s);
    EXPECT_EQ(rowsOf(session, m_standard.events->sqlStr()),
              u"8|Undated|0|NULL|NULL|NULL|NULL\n"
              "7|Élan|0|02/29/2000|00:00|02/29/2000|23:59\n"
              "3|Long flood|0|09/10/2001|23:00|09/12/2001|01:00\n"
              "9|alike|0|09/11/2001|09:00|09/11/2001|10:00\n"
              "2|Harbor fire|1|09/11/2001|09:00|09/11/2001|10:00\n"
              "4|Storm to the second|0|09/11/2001|10:30|09/11/2001|11:00\n"
              "6|Untimed|0|11/30/2001|NULL|11/30/2001|NULL"_s);
    EXPECT_EQ(rowsOf(session, m_standard.organizations->sqlStr()),
              u"2|Austin Fire|3|Local|3|City|3|fire| AUSTIN|tx|30.25|-97.75\n"
              "4|boston harbor patrol|3|Local|1|None|2|Police|Boston|MA|42.25|-71.0\n"
              "3|Dallas Police|3|Local|2|Sheriff|2|Police|Dallas|TX|10.5|-20.5\n"
              "7|École du feu|1|None|NULL|None|4|Élan|Austin||1.0|1.0\n"
              "5|Weather Agency|2|Federal|4|Agency|NULL|None||None|NULL|NULL"_s);
}

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

TEST_F(Statement, KeywordsAreFoundInOneColumn)
{
    const auto searched = [](const QString& first, const QString& second, const QStringList& words) {
        QStringList inFirst;
        QStringList inSecond;
        for (const QString& word : words) {
            inFirst << first + u" LIKE '%"_s + word + u"%'"_s;
            inSecond << second + u" LIKE '%"_s + word + u"%'"_s;
        }
        return u" AND (("_s + inFirst.join(u" AND ") + u") OR ("_s + inSecond.join(u" AND ") + u"))"_s;
    };
    const auto inDocuments = [&](const QStringList& words) {
        return searched(u"DocumentName"_s, u"DocumentDescription"_s, words);
    };
    expectNarrowed(m_standard.documents, {{inDocuments({u"FIRE"_s}), u"3 7 2"_s},
                                          {inDocuments({u"fire"_s, u"plan"_s}), u"3 2"_s},
                                          {inDocuments({u"fire"_s, u"water"_s}), u""_s},
                                          {inDocuments({u"étude"_s}), u"4"_s},
                                          {inDocuments({u"etude"_s}), u""_s},
                                          {inDocuments({u"\"a\""_s}), u"7"_s},
                                          {inDocuments({u"f_re"_s, u"pl_n"_s}), u"3 2"_s},
                                          {inDocuments({u"#"_s}), u""_s},
                                          {inDocuments({u"a"_s, u"o"_s, u"e"_s, u"v"_s}), u"2"_s}});
    expectNarrowed(m_standard.events,
                   {{searched(u"EventName"_s, u"EventDescription"_s, {u"fire"_s, u"harbor"_s}), u"3 2"_s}});
    expectNarrowed(m_standard.organizations,
                   {{searched(u"OrganizationName"_s, u"ResponseActivities"_s, {u"fire"_s}), u"2 4 7"_s},
                    {searched(u"OrganizationName"_s, u"ResponseActivities"_s, {u"É"_s}), u"7"_s}});

    // a keyword search sets no order
    SQLObject unordered = *m_standard.documents;
    unordered.WhereClause += inDocuments({u"zoo"_s});
    unordered.OrderClause.clear();
    EXPECT_EQ(firstColumnOf(m_database.session(), unordered.sqlStr()), u"2"_s);
}

TEST_F(Statement, AdvancedSearchNarrowsDocuments)
{
    expectNarrowed(m_standard.documents, {{u" AND VenueID IN (312) "_s, u"3"_s},
                                          {u" AND VenueID IN (2) "_s, u"2"_s},
                                          {u" AND VenueID IN (-5) "_s, u""_s},
                                          {u" AND DocumentTypeID IN (3,2) "_s, u"4 3 2"_s},
                                          {u" AND DocumentTypeID IN (1) "_s, u"3"_s},
                                          {u" AND Document.OrganizationID IN (1,2) "_s, u"4 2"_s},
                                          {u" AND FileTypeID IN (3) "_s, u"3"_s},
                                          {u" AND VenueID IN (3)  AND DocumentTypeID IN (2,4)  AND "
                                           "Document.OrganizationID IN (2)  AND FileTypeID IN (2) "_s,
                                           u"2"_s}});
}

TEST_F(Statement, AdvancedSearchNarrowsEvents)
{
    expectNarrowed(
        m_standard.events,
        {{u" AND StartDate >= #9/11/2001# AND StartTime >= #00:00# AND StartDate <= #11/30/2001# AND "
          "StartTime <= #23:59# "_s,
          u"9 2 4 6"_s},
         {u" AND StartDate >= #9/10/2001# AND StartTime >= #09:30# AND StartDate <= #9/11/2001# AND "
          "StartTime <= #10:30# "_s,
          u"4"_s},
         {u" AND VenueID IN (2,3) "_s, u"3 2"_s},
         {u" AND EventFunctions.FunctionID IN (4,7,3) "_s, u"3 2"_s},
         {u" AND Organization.OrganizationID IN (3) "_s, u"2"_s},
         {u" AND StartDate >= #9/11/2001# AND StartTime >= #00:00# AND StartDate <= #9/11/2001# AND "
          "StartTime <= #23:59#  AND VenueID IN (3)  AND EventFunctions.FunctionID IN (2)  AND "
          "Organization.OrganizationID IN (2) "_s,
          u"2"_s}});
}

TEST_F(Statement, AdvancedSearchNarrowsOrganizations)
{
    expectNarrowed(
        m_standard.organizations,
        {{u" AND VenueID IN (3,2) "_s, u"2 3"_s},
         {u" AND FunctionID IN (2,4) "_s, u"4 3 7"_s},
         {u" AND OrganizationTypeID IN (2) "_s, u"5"_s},
         {u" AND City LIKE 'dallas' AND State LIKE 'tx' "_s, u"3"_s},
         {u" AND City LIKE 'Austin' AND State LIKE '' "_s, u"7"_s},
         {u" AND ( (City LIKE 'Boston' AND State LIKE 'MA')  OR (City LIKE 'Dallas' AND State LIKE 'TX') ) "_s,
          u"4 3"_s},
         {u" AND VenueID IN (3)  AND FunctionID IN (3)  AND OrganizationTypeID IN (3)  AND City LIKE ' "
          "austin' AND State LIKE 'TX' "_s,
          u"2"_s}});
}

TEST_F(Statement, AdvancedSearchTakesAsManyPlacesAsThereAre)
{
    QString places = u" AND ("_s;
    for (int i = 0; i < 3000; ++i) {
        places += i == 0 ? u" "_s : u" OR "_s;
        places += u"(City LIKE 'Town %1' AND State LIKE 'TX') "_s.arg(i);
    }
    places += u" OR (City LIKE 'Boston' AND State LIKE 'MA') ) "_s;
    expectNarrowed(m_standard.organizations, {{places, u"4"_s}});
}

TEST_F(Statement, RelatedViews)
{
    const QString documentsOfEvent =
        u"SELECT DISTINCT Document.DocumentID FROM Document, DocumentEvents WHERE Document.DocumentID = "
        "DocumentEvents.DocumentID AND Document.DocumentID > 1 AND dStatus <> 'DELETED' AND EventID = "_s;
    const QString organizationsOfEvent =
        u"SELECT DISTINCT Organization.OrganizationID FROM Organization, OrganizationEvents WHERE "
        "Organization.OrganizationID = OrganizationEvents.OrganizationID AND Organization.OrganizationID > "
        "1 AND Status <> 'DELETED' AND EventID = "_s;
    expectNarrowed(m_standard.events, {{u" AND DocumentID = 2"_s, u"3 2"_s},
                                       {u" AND DocumentID = 4"_s, u""_s},
                                       {u" AND Organization.OrganizationID = 2"_s, u"3 2"_s},
                                       {u" AND Organization.OrganizationID = 1"_s, u"4"_s}});
    expectNarrowed(m_standard.organizations,
                   {{u" AND Organization.OrganizationID = 3"_s, u"3"_s},
                    {u" AND Organization.OrganizationID = 1"_s, u""_s},
                    {u" AND OrganizationID IN ("_s + organizationsOfEvent + u"2)"_s, u"2 3"_s}});
    expectNarrowed(m_standard.documents, {{u" AND Document.OrganizationID = 2"_s, u"2"_s},
                                          {u" AND DocumentID IN ("_s + documentsOfEvent + u"2)"_s, u"3 2"_s},
                                          {u" AND DocumentID IN ("_s + documentsOfEvent + u"4)"_s, u""_s}});
}

TEST_F(Statement, PlacesOfTheMap)
{
    DatabaseSession& session = m_database.session();
    const auto functions = graphic(u"SELECT DISTINCT Organization.FunctionID"_s, m_standard.organizations,
                                   u" AND Lat IS NOT NULL"_s);
    const QStringList found = firstColumnOf(session, functions).split(u' ');
    EXPECT_EQ(QSet<QString>(found.begin(), found.end()), (QSet<QString>{u"2"_s, u"3"_s, u"4"_s}));
    EXPECT_EQ(found.size(), 3);

    const auto places = [&](int function) {
        return rowsOf(session,
                      graphic(u"SELECT DISTINCT FunctionName, LocationID, Lat, Lon, City, State"_s,
                              m_standard.organizations,
                              u" AND Organization.FunctionID = %1 AND Lat IS NOT NULL"_s.arg(function)));
    };
    EXPECT_EQ(places(3), u"fire|2|30.25|-97.75| AUSTIN|tx"_s);
    const QStringList police = places(2).split(u'\n');
    EXPECT_EQ(QSet<QString>(police.begin(), police.end()),
              (QSet<QString>{u"Police|3|10.5|-20.5|Dallas|TX"_s, u"Police|4|42.25|-71.0|Boston|MA"_s}));
    EXPECT_EQ(places(4), u"Élan|NULL|1.0|1.0|Austin|"_s);
    EXPECT_EQ(places(1), u""_s);
}

TEST_F(Statement, PlacesThatDifferByCaseAloneAreOne)
{
    m_database.run("UPDATE Organization SET City = 'BOSTON', State = 'ma', Lat = NULL, FunctionID = 2 WHERE "
                   "OrganizationID IN (3, 5)");
    EXPECT_EQ(firstColumnOf(m_database.session(),
                            graphic(u"SELECT DISTINCT FunctionName, LocationID, Lat, Lon, City, State"_s,
                                    m_standard.organizations,
                                    u" AND Organization.FunctionID = 2 AND Lat IS NOT NULL"_s)),
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

TEST_F(Statement, ChartCountsEachDocumentOncePerType)
{
    const auto chart = [this](const QString& condition) {
        SQLObject view = *m_standard.documents;
        view.WhereClause += condition;
        QStringList lines =
            rowsOf(m_database.session(),
                   graphic(u"SELECT DocumentTypeID, DocumentTypeName, count(Document.DocumentID) as Docs"_s,
                           std::make_shared<const SQLObject>(view),
                           u" AND DocumentTypeID > 0 GROUP BY DocumentTypeID, DocumentTypeName"_s))
                .split(u'\n');
        lines.sort();
        return lines.join(u' ');
    };
    EXPECT_EQ(chart({}), u"1|None|1 2|Report|2 3|étude|2"_s);
    EXPECT_EQ(chart(u" AND VenueID IN (2,3)"_s), u"2|Report|1 3|étude|1"_s);
    EXPECT_EQ(chart(u" AND DocumentTypeID IN (2) "_s), u"2|Report|2"_s);
    EXPECT_EQ(chart(u" AND Document.OrganizationID = 3"_s), u"1|None|1 2|Report|1"_s);
    EXPECT_EQ(
        chart(u" AND DocumentID IN (SELECT DISTINCT Document.DocumentID FROM Document, DocumentEvents WHERE "
              "Document.DocumentID = DocumentEvents.DocumentID AND EventID = 2)"_s),
        u"1|None|1 2|Report|2 3|étude|1"_s);
    EXPECT_EQ(chart(u" AND DocumentName LIKE 'no such'"_s), u""_s);
}

} // namespace

#include "data/StatementRows.h"
#include "support/TestDatabase.h"

#include <gtest/gtest.h>

#include <vector>

using namespace Qt::StringLiterals;

namespace {

struct Case
{
    QString statement;
    QString rows;
};

/// The statements over the tables themselves: lookups, records, links, pick lists, and those that change.
class TableStatement : public testing::Test
{
protected:
    TableStatement() { m_database.run(statementRows); }

    void expectRows(const std::vector<Case>& cases)
    {
        for (const Case& entry : cases) {
            EXPECT_EQ(rowsOf(m_database.session(), entry.statement), entry.rows)
                << entry.statement.toStdString();
        }
    }

    TestDatabase m_database;
};

TEST_F(TableStatement, LookupsAreReadWhole)
{
    expectRows({
        {u"SELECT * FROM FileTypes"_s, u"1|None\n2|PDF\n3|HTML"_s},
        {u"SELECT * FROM Venue"_s, u"2|Harbor\n3|Airport\n12|Stadium\n312|School"_s},
        {u"SELECT * FROM OrganizationTypes"_s, u"1|None\n2|Federal\n3|Local"_s},
        {u"SELECT * FROM JurisdictionTypes"_s, u"1|City\n2|County"_s},
        {u"SELECT * FROM PopulationTypes"_s, u"1|Urban\n2|Rural"_s},
        {u"SELECT * FROM OrganizationSubTypes WHERE OrganizationSubTypeID > 1 AND OrganizationTypeID = 3 "
         "ORDER BY OrganizationSubTypeID"_s,
         u"2|3|Sheriff\n3|3|City"_s},
        {u"SELECT * FROM DocumentType WHERE DocumentTypeName LIKE 'ÉTUDE'"_s, u"3|étude"_s},
        {u"SELECT * FROM DocumentType WHERE DocumentTypeName LIKE 'etude'"_s, u""_s},
    });
}

TEST_F(TableStatement, ControlsAreFilledInTheOrderOfTheirTexts)
{
    expectRows({
        {u"SELECT FunctionName as xDisplay, FunctionID as xKey FROM Function WHERE FunctionID > 1 ORDER BY FunctionName"_s,
         u"Élan|4\nfire|3\nPolice|2"_s},
        {u"SELECT FileTypeName as xDisplay, FileTypeID as xKey FROM FileTypes WHERE FileTypeID > 1 ORDER BY FileTypeName"_s,
         u"HTML|3\nPDF|2"_s},
        {u"SELECT OrganizationName as xDisplay, OrganizationID as xKey FROM Organization ORDER BY OrganizationName"_s,
         u"Austin Fire|2\nboston harbor patrol|4\nDallas Police|3\nDeleted Brigade|6\nÉcole du feu|7\nNo "
         "Status|8\n"
         "None|1\nWeather Agency|5"_s},
        {u"SELECT StateAbbreviation as xDisplay, StateID as xKey FROM States WHERE StateID > 1 ORDER BY StateAbbreviation"_s,
         u"MA|3\nTX|2"_s},
        {u"SELECT OrganizationTypeName as xDisplay, OrganizationTypeID as xKey FROM OrganizationTypes WHERE "
         "OrganizationTypeID > 1 ORDER BY OrganizationTypeName"_s,
         u"Federal|2\nLocal|3"_s},
    });
}

TEST_F(TableStatement, PickListsOfferActiveRecordsInOrder)
{
    expectRows({
        {u"SELECT OrganizationID as idField, OrganizationName as nameField FROM Organization WHERE "
         "OrganizationID > 1 AND Status <> 'DELETED' ORDER BY OrganizationName"_s,
         u"2|Austin Fire\n4|boston harbor patrol\n3|Dallas Police\n7|École du feu\n5|Weather Agency"_s},
        {u"SELECT FunctionID as idField, FunctionName as nameField FROM Function WHERE FunctionID > 1 ORDER BY FunctionName"_s,
         u"4|Élan\n3|fire\n2|Police"_s},
        {u"SELECT DocumentTypeID as idField, DocumentTypeName as nameField FROM DocumentType WHERE "
         "DocumentTypeID > 1 ORDER BY DocumentTypeName"_s,
         u"3|étude\n4|Map\n2|Report"_s},
        {u"SELECT DocumentID as idField, DocumentName as nameField FROM Document WHERE DocumentID > 1 AND "
         "dStatus <> 'DELETED' ORDER BY DocumentName"_s,
         u"4|Étude des incendies\n3|fire plan\n7|Report \"A\" on 50% of fires\n2|Zoo evacuation plan"_s},
        {u"SELECT DocumentCategoryID as idField, DocumentCategoryName as nameField FROM DocumentCategory "
         "WHERE DocumentCategoryID > 1 ORDER BY DocumentCategoryName"_s,
         u"3|Évacuation\n4|recovery\n2|Response"_s},
    });
}

TEST_F(TableStatement, OneRecordIsReadByItsIdentifier)
{
    for (const QString& table : {u"Document"_s, u"Event"_s, u"Organization"_s}) {
        const QString read = u"SELECT * FROM %1 WHERE %1ID = "_s.arg(table);
        EXPECT_EQ(firstColumnOf(m_database.session(), read + u"3"_s), u"3"_s);
        EXPECT_EQ(firstColumnOf(m_database.session(), read + u"32767"_s), u""_s);
    }
    const RecordTable event = m_database.session().readAll(u"SELECT * FROM Event WHERE EventID = 4"_s);
    EXPECT_EQ(event.text(0, u"eventname"), u"Storm to the second"_s);
    EXPECT_EQ(event.text(0, u"startTime"), u"10:30"_s);
    EXPECT_EQ(event.integer(0, u"KEYEVENT"), 0);
    EXPECT_EQ(errorNumberOf([&event] { (void)event.value(0, u"Nowhere"); }), 1);
}

TEST_F(TableStatement, ProfilesAndTheirSettings)
{
    expectRows({
        {u"SELECT ChartOption FROM OrganizationProfile WHERE OrganizationProfileID = 2"_s, u"1"_s},
        {u"SELECT ChartOption FROM OrganizationProfile WHERE OrganizationProfileID = 4"_s, u"1\n1"_s},
        {u"SELECT ChartOption FROM OrganizationProfile WHERE OrganizationProfileID = 5"_s, u""_s},
        {u"SELECT * FROM OrganizationProfile WHERE OrganizationProfileID = 3"_s,
         u"3|To guard|NULL|NULL|NULL|NULL|NULL|NULL|NULL|NULL|0"_s},
        {u"SELECT * FROM OrganizationProfileJurisdictions WHERE OrganizationProfileID = 2"_s,
         u"2|1|1\n2|2|0"_s},
        {u"SELECT * FROM OrganizationProfilePopulations WHERE OrganizationProfileID = 2"_s,
         u"2|1|0\n2|2|1"_s},
        {u"SELECT * FROM OrganizationVenues WHERE OrganizationID = 3"_s, u"3|3"_s},
    });
}

TEST_F(TableStatement, ANameIsLookedUpBetweenDoubleQuotes)
{
    const auto documents = [](const QString& name) {
        return u"SELECT * FROM Document WHERE DocumentName LIKE \"%1\" AND dStatus = 'ACTIVE'"_s.arg(name);
    };
    const auto found = [this](const QString& statement) {
        return firstColumnOf(m_database.session(), statement);
    };
    EXPECT_EQ(found(documents(u"FIRE PLAN"_s)), u"3"_s);
    EXPECT_EQ(found(documents(u"fire"_s)), u""_s);
    EXPECT_EQ(found(documents(u"Report %A% on 50% of fires"_s)), u"7"_s);
    EXPECT_EQ(found(documents(u"Apple orchard fire plan"_s)), u""_s); // deleted
    EXPECT_EQ(found(documents(u"étude des incendies"_s)), u""_s);     // not active
    EXPECT_EQ(found(documents(u"DocumentName"_s)), u""_s);            // a text, not the column
    EXPECT_EQ(found(documents(u"zoo's plan"_s)), u""_s);
    EXPECT_EQ(found(u"SELECT * FROM Event WHERE EventName LIKE \"élan\" AND Status = 'ACTIVE'"_s), u"7"_s);
    EXPECT_EQ(
        found(u"SELECT * FROM Organization WHERE OrganizationName LIKE \"DALLAS%\" AND Status = 'ACTIVE'"_s),
        u"3"_s);
    EXPECT_EQ(errorNumberOf([&] { found(documents(u"say \"fire\" plan"_s)); }), 1);
}

TEST_F(TableStatement, LinkedRecordsOfAnEditor)
{
    expectRows({
        {u"SELECT DocumentType.DocumentTypeID, DocumentType.DocumentTypeName FROM DocumentType, "
         "DocumentTypes "
         "WHERE DocumentType.DocumentTypeID = DocumentTypes.DocumentTypeID AND DocumentID = 3"_s,
         u"1|None\n2|Report"_s},
        {u"SELECT DocumentCategory.DocumentCategoryID, DocumentCategory.DocumentCategoryName FROM "
         "DocumentCategory, DocumentCategories WHERE DocumentCategory.DocumentCategoryID = "
         "DocumentCategories.DocumentCategoryID AND DocumentID = 2"_s,
         u"2|Response\n3|Évacuation"_s},
        {u"SELECT * FROM DocumentVenues WHERE DocumentID = 4"_s, u"4|12"_s},
        {u"SELECT * FROM EventVenues WHERE EventID = 3"_s, u"3|3"_s},
        {u"SELECT * FROM EventFunctions WHERE EventID = 3"_s, u"3|4"_s},
        {u"SELECT * FROM DocumentEvents WHERE EventID = 3"_s, u"2|3"_s},
        {u"SELECT * FROM OrganizationEvents WHERE EventID = 3"_s, u"2|3"_s},
        {u"SELECT * FROM DocumentTypes WHERE DocumentID = 5"_s, u"5|2"_s},
        {u"SELECT * FROM DocumentCategories WHERE DocumentID = 3"_s, u"3|4"_s},
        {u"SELECT Organization.OrganizationName, Organization.OrganizationID FROM Organization, "
         "OrganizationEvents WHERE Organization.OrganizationID = OrganizationEvents.OrganizationID AND "
         "EventID = 3"_s,
         u"Austin Fire|2"_s},
        {u"SELECT Document.DocumentName, Document.DocumentID FROM Document, DocumentEvents WHERE "
         "Document.DocumentID = DocumentEvents.DocumentID AND EventID = 3"_s,
         u"Zoo evacuation plan|2"_s},
        {u"SELECT Function.FunctionName, Function.FunctionID FROM Function, EventFunctions WHERE "
         "Function.FunctionID = EventFunctions.FunctionID AND EventID = 3"_s,
         u"Élan|4"_s},
    });
}

TEST_F(TableStatement, HistoryHasManyRowsForOneRecord)
{
    expectRows({{u"SELECT DocumentName, UpdateTime FROM Document_HIST WHERE DocumentID = 2"_s,
                 u"Zoo plan|05/06/2003 07:08:09\nZoo evacuation|01/01/2004 00:00:00"_s}});
    for (const QString& kind : {u"Document"_s, u"Event"_s, u"Organization"_s}) {
        EXPECT_EQ(firstColumnOf(m_database.session(), u"SELECT * FROM %1_HIST WHERE %1ID = 9"_s.arg(kind)),
                  u""_s);
    }
}

TEST_F(TableStatement, ASoftDeleteHidesOneRecordAndKeepsItsLinks)
{
    DatabaseSession& session = m_database.session();
    EXPECT_EQ(session.execute(u"UPDATE Document SET dStatus = 'DELETED' WHERE DocumentID = 2"_s), 1);
    EXPECT_EQ(session.execute(u"UPDATE Event SET Status = 'DELETED' WHERE EventID = 3"_s), 1);
    EXPECT_EQ(session.execute(u"UPDATE Organization SET Status = 'DELETED' WHERE OrganizationID = 32767"_s),
              0);
    EXPECT_EQ(m_database.ask("SELECT group_concat(DocumentID) FROM Document WHERE dStatus = 'DELETED'"),
              u"2"_s);
    EXPECT_EQ(m_database.ask("SELECT EventID FROM Event WHERE Status = 'DELETED' ORDER BY EventID"),
              u"3\n5"_s);
    EXPECT_EQ(
        m_database.ask("SELECT group_concat(OrganizationID) FROM Organization WHERE Status = 'DELETED'"),
        u"6"_s);
    EXPECT_EQ(m_database.ask("SELECT count(*) FROM DocumentTypes WHERE DocumentID = 2"), u"3"_s);
}

TEST_F(TableStatement, LinksOfOneRecordAreDeleted)
{
    const std::vector<std::pair<QString, QString>> links{
        {u"DocumentTypes"_s, u"DocumentID"_s},
        {u"DocumentCategories"_s, u"DocumentID"_s},
        {u"DocumentVenues"_s, u"DocumentID"_s},
        {u"EventVenues"_s, u"EventID"_s},
        {u"EventFunctions"_s, u"EventID"_s},
        {u"DocumentEvents"_s, u"EventID"_s},
        {u"OrganizationEvents"_s, u"EventID"_s},
        {u"OrganizationVenues"_s, u"OrganizationID"_s},
        {u"OrganizationProfileJurisdictions"_s, u"OrganizationProfileID"_s},
        {u"OrganizationProfilePopulations"_s, u"OrganizationProfileID"_s},
    };
    for (const auto& [table, key] : links) {
        const auto count = [&, this](const QString& condition) {
            const QString statement = u"SELECT count(*) FROM %1 WHERE %2 %3"_s.arg(table, key, condition);
            return m_database.ask(statement.toUtf8().constData()).toInt();
        };
        const int own = count(u"= 2"_s);
        const int others = count(u"<> 2"_s);
        ASSERT_GT(own, 0) << table.toStdString();
        EXPECT_EQ(m_database.session().execute(u"DELETE FROM %1 WHERE %2 = 2"_s.arg(table, key)), own);
        EXPECT_EQ(count(u"= 2"_s), 0) << table.toStdString();
        EXPECT_EQ(count(u"<> 2"_s), others) << table.toStdString();
    }
}

TEST_F(TableStatement, NamesAreFoundInAnyLetterCase)
{
    expectRows({
        {u"select FILETYPENAME from filetypes where filetypeid = 2 order by FileTypeName desc"_s, u"PDF"_s},
        {u"SELECT eventid FROM q_event WHERE event.STATUS <> 'deleted' AND eventfunctions.functionID = 4"_s,
         u"3"_s},
    });
}

TEST_F(TableStatement, AfterTheLastRowThereIsNone)
{
    RecordSet rows = m_database.session().read(u"SELECT * FROM JurisdictionTypes"_s);
    EXPECT_TRUE(rows.next());
    EXPECT_TRUE(rows.next());
    EXPECT_FALSE(rows.next());
    EXPECT_FALSE(rows.next());
}

TEST_F(TableStatement, WhatCannotBeReadIsAnErrorThatNamesIt)
{
    const auto description = [this](const QString& statement) {
        try {
            rowsOf(m_database.session(), statement);
        } catch (const Error& error) {
            return error.description();
        }
        return QString();
    };
    EXPECT_TRUE(description(u"SELECT * FROM Nowhere"_s).contains(u"Nowhere"));
    EXPECT_TRUE(description(u"SELECT Colour FROM Document"_s).contains(u"Colour"));
    EXPECT_TRUE(description(u"SELECT FunctionID FROM Q_Document"_s).contains(u"FunctionID"));
    EXPECT_TRUE(description(u"SELECT DocumentID FROM Document, DocumentEvents"_s).contains(u"DocumentID"));
    EXPECT_TRUE(description(u"SELECT * FROM Document WHERE DocumentID = "_s).contains(u"incomplete"));
}

} // namespace

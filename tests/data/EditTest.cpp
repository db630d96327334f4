// SPDX-License-Identifier: GPL-3.0-or-later

#include "support/TestDatabase.h"

namespace {

constexpr int noSuchName = 1;
constexpr int noRow = 12;
constexpr int tooBig = 18;
constexpr int constraintBroken = 19;
constexpr int noDate = 20;

/// Records that are added and changed one by one, as the editors do.
class Edit : public testing::Test
{
protected:
    using Values = std::initializer_list<std::pair<QString, Value>>;

    EditableRecordSet edit(const QString& statement) { return m_database.session().edit(statement); }

    static void add(EditableRecordSet& records, const Values& values)
    {
        records.addNew();
        for (const auto& [column, value] : values)
            records.set(column, value);
        records.update();
    }

    TestDatabase m_database;
    const RecordWriting m_writing{m_database.session()};
};

TEST_F(Edit, ANewRowKnowsItsNumberBeforeItIsWritten)
{
    m_database.runFile("data/rows/Statements.sql");
    EditableRecordSet records = edit(u"SELECT * FROM Document WHERE DocumentID = 0"_s);
    EXPECT_TRUE(records.atEnd());
    records.addNew();
    ASSERT_EQ(records.value(u"DocumentID"), Value(qint64{8}));
    records.set(u"DocumentName"_s, u"Étude"_s);
    records.set(u"keydocument"_s, qint64{1});
    records.set(u"FileLocation"_s, u"8.pdf"_s);
    EXPECT_EQ(records.value(u"FileLocation"), Value(u"8.pdf"_s));
    EXPECT_EQ(m_database.ask("SELECT max(DocumentID) FROM Document"), u"7"_s);
    records.update();

    EXPECT_EQ(records.value(u"DocumentID"), Value(qint64{8}));
    EXPECT_EQ(records.value(u"DOCUMENTNAME"), Value(u"Étude"_s));
    EXPECT_EQ(m_database.ask(
                  "SELECT DocumentID, DocumentName, KeyDocument, FileLocation, Author FROM Document WHERE "
                  "DocumentID > 7"),
              u"8|Étude|1|8.pdf|NULL"_s);

    records.addNew();
    EXPECT_EQ(records.value(u"DocumentID"), Value(qint64{9}));
    EXPECT_EQ(records.value(u"DocumentName"), Value());
}

TEST_F(Edit, LinksAndHistoryHaveNoNumberOfTheirOwn)
{
    m_database.runFile("data/rows/Statements.sql");
    EditableRecordSet history = edit(u"SELECT * FROM Event_HIST WHERE EventID = 2"_s);
    history.addNew();
    EXPECT_EQ(history.value(u"EventID"), Value());
    for (const QString& name : {u"first"_s, u"second"_s}) {
        add(history, {{u"EventID"_s, qint64{2}},
                      {u"EventName"_s, name},
                      {u"UpdateTime"_s, u"9/11/2001 8:46:05 AM"_s}});
    }
    EXPECT_EQ(m_database.ask("SELECT EventID, EventName, UpdateTime FROM Event_HIST"),
              u"2|first|2001-09-11 08:46:05\n2|second|2001-09-11 08:46:05"_s);

    EditableRecordSet links = edit(u"SELECT * FROM EventFunctions WHERE EventID = 2"_s);
    EXPECT_EQ(links.count(), 3u);
    add(links, {{u"EventID"_s, qint64{2}}, {u"functionId"_s, qint64{3}}});
    EXPECT_EQ(m_database.ask("SELECT count(*) FROM EventFunctions WHERE EventID = 2 AND FunctionID = 3"),
              u"3"_s);
}

TEST_F(Edit, ValuesAreHeldAsTheirColumnsAre)
{
    EditableRecordSet records = edit(u"SELECT * FROM Organization WHERE OrganizationID = 0"_s);
    add(records, {{u"OrganizationName"_s, u""_s},
                  {u"City"_s, Value()},
                  {u"Lat"_s, 30.25},
                  {u"Lon"_s, u"-97.5"_s},
                  {u"Zip"_s, u"01234"_s},
                  {u"Notes"_s, u"It's \"quoted\"; -- ?1 \U0001F525\r\n"_s}});
    EXPECT_EQ(
        m_database.ask(
            "SELECT typeof(OrganizationName), typeof(City), typeof(Lat), typeof(Lon), Zip, hex(Notes), "
            "typeof(FunctionID) FROM Organization"),
        u"text|null|real|real|01234|4974277320 2271756F746564223B202D2D203F3120F09F94A50D0A|null"_s.remove(
            u' '));
    EXPECT_EQ(records.value(u"OrganizationName"), Value(u""_s));
    EXPECT_EQ(records.value(u"City"), Value());

    EditableRecordSet profile = edit(u"SELECT * FROM OrganizationProfile WHERE OrganizationProfileID = 1"_s);
    add(profile, {{u"OrganizationProfileID"_s, qint64{1}},
                  {u"SwornEmployees"_s, u"1200"_s},
                  {u"Volunteers"_s, u"about 30"_s},
                  {u"AnnualBudget"_s, u"1234567890123456.78"_s}});
    EXPECT_EQ(
        m_database.ask("SELECT typeof(SwornEmployees), Volunteers, AnnualBudget FROM OrganizationProfile"),
        u"integer|about 30|1234567890123456.78"_s);
}

TEST_F(Edit, RowsComeInTheOrderInWhichTheyWereAdded)
{
    // an index of the two columns would turn them round
    m_database.run("INSERT INTO OrganizationProfile (OrganizationProfileID, MissionStatement, ChartOption) "
                   "VALUES (2, 'first', 1), (2, 'second', 0), (2, 'third', NULL)");
    EditableRecordSet profiles = edit(u"SELECT * FROM OrganizationProfile WHERE OrganizationProfileID = 2"_s);
    for (const QString& mission : {u"first"_s, u"second"_s, u"third"_s}) {
        EXPECT_EQ(profiles.current().text(0, u"missionstatement"), mission);
        profiles.moveNext();
    }
    EXPECT_EQ(profiles.current().count(), 0u);
}

TEST_F(Edit, DatesAreHeldSoThatTheySort)
{
    EditableRecordSet records = edit(u"SELECT * FROM Event WHERE EventID = 0"_s);
    records.addNew();
    records.set(u"startDate"_s, u"3/5/2002"_s);
    records.set(u"startTime"_s, u"13:05"_s);
    records.set(u"endDate"_s, u"12/31/9999"_s);
    records.set(u"endTime"_s, u"1:05:30 PM"_s);
    for (int pass = 0; pass < 2; ++pass) {
        EXPECT_EQ(records.value(u"StartDate"), Value(u"03/05/2002"_s));
        EXPECT_EQ(records.value(u"StartTime"), Value(u"13:05"_s));
        EXPECT_EQ(records.value(u"EndTime"), Value(u"13:05"_s));
        if (pass == 0) records.update();
    }
    EXPECT_EQ(m_database.ask("SELECT EventID, StartDate, StartTime, EndDate, EndTime FROM Event"),
              u"1|2002-03-05|13:05|9999-12-31|13:05:30"_s);

    records.set(u"StartDate"_s, u"2/29/2000"_s);
    records.update();
    EXPECT_EQ(records.value(u"StartDate"), Value(u"02/29/2000"_s));
    records.set(u"StartDate"_s, Value());
    records.update();
    EXPECT_EQ(m_database.ask("SELECT StartDate, EndDate FROM Event"), u"NULL|9999-12-31"_s);
}

TEST_F(Edit, ADateThatDoesNotExistIsRefusedBeforeAnythingIsWritten)
{
    m_database.runFile("data/rows/Statements.sql");
    const QByteArray before = m_database.bytes();
    EditableRecordSet records = edit(u"SELECT * FROM Event WHERE EventID = 2"_s);
    EditableRecordSet history = edit(u"SELECT * FROM Event_HIST WHERE EventID = 2"_s);
    history.addNew();
    const std::vector<std::pair<QString, Value>> refused{
        {u"StartDate"_s, u"2/29/1900"_s}, {u"StartDate"_s, u"2001-09-11"_s}, {u"StartDate"_s, u""_s},
        {u"StartDate"_s, u"13:05"_s},     {u"StartDate"_s, qint64{37145}},   {u"EndDate"_s, 37145.5},
        {u"StartTime"_s, u"24:00"_s},     {u"StartTime"_s, u"9/11/2001"_s},  {u"EndTime"_s, u"noon"_s},
    };
    for (const auto& [column, value] : refused) {
        EXPECT_EQ(errorNumberOf([&, &column = column, &value = value] { records.set(column, value); }),
                  noDate)
            << column.toStdString();
    }
    for (const QString& moment : {u"9/11/2001"_s, u"8:46"_s, u"9/31/2001 8:46"_s}) {
        EXPECT_EQ(errorNumberOf([&] { history.set(u"UpdateTime"_s, moment); }), noDate)
            << moment.toStdString();
    }
    records.update();
    EXPECT_TRUE(m_database.bytes() == before);
    EXPECT_EQ(records.value(u"StartDate"), Value(u"09/11/2001"_s));
}

TEST_F(Edit, OnlyWhatWasSetIsWritten)
{
    m_database.runFile("data/rows/Statements.sql");
    EditableRecordSet records =
        edit(u"SELECT * FROM Document WHERE DocumentID IN (2,3) ORDER BY DocumentID"_s);
    ASSERT_EQ(records.count(), 2u);
    m_database.run("UPDATE Document SET Author = 'meanwhile' WHERE DocumentID = 3");
    records.moveNext();
    EXPECT_EQ(records.value(u"DocumentName"), Value(u"fire plan"_s));
    records.set(u"DocumentName"_s, u"first"_s);
    records.set(u"DocumentName"_s, u"Fire Plan, second edition"_s);
    records.update();
    EXPECT_EQ(
        m_database.ask("SELECT DocumentID, DocumentName, Author FROM Document WHERE DocumentID IN (2, 3)"),
        u"2|Zoo evacuation plan|Zoo Board\n3|Fire Plan, second edition|meanwhile"_s);
    records.moveNext();
    EXPECT_TRUE(records.atEnd());
    EXPECT_EQ(errorNumberOf([&] { (void)records.value(u"DocumentName"); }), noRow);
    EXPECT_EQ(errorNumberOf([&] { records.update(); }), noRow);
}

TEST_F(Edit, WhatAnotherProgramDidMeanwhileIsAnError)
{
    m_database.runFile("data/rows/Statements.sql");
    EditableRecordSet gone = edit(u"SELECT * FROM Document WHERE DocumentID = 3"_s);
    EditableRecordSet taken = edit(u"SELECT * FROM Venue WHERE VenueID = 0"_s);
    taken.addNew();
    taken.set(u"VenueName"_s, u"Ours"_s);
    m_database.run("DELETE FROM Document WHERE DocumentID = 3; INSERT INTO Venue VALUES (313, 'Theirs')");
    const QByteArray before = m_database.bytes();
    gone.set(u"DocumentName"_s, u"too late"_s);
    EXPECT_EQ(errorNumberOf([&] { gone.update(); }), noRow);
    EXPECT_EQ(errorNumberOf([&] { taken.update(); }), constraintBroken);
    EXPECT_TRUE(m_database.bytes() == before);
    // with another number the new row can be tried again
    taken.set(u"VenueID"_s, qint64{314});
    taken.update();
    EXPECT_EQ(m_database.ask("SELECT * FROM Venue WHERE VenueID > 312"), u"313|Theirs\n314|Ours"_s);
}

TEST_F(Edit, ATextBeyondTheBoundIsAnErrorAndNotLostInSilence)
{
    EditableRecordSet records = edit(u"SELECT * FROM Venue WHERE VenueID = 0"_s);
    records.addNew();
    records.set(u"VenueName"_s, QString(qsizetype{65} * 1024 * 1024, u'x'));
    EXPECT_EQ(errorNumberOf([&] { records.update(); }), tooBig);
    EXPECT_EQ(m_database.ask("SELECT count(*) FROM Venue"), u"0"_s);
}

TEST_F(Edit, OnlyTheColumnsOfOneTableCanBeEdited)
{
    m_database.runFile("data/rows/Statements.sql");
    for (const QString& statement :
         {u"SELECT DocumentID FROM Document"_s, u"SELECT DISTINCT * FROM Document"_s,
          u"SELECT count(DocumentID) FROM Document"_s, u"SELECT * FROM Q_Document"_s,
          u"SELECT * FROM Document, Event"_s, u"SELECT * FROM Nowhere"_s, u"SELECT *, 1 FROM Document"_s,
          u"SELECT * FROM Document GROUP BY FileTypeID"_s}) {
        EXPECT_EQ(errorNumberOf([&] { edit(statement); }), noSuchName) << statement.toStdString();
    }
    EditableRecordSet records = edit(u"SELECT * FROM Document WHERE DocumentID = 2"_s);
    EXPECT_EQ(errorNumberOf([&] { records.set(u"Colour"_s, u"red"_s); }), noSuchName);
    EXPECT_EQ(errorNumberOf([&] { (void)records.value(u"Colour"); }), noSuchName);
    EXPECT_EQ(errorNumberOf([&] { (void)records.value(u"rowid"); }), noSuchName);
}

} // namespace

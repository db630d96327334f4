#include <SQLiteCpp/SQLiteCpp.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

class SampleTest : public testing::Test
{
protected:
    int number(const std::string& sql) { return m_database.execAndGet(sql).getInt(); }

    /// The first column of all rows, so that a failure names the culprits.
    std::vector<std::string> texts(const std::string& sql)
    {
        std::vector<std::string> result;
        SQLite::Statement statement(m_database, sql);
        while (statement.executeStep())
            result.push_back(statement.getColumn(0).getString());
        return result;
    }

    const std::vector<std::string> none;

private:
    SQLite::Database m_database{ORVIK_SAMPLE_DIR "/data/orvik-sample.sqlite", SQLite::OPEN_READONLY};
};

TEST_F(SampleTest, IsLargeAndVariedEnoughToBrowse)
{
    struct Case
    {
        const char* what;
        int atLeast;
        const char* sql;
    };
    const Case cases[]{
        {"organizations shown", 60,
         "SELECT count(*) FROM Organization WHERE OrganizationID > 1 AND Status <> 'DELETED'"},
        {"states with organizations", 30,
         "SELECT count(DISTINCT State) FROM Organization WHERE OrganizationID > 1 AND Status <> 'DELETED'"},
        {"functions of organizations", 17,
         "SELECT count(DISTINCT FunctionID) FROM Organization WHERE FunctionID > 1 AND Status <> 'DELETED'"},
        {"events shown", 150, "SELECT count(*) FROM Event WHERE EventID > 1 AND Status <> 'DELETED'"},
        {"documents shown", 120,
         "SELECT count(*) FROM Document WHERE DocumentID > 1 AND dStatus <> 'DELETED'"},
        {"key events", 20, "SELECT count(*) FROM Event WHERE KeyEvent = 1"},
        {"other events", 20, "SELECT count(*) FROM Event WHERE EventID > 1 AND KeyEvent = 0"},
        {"key documents", 10, "SELECT count(*) FROM Document WHERE KeyDocument = 1"},
        {"documents without release", 3,
         "SELECT count(*) FROM Document WHERE DocumentID > 1 AND ReleaseForm = 0"},
        {"file types from 10 on", 2,
         "SELECT count(DISTINCT FileTypeID) FROM Document WHERE FileTypeID >= 10"},
        {"charts", 5, "SELECT count(*) FROM OrganizationProfile WHERE ChartOption = 1"},
        {"organizations without a profile", 2,
         "SELECT count(*) FROM Organization WHERE OrganizationID NOT IN "
         "(SELECT OrganizationProfileID FROM OrganizationProfile)"},
        {"mission statements", 20, "SELECT count(MissionStatement) FROM OrganizationProfile"},
        {"deleted documents", 1, "SELECT count(*) FROM Document WHERE dStatus = 'DELETED'"},
        {"deleted events", 1, "SELECT count(*) FROM Event WHERE Status = 'DELETED'"},
        {"deleted organizations", 1, "SELECT count(*) FROM Organization WHERE Status = 'DELETED'"},
        {"submitted documents", 1, "SELECT count(*) FROM Document WHERE dStatus = 'SUBMITTED'"},
        {"submitted events", 1, "SELECT count(*) FROM Event WHERE Status = 'SUBMITTED'"},
        {"submitted organizations", 1, "SELECT count(*) FROM Organization WHERE Status = 'SUBMITTED'"},
        {"documents of unknown status", 1, "SELECT count(*) FROM Document WHERE dStatus IS NULL"},
        {"events of unknown status", 1, "SELECT count(*) FROM Event WHERE Status IS NULL"},
        {"organizations of unknown status", 1, "SELECT count(*) FROM Organization WHERE Status IS NULL"},
        {"document history", 3, "SELECT count(*) FROM Document_HIST"},
        {"event history", 3, "SELECT count(*) FROM Event_HIST"},
        {"organization history", 3, "SELECT count(*) FROM Organization_HIST"},
        {"states, territories and None", 57, "SELECT count(*) FROM States"},
        {"known cities", 1000, "SELECT count(*) FROM CityLocations"},
        {"events with documents", 100, "SELECT count(DISTINCT EventID) FROM DocumentEvents"},
        {"events with organizations", 200, "SELECT count(DISTINCT EventID) FROM OrganizationEvents"},
        {"organizations with documents", 30, "SELECT count(DISTINCT OrganizationID) FROM Document"},
    };
    for (const Case& one : cases)
        EXPECT_GE(number(one.sql), one.atLeast) << one.what;
}

TEST_F(SampleTest, EveryNameOfALookupIsInUse)
{
    const char* unused[]{
        "SELECT FileTypeName FROM FileTypes WHERE FileTypeID NOT IN "
        "(SELECT FileTypeID FROM Document WHERE DocumentID > 1)",
        "SELECT DocumentTypeName FROM DocumentType WHERE DocumentTypeID NOT IN "
        "(SELECT DocumentTypeID FROM DocumentTypes)",
        "SELECT DocumentCategoryName FROM DocumentCategory WHERE DocumentCategoryID > 1 AND "
        "DocumentCategoryID NOT IN (SELECT DocumentCategoryID FROM DocumentCategories)",
        "SELECT FunctionName FROM Function WHERE FunctionID > 1 AND "
        "FunctionID NOT IN (SELECT FunctionID FROM EventFunctions)",
        "SELECT FunctionName FROM Function WHERE FunctionID > 1 AND "
        "FunctionID NOT IN (SELECT FunctionID FROM Organization WHERE FunctionID IS NOT NULL)",
        "SELECT VenueName FROM Venue WHERE VenueID > 1 AND VenueID NOT IN (SELECT VenueID FROM EventVenues)",
        "SELECT VenueName FROM Venue WHERE VenueID > 1 AND VenueID NOT IN (SELECT VenueID FROM "
        "DocumentVenues)",
        "SELECT VenueName FROM Venue WHERE VenueID > 1 AND "
        "VenueID NOT IN (SELECT VenueID FROM OrganizationVenues)",
        "SELECT OrganizationTypeName FROM OrganizationTypes WHERE OrganizationTypeID NOT IN "
        "(SELECT OrganizationTypeID FROM Organization WHERE OrganizationTypeID IS NOT NULL)",
        "SELECT OrganizationSubTypeName FROM OrganizationSubTypes WHERE OrganizationSubTypeID NOT IN "
        "(SELECT OrganizationSubTypeID FROM Organization WHERE OrganizationSubTypeID IS NOT NULL)",
        "SELECT Name FROM JurisdictionTypes WHERE JurisdictionID > 1 AND JurisdictionID NOT IN "
        "(SELECT JurisdictionID FROM OrganizationProfileJurisdictions WHERE Setting = 1)",
        "SELECT Name FROM PopulationTypes WHERE PopulationID > 1 AND PopulationID NOT IN "
        "(SELECT PopulationID FROM OrganizationProfilePopulations WHERE Setting = 1)",
    };
    for (const char* sql : unused)
        EXPECT_EQ(texts(sql), none) << sql;
}

TEST_F(SampleTest, RowOneIsReservedInEveryTableThatReservesIt)
{
    const char* names[]{
        "SELECT DocumentName FROM Document WHERE DocumentID = 1 AND dStatus = 'ACTIVE'",
        "SELECT EventName FROM Event WHERE EventID = 1 AND Status = 'ACTIVE'",
        "SELECT OrganizationName FROM Organization WHERE OrganizationID = 1 AND Status = 'ACTIVE'",
        "SELECT DocumentTypeName FROM DocumentType WHERE DocumentTypeID = 1",
        "SELECT DocumentCategoryName FROM DocumentCategory WHERE DocumentCategoryID = 1",
        "SELECT FunctionName FROM Function WHERE FunctionID = 1",
        "SELECT VenueName FROM Venue WHERE VenueID = 1",
        "SELECT FileTypeName FROM FileTypes WHERE FileTypeID = 1",
        "SELECT OrganizationTypeName FROM OrganizationTypes WHERE OrganizationTypeID = 1",
        "SELECT OrganizationSubTypeName FROM OrganizationSubTypes WHERE OrganizationSubTypeID = 1",
        "SELECT Name FROM JurisdictionTypes WHERE JurisdictionID = 1",
        "SELECT Name FROM PopulationTypes WHERE PopulationID = 1",
        "SELECT StateAbbreviation FROM States WHERE StateID = 1",
    };
    for (const char* sql : names)
        EXPECT_EQ(texts(sql), std::vector<std::string>{"None"}) << sql;
}

TEST_F(SampleTest, EveryDateAndTimeIsInHeldForm)
{
    const char* wrong[]{
        "SELECT EventName FROM Event WHERE date(StartDate, '+0 days') IS NOT StartDate OR date(EndDate, '+0 "
        "days') IS NOT EndDate",
        "SELECT EventName FROM Event WHERE strftime('%H:%M', StartTime) IS NOT StartTime "
        "OR strftime('%H:%M', EndTime) IS NOT EndTime",
        "SELECT EventName FROM Event WHERE StartDate < '1900-01-01'",
        "SELECT EventName FROM Event WHERE EndDate || ifnull(EndTime, '24') < StartDate || ifnull(StartTime, "
        "'')",
        "SELECT EventName FROM Event_HIST WHERE datetime(UpdateTime, '+0 days') IS NOT UpdateTime",
        "SELECT DocumentName FROM Document_HIST WHERE datetime(UpdateTime, '+0 days') IS NOT UpdateTime",
        "SELECT OrganizationName FROM Organization_HIST WHERE datetime(UpdateTime, '+0 days') IS NOT "
        "UpdateTime",
    };
    for (const char* sql : wrong)
        EXPECT_EQ(texts(sql), none) << sql;
}

TEST_F(SampleTest, EventsAreOfEveryLength)
{
    struct Case
    {
        const char* what;
        int atLeast;
        const char* condition;
    };
    const std::string moments =
        "(julianday(EndDate || ' ' || EndTime) - julianday(StartDate || ' ' || StartTime))";
    const Case cases[]{
        {"instants", 30, "StartDate = EndDate AND StartTime = EndTime"},
        {"minutes", 5, "LENGTH > 0 AND LENGTH < 2.0 / 24"},
        {"hours", 3, "LENGTH >= 2.0 / 24 AND LENGTH < 1"},
        {"days", 30, "julianday(EndDate) - julianday(StartDate) BETWEEN 1 AND 14"},
        {"months", 15, "julianday(EndDate) - julianday(StartDate) > 60"},
        {"start at midnight", 2, "StartTime = '00:00'"},
        {"end at the last minute of a day", 1, "EndTime = '23:59'"},
        {"date without a time", 20, "StartDate IS NOT NULL AND StartTime IS NULL"},
        {"no end", 1, "StartDate IS NOT NULL AND EndDate IS NULL"},
        {"no date", 1, "EventID > 1 AND StartDate IS NULL AND Status IS NOT NULL"},
        {"before 1930", 20, "StartDate < '1930-01-01'"},
        {"since 2010", 60, "StartDate >= '2010-01-01'"},
        {"begin while another lasts", 50,
         "EXISTS (SELECT 1 FROM Event AS Other WHERE Other.EventID <> Event.EventID "
         "AND Other.StartDate <= Event.StartDate AND Other.EndDate > Event.StartDate)"},
    };
    for (const Case& one : cases) {
        std::string sql = std::string("SELECT count(*) FROM Event WHERE ") + one.condition;
        for (auto at = sql.find("LENGTH"); at != std::string::npos; at = sql.find("LENGTH"))
            sql.replace(at, 6, moments);
        EXPECT_GE(number(sql), one.atLeast) << one.what;
    }
}

TEST_F(SampleTest, EveryLinkLeadsToARecord)
{
    EXPECT_EQ(texts("SELECT \"table\" || ' row ' || rowid || ' to ' || parent FROM pragma_foreign_key_check"),
              none);
    EXPECT_EQ(texts("PRAGMA integrity_check"), std::vector<std::string>{"ok"});
    // A link to the reserved row would show as a blank line; one document may say that it has no type.
    EXPECT_EQ(number("SELECT count(*) FROM DocumentEvents WHERE EventID = 1 OR DocumentID = 1"), 0);
    EXPECT_EQ(number("SELECT count(*) FROM OrganizationEvents WHERE EventID = 1 OR OrganizationID = 1"), 0);
    EXPECT_EQ(number("SELECT count(*) FROM DocumentTypes WHERE DocumentTypeID = 1"), 1);
}

TEST_F(SampleTest, ActiveNamesAreUniqueWhateverTheirCase)
{
    const char* repeated[]{
        "SELECT DocumentName FROM Document WHERE dStatus = 'ACTIVE' GROUP BY lower(DocumentName) HAVING "
        "count(*) > 1",
        "SELECT EventName FROM Event WHERE Status = 'ACTIVE' GROUP BY lower(EventName) HAVING count(*) > 1",
        "SELECT OrganizationName FROM Organization WHERE Status = 'ACTIVE' "
        "GROUP BY lower(OrganizationName) HAVING count(*) > 1",
    };
    for (const char* sql : repeated)
        EXPECT_EQ(texts(sql), none) << sql;
}

TEST_F(SampleTest, ProfilesSayYesOrNoToEverySetting)
{
    EXPECT_EQ(
        number("SELECT count(*) FROM OrganizationProfileJurisdictions"),
        number(
            "SELECT (SELECT count(*) FROM OrganizationProfile) * (SELECT count(*) FROM JurisdictionTypes)"));
    EXPECT_EQ(
        number("SELECT count(*) FROM OrganizationProfilePopulations"),
        number("SELECT (SELECT count(*) FROM OrganizationProfile) * (SELECT count(*) FROM PopulationTypes)"));
    EXPECT_EQ(number("SELECT count(*) FROM OrganizationProfile WHERE OrganizationProfileID NOT IN "
                     "(SELECT OrganizationProfileID FROM OrganizationProfilePopulations WHERE Setting = 1)"),
              0);
}

TEST_F(SampleTest, OrganizationsArePlacedInEveryWay)
{
    EXPECT_GE(number("SELECT count(*) FROM Organization WHERE Lat IS NOT NULL AND Lon IS NOT NULL"), 10);
    EXPECT_GE(number("SELECT count(DISTINCT LocationID) FROM Q_Organization "
                     "JOIN Organization USING (OrganizationID) WHERE Organization.Lat IS NULL"),
              30);
    EXPECT_GE(number("SELECT count(*) FROM Organization WHERE Lat IS NOT NULL AND EXISTS "
                     "(SELECT 1 FROM CityLocations WHERE CityLocations.City = Organization.City "
                     "AND CityLocations.State = Organization.State)"),
              3)
        << "own position in a known city";
    EXPECT_EQ(texts("SELECT DISTINCT OrganizationName FROM Q_Organization "
                    "WHERE OrganizationID > 1 AND Lat IS NULL AND City IS NOT NULL"),
              none)
        << "a city that is not known, and no position of its own";
    EXPECT_GE(number("SELECT count(DISTINCT OrganizationID) FROM Q_Organization "
                     "WHERE OrganizationID > 1 AND Lat IS NULL AND Status = 'ACTIVE'"),
              2);
}

} // namespace

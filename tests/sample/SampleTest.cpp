// SPDX-License-Identifier: GPL-3.0-or-later

#include <SQLiteCpp/SQLiteCpp.h>
#include <gtest/gtest.h>

#include <string>
#include <tuple>
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

    const std::vector<std::string> none{};
    const std::vector<std::string> reserved{"None"};

private:
    SQLite::Database m_database{ORVIK_SAMPLE_DIR "/data/orvik-sample.sqlite", SQLite::OPEN_READONLY};
};

/// The three kinds of record, with the column that says whether they are shown.
constexpr std::pair<const char*, const char*> kinds[]{
    {"Document", "dStatus"}, {"Event", "Status"}, {"Organization", "Status"}};

TEST_F(SampleTest, HasRecordsOfEveryKindAndStatus)
{
    for (const auto& [kind, status] : kinds) {
        const std::string table(kind);
        const auto having = [&, status = std::string(status)](const std::string& condition) {
            return number("SELECT count(*) FROM " + table + " WHERE " + table + "ID > 1 AND " + status +
                          condition);
        };
        EXPECT_GE(having(" <> 'DELETED'"), table == "Organization" ? 60 : 120) << kind;
        for (const char* one : {" = 'DELETED'", " = 'SUBMITTED'", " IS NULL"})
            EXPECT_GE(having(one), 1) << kind << one;
        EXPECT_GE(number("SELECT count(*) FROM " + table + "_HIST"), 3) << kind;
        EXPECT_EQ(texts("SELECT lower(" + table + "Name) AS name FROM " + table + " WHERE " + status +
                        " = 'ACTIVE' GROUP BY name HAVING count(*) > 1"),
                  none)
            << "active names are unique whatever their case";
        EXPECT_EQ(texts("SELECT rowid FROM " + table +
                        "_HIST WHERE datetime(UpdateTime, '+0 days') IS NOT UpdateTime"),
                  none);
    }
}

TEST_F(SampleTest, IsLargeAndVariedEnoughToBrowse)
{
    const std::tuple<const char*, int, const char*> cases[]{
        {"states with organizations", 30,
         "DISTINCT State) FROM Organization WHERE OrganizationID > 1 AND Status <> 'DELETED'"},
        {"functions of organizations", 17,
         "DISTINCT FunctionID) FROM Organization WHERE FunctionID > 1 AND Status <> 'DELETED'"},
        {"key events", 20, "*) FROM Event WHERE KeyEvent = 1"},
        {"other events", 20, "*) FROM Event WHERE EventID > 1 AND KeyEvent = 0"},
        {"events shown", 150, "*) FROM Event WHERE EventID > 1 AND Status <> 'DELETED'"},
        {"key documents", 10, "*) FROM Document WHERE KeyDocument = 1"},
        {"documents without release", 3, "*) FROM Document WHERE DocumentID > 1 AND ReleaseForm = 0"},
        {"file types from 10 on", 2, "DISTINCT FileTypeID) FROM Document WHERE FileTypeID >= 10"},
        {"charts", 5, "*) FROM OrganizationProfile WHERE ChartOption = 1"},
        {"organizations without a profile", 2,
         "*) FROM Organization WHERE OrganizationID NOT IN "
         "(SELECT OrganizationProfileID FROM OrganizationProfile)"},
        {"mission statements", 20, "MissionStatement) FROM OrganizationProfile"},
        {"states, territories and None", 57, "*) FROM States"},
        {"known cities", 1000, "*) FROM CityLocations"},
        {"events with documents", 100, "DISTINCT EventID) FROM DocumentEvents"},
        {"events with organizations", 200, "DISTINCT EventID) FROM OrganizationEvents"},
        {"organizations with documents", 30, "DISTINCT OrganizationID) FROM Document"},
    };
    for (const auto& [what, atLeast, counted] : cases)
        EXPECT_GE(number(std::string("SELECT count(") + counted), atLeast) << what;
}

TEST_F(SampleTest, EveryNameOfALookupIsInUseAndRowOneIsReserved)
{
    // the table, its column of names, its key, and where the key is used
    const std::tuple<std::string, std::string, std::string, std::string> lookups[]{
        {"FileTypes", "FileTypeName", "FileTypeID", "Document WHERE DocumentID > 1"},
        {"DocumentType", "DocumentTypeName", "DocumentTypeID", "DocumentTypes"},
        {"DocumentCategory", "DocumentCategoryName", "DocumentCategoryID", "DocumentCategories"},
        {"Function", "FunctionName", "FunctionID", "EventFunctions"},
        {"Function", "FunctionName", "FunctionID", "Organization"},
        {"Venue", "VenueName", "VenueID", "EventVenues"},
        {"Venue", "VenueName", "VenueID", "DocumentVenues"},
        {"Venue", "VenueName", "VenueID", "OrganizationVenues"},
        {"OrganizationTypes", "OrganizationTypeName", "OrganizationTypeID", "Organization"},
        {"OrganizationSubTypes", "OrganizationSubTypeName", "OrganizationSubTypeID", "Organization"},
        {"JurisdictionTypes", "Name", "JurisdictionID", "OrganizationProfileJurisdictions WHERE Setting = 1"},
        {"PopulationTypes", "Name", "PopulationID", "OrganizationProfilePopulations WHERE Setting = 1"},
    };
    for (const auto& [table, name, key, use] : lookups) {
        EXPECT_EQ(texts("SELECT " + name + " FROM " + table + " WHERE " + key + " > 1 AND " + key +
                        " NOT IN (SELECT ifnull(" + key + ", 0) FROM " + use + ')'),
                  none)
            << table << " in " << use;
        EXPECT_EQ(texts("SELECT " + name + " FROM " + table + " WHERE " + key + " = 1"), reserved) << table;
    }
    EXPECT_EQ(texts("SELECT StateAbbreviation FROM States WHERE StateID = 1"), reserved);
    for (const auto& [kind, status] : kinds) {
        const std::string table(kind);
        EXPECT_EQ(texts("SELECT " + table + "Name FROM " + table + " WHERE " + table + "ID = 1 AND " +
                        status + " = 'ACTIVE'"),
                  reserved);
    }
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
    };
    for (const char* sql : wrong)
        EXPECT_EQ(texts(sql), none) << sql;
}

TEST_F(SampleTest, EventsAreOfEveryLength)
{
    const std::tuple<const char*, int, const char*> cases[]{
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
    for (const auto& [what, atLeast, condition] : cases) {
        const auto from = "SELECT count(*) FROM (SELECT *, julianday(EndDate || ' ' || EndTime) - "
                          "julianday(StartDate || ' ' || StartTime) AS length FROM Event) AS Event WHERE ";
        EXPECT_GE(number(std::string(from) + condition), atLeast) << what;
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

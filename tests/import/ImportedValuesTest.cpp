#include "CanonicalTable.h"
#include "ImportTool.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>

namespace {

/// Compares every value of every table, and reports the first difference of each.
void compareWithExpectedTables(const std::string& name, const std::vector<std::string>& singles)
{
    const TemporaryFolder folder;
    const ToolResult result = ImportTool::run({testData(name + ".mdb"), folder.path("it.sqlite")});
    ASSERT_EQ(result.status, 0) << result.error;
    SQLite::Database database(folder.path("it.sqlite"));
    for (const auto& entry : std::filesystem::directory_iterator(testData(name + "/expected"))) {
        const std::string table = entry.path().stem().string();
        SCOPED_TRACE(table);
        const ExpectedTable expected = readExpectedTable(entry.path().string());
        const std::vector<std::string> found = importedLines(database, table, expected.columns, singles);
        ASSERT_EQ(found.size(), expected.lines.size());
        const auto difference = std::mismatch(found.begin(), found.end(), expected.lines.begin());
        ASSERT_TRUE(difference.first == found.end())
            << *difference.first << " should be " << *difference.second;
    }
    EXPECT_EQ(result.summary("warning").size(), 0U);
    EXPECT_EQ(result.summary("unfit").size(), 0U);
    EXPECT_EQ(result.summary("repeated").size(), 0U);
}

} // namespace

TEST(ImportedValues, ofTheProgramsTablesAreTheExpectedOnes)
{
    compareWithExpectedTables("small", {});
}

TEST(ImportedValues, atTheBoundariesOfEveryTypeAreTheExpectedOnes)
{
    compareWithExpectedTables("edge", {"S"});
}

TEST(ImportedValues, ofSinglesAreTheNumbersThatTheirUsersSee)
{
    const TemporaryFolder folder;
    ASSERT_EQ(ImportTool::run({testData("edge.mdb"), folder.path("it.sqlite")}).status, 0);
    SQLite::Database database(folder.path("it.sqlite"));
    EXPECT_EQ(database.execAndGet("SELECT S FROM Types WHERE ID = 5").getDouble(), 0.1);
}

TEST(ImportedValues, atFullSizeHaveTheManifestsChecksums)
{
    const TemporaryFolder folder;
    const ToolResult result = ImportTool::run({testData("large.mdb"), folder.path("it.sqlite")});
    ASSERT_EQ(result.status, 0) << result.error;
    SQLite::Database database(folder.path("it.sqlite"));
    const std::vector<ManifestLine> manifest = readManifest(testData("large.manifest.tsv"));
    ASSERT_GT(manifest.size(), 28U);
    for (const ManifestLine& line : manifest) {
        SCOPED_TRACE(line.table);
        const std::vector<std::string> found = importedLines(database, line.table, line.columns);
        EXPECT_EQ(found.size(), line.rows);
        EXPECT_EQ(sha256Of(found), line.sha256);
    }
}

TEST(ImportedDatabase, isCompleteSoundAndInTheHeldForms)
{
    const TemporaryFolder folder;
    const ToolResult result = ImportTool::run({testData("small.mdb"), folder.path("it.sqlite")});
    ASSERT_EQ(result.status, 0) << result.error;
    SQLite::Database database(folder.path("it.sqlite"), SQLite::OPEN_READWRITE);
    const auto value = [&database](const std::string& query) {
        return database.execAndGet(query).getString();
    };
    EXPECT_EQ(value("PRAGMA integrity_check"), "ok");
    EXPECT_EQ(value("PRAGMA application_id"), "1330796100");
    EXPECT_EQ(value("PRAGMA journal_mode"), "delete");
    EXPECT_EQ(value("SELECT count(DISTINCT DocumentID) FROM Q_Document"), "150");
    EXPECT_EQ(value("SELECT count(DISTINCT EventID) FROM Q_Event"), "120");
    EXPECT_EQ(value("SELECT count(DISTINCT OrganizationID) FROM Q_Organization"), "40");
    EXPECT_EQ(value("SELECT count(*) FROM pragma_index_list('Event') WHERE name = 'EventByEnd'"), "1");
    EXPECT_EQ(value("SELECT StartDate || ' ' || StartTime || ' ' || EndTime FROM Event WHERE EventID = 4"),
              "2005-12-31 23:59 23:59:59");
    EXPECT_EQ(value("SELECT DocumentDate FROM Document WHERE DocumentID = 2"), "01/21/2001");
    EXPECT_EQ(value("SELECT count(*) FROM Document_HIST WHERE UpdateTime NOT LIKE '____-__-__ __:__:__'"),
              "0");
    database.exec("INSERT INTO Event (EventName) VALUES ('New')");
    EXPECT_EQ(value("SELECT max(EventID) FROM Event WHERE EventName <> 'New'"), "125");
    EXPECT_EQ(value("SELECT EventID FROM Event WHERE EventName = 'New'"), "126");
}

TEST(ImportProgress, countsEveryRowAndEndsAtTheWhole)
{
    const TemporaryFolder folder;
    const ToolResult result = ImportTool::run({testData("small.mdb"), folder.path("it.sqlite")});
    ASSERT_EQ(result.status, 0) << result.error;
    int percent = 0;
    std::uint64_t rows = 0;
    for (const std::vector<std::string>& line : result.lines) {
        if (line[0] != "progress") continue;
        ASSERT_EQ(line.size(), 5U);
        EXPECT_GE(std::stoi(line[1]), percent);
        EXPECT_GE(std::stoul(line[2]), rows);
        EXPECT_EQ(line[3], "2528");
        percent = std::stoi(line[1]);
        rows = std::stoul(line[2]);
    }
    EXPECT_EQ(percent, 100);
    EXPECT_EQ(rows, 2528U);
    EXPECT_EQ(result.lines.back(), (std::vector<std::string>{"done", folder.path("it.sqlite")}));
    EXPECT_EQ(result.summary("rows"), (std::vector<std::vector<std::string>>{{"2528"}}));
    EXPECT_EQ(result.summary("known"), (std::vector<std::vector<std::string>>{{"28"}}));
    // Of 150 documents 8 are deleted and 1 has no status.
    EXPECT_EQ(result.summary("hidden"),
              (std::vector<std::vector<std::string>>{
                  {"Document", "8", "1"}, {"Event", "7", "1"}, {"Organization", "3", "1"}}));
}

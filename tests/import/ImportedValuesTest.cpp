// SPDX-License-Identifier: GPL-3.0-or-later

#include "CanonicalTable.h"
#include "ImportTool.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>

namespace {

using Lines = std::vector<std::vector<std::string>>;

/// A file of the test data, imported.
class ImportedFile
{
public:
    explicit ImportedFile(const std::string& name)
        : result(ImportTool::run({testData(name), path()})), database(path(), SQLite::OPEN_READWRITE)
    {
        EXPECT_EQ(result.status, 0) << result.error;
    }

    std::string path() const { return m_folder.path("it.sqlite"); }
    std::string value(const std::string& query) { return database.execAndGet(query).getString(); }

private:
    TemporaryFolder m_folder;

public:
    ToolResult result;
    SQLite::Database database;
};

/// Compares every value of every table, and reports the first difference of each.
void compareWithExpectedTables(ImportedFile& file, const std::string& name,
                               const std::vector<std::string>& singles)
{
    for (const auto& entry : std::filesystem::directory_iterator(testData(name + "/expected"))) {
        const std::string table = entry.path().stem().string();
        SCOPED_TRACE(table);
        const ExpectedTable expected = readExpectedTable(entry.path().string());
        const std::vector<std::string> found = importedLines(file.database, table, expected.columns, singles);
        ASSERT_EQ(found.size(), expected.lines.size());
        const auto difference = std::mismatch(found.begin(), found.end(), expected.lines.begin());
        ASSERT_TRUE(difference.first == found.end())
            << *difference.first << " should be " << *difference.second;
    }
    for (const char* complaint : {"warning", "unfit", "repeated"})
        EXPECT_EQ(file.result.summary(complaint).size(), 0U) << complaint;
}

} // namespace

TEST(ImportedValues, atTheBoundariesOfEveryTypeAreTheExpectedOnes)
{
    ImportedFile file("edge.mdb");
    compareWithExpectedTables(file, "edge", {"S"});
    // singles are the numbers that their users see
    EXPECT_EQ(file.database.execAndGet("SELECT S FROM Types WHERE ID = 5").getDouble(), 0.1);
}

TEST(ImportedValues, atFullSizeHaveTheManifestsChecksums)
{
    ImportedFile file("large.mdb");
    const std::vector<ManifestLine> manifest = readManifest(testData("large.manifest.tsv"));
    ASSERT_GT(manifest.size(), 28U);
    for (const ManifestLine& line : manifest) {
        SCOPED_TRACE(line.table);
        const std::vector<std::string> found = importedLines(file.database, line.table, line.columns);
        EXPECT_EQ(found.size(), line.rows);
        EXPECT_EQ(sha256Of(found), line.sha256);
    }
}

TEST(ImportedValues, ofTheProgramsTablesAreTheExpectedOnesAndTheDatabaseIsSound)
{
    ImportedFile file("small.mdb");
    compareWithExpectedTables(file, "small", {});
    const std::pair<const char*, const char*> answers[] = {
        {"PRAGMA integrity_check", "ok"},
        {"PRAGMA application_id", "1330796100"},
        {"PRAGMA journal_mode", "delete"},
        {"SELECT count(DISTINCT DocumentID) FROM Q_Document", "150"},
        {"SELECT count(DISTINCT EventID) FROM Q_Event", "120"},
        {"SELECT count(DISTINCT OrganizationID) FROM Q_Organization", "40"},
        {"SELECT count(*) FROM pragma_index_list('Event') WHERE name = 'EventByEnd'", "1"},
        {"SELECT StartDate || ' ' || StartTime || ' ' || EndTime FROM Event WHERE EventID = 4",
         "2005-12-31 23:59 23:59:59"},
        {"SELECT DocumentDate FROM Document WHERE DocumentID = 2", "01/21/2001"},
        {"SELECT count(*) FROM Document_HIST WHERE UpdateTime NOT LIKE '____-__-__ __:__:__'", "0"},
        {"SELECT max(EventID) FROM Event", "125"},
    };
    for (const auto& [query, answer] : answers)
        EXPECT_EQ(file.value(query), answer) << query;
    file.database.exec("INSERT INTO Event (EventName) VALUES ('New')");
    EXPECT_EQ(file.value("SELECT EventID FROM Event WHERE EventName = 'New'"), "126");
}

TEST(ImportProgress, countsEveryRowAndEndsAtTheWhole)
{
    const ImportedFile file("small.mdb");
    const ToolResult& result = file.result;
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
    EXPECT_EQ(result.lines.back(), (std::vector<std::string>{"done", file.path()}));
    EXPECT_EQ(result.summary("rows"), (Lines{{"2528"}}));
    EXPECT_EQ(result.summary("known"), (Lines{{"28"}}));
    // Of 150 documents 8 are deleted and 1 has no status.
    EXPECT_EQ(result.summary("hidden"),
              (Lines{{"Document", "8", "1"}, {"Event", "7", "1"}, {"Organization", "3", "1"}}));
}

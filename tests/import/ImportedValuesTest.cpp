// SPDX-License-Identifier: GPL-3.0-or-later

#include "ImportTool.h"
#include "support/Testing.h"

#include <QCryptographicHash>

#include <charconv>
#include <cmath>
#include <filesystem>
#include <limits>
#include <sstream>

namespace {

using Lines = std::vector<std::vector<std::string>>;

std::string escaped(const std::string& text)
{
    std::string result;
    for (const char character : text) {
        const std::size_t at = std::string_view("\\\t\n\r").find(character);
        if (at == std::string_view::npos)
            result += character;
        else
            result += std::string("\\") + "\\tnr"[at];
    }
    return result;
}

/// The way the expected tables write numbers: plain from 0.001 below 10,000,000, with an exponent elsewhere,
/// always with a decimal, and the smallest numbers with two digits.
template <typename Number>
std::string numberText(Number value)
{
    if (value == 0) return std::signbit(value) ? "-0.0" : "0.0";
    std::array<char, 64> buffer{};
    const Number size = std::abs(value);
    const bool isPlain = size >= static_cast<Number>(1e-3) && size < static_cast<Number>(1e7);
    const auto format = isPlain ? std::chars_format::fixed : std::chars_format::scientific;
    const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value, format).ptr;
    std::string text(buffer.data(), end);
    if (isPlain) return text.find('.') == std::string::npos ? text + ".0" : text;
    const std::size_t mark = text.find('e');
    std::string digits = text.substr(0, mark);
    if (value == std::numeric_limits<Number>::denorm_min()) digits = sizeof(Number) == 4 ? "1.4" : "4.9";
    if (digits.find('.') == std::string::npos) digits += ".0";
    return digits + 'E' + std::to_string(std::stoi(text.substr(mark + 1)));
}

/// MM/DD/YYYY, with a time of day or without.
std::string fromMonthDayYear(const std::string& text)
{
    const std::string time = text.size() > 10 ? text.substr(11) : "00:00:00";
    return text.substr(6, 4) + '-' + text.substr(0, 2) + '-' + text.substr(3, 2) + ' ' + time;
}

std::string canonical(const SQLite::Column& value, const std::string& column, const std::string& type,
                      bool isSingle)
{
    if (value.isNull()) return "\\N";
    const std::string text = value.getString();
    if (column == "DocumentDate") return fromMonthDayYear(text);
    if (type == "DATE TEXT") return text + " 00:00:00";
    if (type == "TIME TEXT") return "1899-12-30 " + text + (text.size() == 5 ? ":00" : "");
    if (isSingle) return numberText(static_cast<float>(value.getDouble()));
    if (type == "REAL") return numberText(value.getDouble());
    return escaped(text);
}

/// The lines of an expected table, sorted, and its columns.
struct ExpectedTable
{
    std::vector<std::string> columns;
    std::vector<std::string> lines;
};

/// One line of a manifest.
struct ManifestLine
{
    std::string table;
    std::size_t rows = 0;
    std::vector<std::string> columns;
    std::string sha256;
};

/// Lines from an imported table in the form of the expected ones, columns divided by TABs, sorted bytewise.
/// Each column is turned back from the form that the database holds into the form of its Access type; singles
/// are given their own short form when `singles` names them.
std::vector<std::string> importedLines(SQLite::Database& database, const std::string& table,
                                       const std::vector<std::string>& columns,
                                       const std::vector<std::string>& singles = {})
{
    std::map<std::string, std::string> types;
    SQLite::Statement info(database, "SELECT name, type FROM pragma_table_info(?)");
    info.bind(1, table);
    while (info.executeStep())
        types[info.getColumn(0)] = info.getColumn(1).getString();

    std::string names;
    for (const std::string& column : columns)
        names += (names.empty() ? "\"" : ", \"") + column + '"';
    SQLite::Statement rows(database, "SELECT " + names + " FROM \"" + table + '"');
    std::vector<std::string> lines;
    while (rows.executeStep()) {
        std::string line;
        for (std::size_t at = 0; at < columns.size(); ++at) {
            const bool isSingle = std::find(singles.begin(), singles.end(), columns[at]) != singles.end();
            if (at > 0) line += '\t';
            line +=
                canonical(rows.getColumn(static_cast<int>(at)), columns[at], types[columns[at]], isSingle);
        }
        lines.push_back(std::move(line));
    }
    std::sort(lines.begin(), lines.end());
    return lines;
}

ExpectedTable readExpectedTable(const std::string& path)
{
    ExpectedTable table;
    std::istringstream text(readFile(path));
    std::string line;
    std::getline(text, line);
    table.columns = divided(line, '\t');
    while (std::getline(text, line))
        table.lines.push_back(line);
    std::sort(table.lines.begin(), table.lines.end());
    return table;
}

std::vector<ManifestLine> readManifest(const std::string& path)
{
    std::vector<ManifestLine> manifest;
    std::istringstream text(readFile(path));
    std::string line;
    std::getline(text, line);
    while (std::getline(text, line)) {
        const std::vector<std::string> fields = divided(line, '\t');
        manifest.push_back(
            {fields.at(0), std::stoul(fields.at(2)), divided(fields.at(3), ','), fields.at(5)});
    }
    return manifest;
}

/// SHA-256 over all lines, each followed by LF.
std::string sha256Of(const std::vector<std::string>& lines)
{
    QCryptographicHash sum(QCryptographicHash::Sha256);
    for (const std::string& line : lines)
        sum.addData(QByteArray::fromStdString(line + '\n'));
    return sum.result().toHex().toStdString();
}

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

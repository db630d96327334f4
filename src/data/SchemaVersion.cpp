// SPDX-License-Identifier: GPL-3.0-or-later

#include "data/SchemaVersion.h"

#include <algorithm>
#include <array>
#include <string>
#include <string_view>
#include <vector>

namespace {

constexpr std::array<std::string_view, 12> journalColumns{"Number", "Step",       "Moment",   "What",
                                                          "Kind",   "Identifier", "Title",    "Before",
                                                          "After",  "Reverses",   "UndoStep", "RedoStep"};

} // namespace

int SchemaVersion::numberOf(SQLite::Database& database)
{
    return database.execAndGet("PRAGMA user_version").getInt();
}

bool SchemaVersion::hasJournal(SQLite::Database& database)
{
    SQLite::Statement names(database, "SELECT c.name FROM sqlite_master AS m, pragma_table_info(m.name) AS c "
                                      "WHERE m.type = 'table' AND m.name = 'Journal'");
    std::vector<std::string> columns;
    while (names.executeStep())
        columns.push_back(names.getColumn(0).getString());
    return std::all_of(journalColumns.begin(), journalColumns.end(), [&columns](std::string_view column) {
        return std::find(columns.begin(), columns.end(), column) != columns.end();
    });
}

SchemaVersion::Age SchemaVersion::ageOf(SQLite::Database& database)
{
    const int number = numberOf(database);
    if (number > current) return Age::Newer;
    return number == current && hasJournal(database) ? Age::Current : Age::Older;
}

// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "SourceFile.h"
#include "TablePlan.h"
#include "TargetDatabase.h"

#include <SQLiteCpp/SQLiteCpp.h>

#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <string>

namespace accessimport {

/// The record of values that the form of their column cannot hold, such as the date in a time, or a date that
/// is no date. It is a table of the target that is made when the first such value turns up.
class UnfitValues
{
public:
    explicit UnfitValues(TargetDatabase& target) : m_target(target) {}

    void add(const std::string& table, std::int64_t row, const std::string& column, const std::string& value);
    const std::string& tableName() const { return m_tableName; }

private:
    TargetDatabase& m_target;
    std::string m_tableName;
    std::optional<SQLite::Statement> m_insert;
};

/// What became of a table's rows.
struct CopiedTable
{
    std::uint64_t rows = 0;
    std::uint64_t repeatedRows = 0; ///< of these, how many stand in `repeatedTable`
    std::string repeatedTable;
    std::map<std::string, std::uint64_t> unfitValues; ///< by column
};

/// Copies the rows of one table. A row whose key is missing, no number or taken already goes, complete, into
/// a table of the same columns beside it, named with _REPEATED.
class TableCopier
{
public:
    /// All must outlive the copier.
    TableCopier(SourceFile& file, const TablePlan& plan, TargetDatabase& target, UnfitValues& unfitValues);

    /// Calls `onRows` with the rows done so far every few hundred rows.
    CopiedTable run(const std::function<void(std::uint64_t)>& onRows);

private:
    bool isKeyMissing() const;
    void insertRow();
    void insertRepeated();
    void keepUnfitValues(const std::string& table);

    SourceFile& m_file;
    const TablePlan& m_plan;
    TargetDatabase& m_target;
    UnfitValues& m_unfitValues;
    std::vector<Cell> m_cells;
    std::vector<std::string> m_columns;
    SQLite::Statement m_insert;
    std::optional<SQLite::Statement> m_insertRepeated;
    CopiedTable m_copied;
};

} // namespace accessimport

// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "Cell.h"
#include "SchemaScript.h"

#include <SQLiteCpp/SQLiteCpp.h>

#include <cstdint>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace accessimport {

/// A column of one of the program's own tables.
struct TargetColumn
{
    std::string name;
    HeldForm form = HeldForm::Plain;
    bool isKey = false;
};

struct TargetTable
{
    std::string name;
    std::vector<TargetColumn> columns;
};

/// A reference that leads nowhere: how often in which column.
struct OrphanCount
{
    std::string table;
    std::string column;
    std::string parent;
    std::int64_t rows = 0;
};

/// The database that is being written, under its temporary name.
///
/// It is made for one transaction that is either committed whole or thrown away with the file, so it does not
/// wait for the disk; whoever publishes the file has to. Failures are SQLite::Exception.
class TargetDatabase
{
public:
    /// Makes the tables of the program and begins the transaction. `path` is an empty file.
    explicit TargetDatabase(const std::string& path);

    const std::vector<TargetTable>& ownTables() const { return m_ownTables; }

    /// A name for a table that is not yet used for anything: the wanted one, or one derived from it.
    std::string freeTableName(const std::string& wanted);

    void addColumn(const std::string& table, const std::string& column, const std::string& type);
    void createTable(const std::string& table,
                     const std::vector<std::pair<std::string, std::string>>& columns);
    /// Makes a table with the same columns, but without a key.
    void createTableLike(const std::string& table, const std::string& model);

    SQLite::Statement prepareInsert(const std::string& table, const std::vector<std::string>& columns);
    std::string lastError() const { return m_database.getErrorMsg(); }
    std::int64_t lastRow() const { return m_database.getLastInsertRowid(); }

    /// Adds indexes and stored queries and commits.
    void finish();

    /// Empty if the file is sound, otherwise the first fault.
    std::string findFault();
    std::int64_t rowsOf(const std::string& table);
    std::vector<OrphanCount> findOrphans();
    std::int64_t count(const std::string& query);

    static std::string quoted(const std::string& name);

private:
    void readOwnTables();

    SQLite::Database m_database;
    SchemaScript m_schema;
    std::vector<TargetTable> m_ownTables;
    std::set<std::string> m_usedNames; ///< folded
};

} // namespace accessimport

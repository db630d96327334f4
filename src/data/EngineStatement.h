// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "data/Value.h"

#include <SQLiteCpp/SQLiteCpp.h>
#include <sqlite3.h>

#include <memory>
#include <string_view>

/// An open file in SQLite.
struct EngineConnection final : SQLite::Database
{
    using SQLite::Database::Database;

    bool isDamaged = false; ///< whether a statement met a part of the file that SQLite cannot read
};

/// One prepared statement of SQLite. The library's own wrapper copies a counted pointer for each value
/// that is read and keeps the handle to itself; lists of tens of thousands of rows need neither.
///
/// Keeps its connection open as long as it lives. Every failure is an Error with SQLite's number.
class EngineStatement
{
public:
    EngineStatement(std::shared_ptr<EngineConnection> database, std::string_view sql);

    /// Moves to the next row; returns false if there is none. Runs a statement that changes something.
    bool step();
    void reset() { sqlite3_reset(m_handle.get()); }

    /// Binds the parameter at `index`, counted from 1.
    void bind(int index, const Value& value);

    /// What SQLite runs, with the values bound so far in it.
    [[nodiscard]] QString expandedSql() const;

    [[nodiscard]] bool isReadOnly() const { return sqlite3_stmt_readonly(m_handle.get()) != 0; }
    [[nodiscard]] int columnCount() const { return sqlite3_column_count(m_handle.get()); }
    [[nodiscard]] QString columnName(int column) const;

    /// The type that the table declares for a column; empty for a computed column.
    [[nodiscard]] QString declaredType(int column) const;

    [[nodiscard]] int type(int column) const { return sqlite3_column_type(m_handle.get(), column); }
    [[nodiscard]] qint64 integer(int column) const { return sqlite3_column_int64(m_handle.get(), column); }
    [[nodiscard]] double real(int column) const { return sqlite3_column_double(m_handle.get(), column); }

    /// UTF-8, valid until the next step.
    [[nodiscard]] std::string_view text(int column) const;

private:
    struct Finalizer
    {
        void operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }
    };
    [[noreturn]] void fail() const;

    std::shared_ptr<EngineConnection> m_database;
    std::unique_ptr<sqlite3_stmt, Finalizer> m_handle; ///< goes before the connection does
};

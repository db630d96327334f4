// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "data/Catalog.h"
#include "data/EngineRules.h"
#include "data/PreparedStatements.h"
#include "data/StatementLog.h"
#include "data/Value.h"
#include "util/Error.h"

#include <QString>

#include <memory>
#include <optional>
#include <string_view>
#include <vector>

/// A held value of a column of that form, in program form.
QString programText(ColumnForm form, std::string_view held);

/// The rows of a statement that reads, one after the other. Columns are found by name in any letter case;
/// dates and times come in program form.
///
/// Lives while its statement is open; the session must outlive it. Reading past an error throws Error.
class RecordSet
{
public:
    /// `log` is null if statements are not logged.
    RecordSet(PreparedStatements::Loan prepared, StatementWatch& watch, std::unique_ptr<StatementLog> log);

    /// Moves to the next row; returns false after the last, however often it is called.
    bool next();

    /// The position of a column. Throws Error if the rows have no such column.
    [[nodiscard]] int column(QStringView name) const;

    [[nodiscard]] bool isNull(int column) const { return engine().type(column) == SQLITE_NULL; }
    [[nodiscard]] qint64 integer(int column) const { return engine().integer(column); } ///< 0 if missing
    [[nodiscard]] double real(int column) const { return engine().real(column); }       ///< 0 if missing
    [[nodiscard]] QString text(int column) const;                                       ///< empty if missing
    [[nodiscard]] Value value(int column) const;

    /// The text as the file holds it, in UTF-8; valid until the next row is asked for.
    [[nodiscard]] std::string_view held(int column) const { return engine().text(column); }

    [[nodiscard]] const std::vector<QString>& columnNames() const { return m_prepared->names; }

private:
    [[nodiscard]] EngineStatement& engine() const { return m_prepared->statement; }

    PreparedStatements::Loan m_prepared;
    StatementWatch* m_watch;
    std::unique_ptr<StatementLog> m_log;
    bool m_ended = false;
    std::optional<Error> m_failure;
};

/// All rows of a statement, read at once: for the few rows that are walked more than once or counted first.
class RecordTable
{
public:
    RecordTable() = default;
    explicit RecordTable(RecordSet&& rows);
    RecordTable(std::vector<QString> names, std::vector<Value> row)
        : m_names(std::move(names)), m_rows{std::move(row)}
    {
    }

    [[nodiscard]] std::size_t count() const { return m_rows.size(); }

    /// Throws Error if the rows have no such column; `row` must be below `count()`.
    [[nodiscard]] const Value& value(std::size_t row, QStringView column) const;
    [[nodiscard]] qint64 integer(std::size_t row, QStringView column) const; ///< 0 if missing
    [[nodiscard]] QString text(std::size_t row, QStringView column) const;   ///< empty if missing

private:
    std::vector<QString> m_names;
    std::vector<std::vector<Value>> m_rows;
};

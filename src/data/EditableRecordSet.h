// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "data/EngineStatement.h"
#include "data/RecordSet.h"
#include "data/Value.h"

#include <QString>

#include <memory>
#include <optional>
#include <vector>

class DatabaseSession;

/// The rows of one table that a condition names, to be changed one by one, and new rows to be added.
///
/// Begins on the first row; rows come in the order in which they were added to the table. `set` collects
/// values for the current row, or for a new one after `addNew`, and `update` writes them. Dates and times are
/// in program form. The session must outlive it, and have the same file open.
class EditableRecordSet
{
public:
    /// `rows` are those of the table to be changed, the row's own number before all its columns.
    EditableRecordSet(DatabaseSession& session, const QString& table, RecordSet rows);
    ~EditableRecordSet();
    EditableRecordSet(EditableRecordSet&&) noexcept;
    EditableRecordSet& operator=(EditableRecordSet&&) = delete;

    [[nodiscard]] std::size_t count() const { return m_rows.size(); }
    [[nodiscard]] bool atEnd() const { return m_current >= m_rows.size(); }
    void moveNext() { ++m_current; }

    /// A column of the new row as set so far, or of the current row as last read or written. The key of a
    /// new row is known from `addNew` on. Throws Error if there is no such column or no row.
    [[nodiscard]] Value value(QStringView column) const;

    /// The current row alone, as last read or written; no row after the last.
    [[nodiscard]] RecordTable current() const;

    /// Begins a new row. If the table has an integer key, the row gets the number after the largest.
    void addNew();

    /// Throws Error if there is no such column, or if a date or time does not exist.
    void set(const QString& column, const Value& value);

    /// Writes the row. Throws Error if it has gone meanwhile or the file refuses it.
    void update();

private:
    struct Row
    {
        qint64 number = 0;
        std::vector<Value> values;
    };

    void requireOpen() const;
    [[nodiscard]] std::optional<qint64> nextNumber() const;
    [[nodiscard]] std::size_t position(QStringView column) const;
    void insertRow();
    void changeRow();
    void bindStaged(EngineStatement& statement) const;
    EngineStatement& statementFor(const QString& engineStatement);

    DatabaseSession* m_session;
    std::shared_ptr<SQLite::Database> m_database;
    CatalogTable m_table;
    std::vector<Row> m_rows;
    std::size_t m_current = 0;
    bool m_adding = false;
    std::vector<Value> m_newRow;
    std::vector<std::pair<std::size_t, Value>> m_staged; ///< positions of columns, and values in held form
    QString m_preparedText;
    std::unique_ptr<EngineStatement> m_prepared;
};

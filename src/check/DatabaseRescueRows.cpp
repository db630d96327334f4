// SPDX-License-Identifier: GPL-3.0-or-later

// The rows of a rescue: which table they fit into, and how they get there.

#include "check/DatabaseRescue.h"

#include <algorithm>

namespace {

void bind(SQLite::Statement& statement, int place, const DatabasePages::Cell& cell)
{
    if (const auto* whole = std::get_if<std::int64_t>(&cell))
        statement.bind(place, *whole);
    else if (const auto* real = std::get_if<double>(&cell))
        statement.bind(place, *real);
    else if (const auto* text = std::get_if<std::string>(&cell))
        statement.bind(place,
                       QString::fromUtf8(text->data(), static_cast<qsizetype>(text->size())).toStdString());
    else if (const auto* blob = std::get_if<DatabasePages::Blob>(&cell))
        statement.bind(place, blob->bytes.data(), static_cast<int>(blob->bytes.size()));
    else
        statement.bind(place);
}

std::string statusColumn(RecordKind kind)
{
    return kind == RecordKind::Document ? "dStatus" : "Status";
}

} // namespace

std::string DatabaseRescue::quotedName(const std::string& name)
{
    std::string text = "\"";
    for (const char letter : name)
        text += letter == '"' ? "\"\"" : std::string(1, letter);
    return text + '"';
}

/// Whether a row can be one of the table: a page may have got to where it does not belong.
bool DatabaseRescue::fits(const Source& table, const DatabasePages::Row& row)
{
    if (row.cells.empty() || row.cells.size() > table.columns.size()) return false;
    for (std::size_t i = 0; i < row.cells.size(); ++i) {
        const DatabasePages::Cell& cell = row.cells[i];
        const bool isNull = std::holds_alternative<std::monostate>(cell);
        if (table.alias == i && !isNull) return false;
        const bool isNumber =
            std::holds_alternative<std::int64_t>(cell) || std::holds_alternative<double>(cell);
        if (table.columns[i].affinity == 'T' && isNumber) return false;
    }
    return true;
}

bool DatabaseRescue::insert(Source& table, const DatabasePages::Row& row)
{
    auto& statement = table.inserts[row.cells.size()];
    if (!statement) {
        std::string columns = "rowid";
        std::string marks = "?";
        for (std::size_t i = 0; i < row.cells.size(); ++i) {
            if (table.alias == i) continue;
            columns += ", " + quotedName(table.columns[i].name);
            marks += ", ?";
        }
        statement = std::make_unique<SQLite::Statement>(
            *m_database, "INSERT OR IGNORE INTO " + quotedName(table.table.name.toStdString()) + " (" +
                             columns + ") VALUES (" + marks + ")");
    }
    statement->reset();
    statement->bind(1, static_cast<std::int64_t>(row.number));
    int place = 1;
    for (std::size_t i = 0; i < row.cells.size(); ++i)
        if (table.alias != i) bind(*statement, ++place, row.cells[i]);
    return statement->exec() == 1;
}

/// Adds what an entry of an index knows of a row that is lost, or that is known in part.
void DatabaseRescue::complete(Source& table, const Index& index, const DatabasePages::Row& entry)
{
    const bool isWhole = entry.cells.size() == index.columns.size() + 1;
    const auto* number = isWhole ? std::get_if<std::int64_t>(&entry.cells.back()) : nullptr;
    if (number == nullptr) return;
    if (!table.partly.contains(*number)) {
        DatabasePages::Row row;
        row.number = *number;
        row.cells.resize(table.columns.size());
        for (std::size_t i = 0; i < index.columns.size(); ++i)
            if (index.columns[i] && index.columns[i] != table.alias)
                row.cells[*index.columns[i]] = entry.cells[i];
        if (!fits(table, row) || !insert(table, row)) return; // it is there
        ++table.table.rows;
        if (!index.isWhole) table.partly.insert(*number);
        return;
    }
    for (std::size_t i = 0; i < index.columns.size(); ++i) {
        if (!index.columns[i] || index.columns[i] == table.alias) continue;
        const std::string column = quotedName(table.columns[*index.columns[i]].name);
        SQLite::Statement update(*m_database, "UPDATE " + quotedName(table.table.name.toStdString()) +
                                                  " SET " + column + " = ? WHERE rowid = ? AND " + column +
                                                  " IS NULL");
        bind(update, 1, entry.cells[i]);
        update.bind(2, *number);
        update.exec();
    }
}

/// A record whose status is lost is shown rather than hidden.
void DatabaseRescue::showRecordsKnownInPart()
{
    for (const RecordKind kind : recordKinds) {
        const QString record = recordNames(kind).record;
        for (const Source& source : m_tables) {
            if (source.table.name != record || source.partly.empty()) continue;
            const std::string status = statusColumn(kind);
            SQLite::Statement update(*m_database, "UPDATE " + record.toStdString() + " SET " + status +
                                                      " = 'ACTIVE' WHERE " + status +
                                                      " IS NULL AND rowid = ?");
            for (const std::int64_t number : source.partly) {
                update.bind(1, number);
                update.exec();
                update.reset();
            }
        }
    }
}

/// Counts the records as the lists show them: without the deleted and the reserved ones.
void DatabaseRescue::countRecords()
{
    for (const RecordKind kind : recordKinds) {
        const std::string table = recordNames(kind).record.toStdString();
        if (!m_database->tableExists(table)) continue;
        m_records[kind] = m_database
                              ->execAndGet("SELECT count(*) FROM " + table + " WHERE " + statusColumn(kind) +
                                           " <> 'DELETED' AND " + table + "ID > 1")
                              .getInt64();
    }
}

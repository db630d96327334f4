// SPDX-License-Identifier: GPL-3.0-or-later

#include "TableCopier.h"

#include "RowReader.h"

#include <sqlite3.h>

namespace accessimport {

namespace {

constexpr std::uint64_t rowsPerReport = 256;

std::vector<std::string> targetColumns(const TablePlan& plan)
{
    std::vector<std::string> names;
    for (const ColumnPlan& column : plan.columns)
        names.push_back(column.target);
    return names;
}

void bindCell(const Cell& cell, int parameter, SQLite::Statement& statement)
{
    switch (cell.kind) {
    case Cell::Kind::Null:
        return statement.bind(parameter);
    case Cell::Kind::Integer:
        return statement.bind(parameter, cell.integer);
    case Cell::Kind::Real:
        return statement.bind(parameter, cell.real);
    case Cell::Kind::Blob:
        return statement.bindNoCopy(parameter, cell.text.data(), static_cast<int>(cell.text.size()));
    default:
        return statement.bindNoCopy(parameter, cell.text);
    }
}

void bindCells(const std::vector<Cell>& cells, SQLite::Statement& statement)
{
    int parameter = 0;
    for (const Cell& cell : cells)
        bindCell(cell, ++parameter, statement);
}

bool isKeyFault(int code)
{
    return code == SQLITE_CONSTRAINT || code == SQLITE_MISMATCH;
}

} // namespace

void UnfitValues::add(const std::string& table, std::int64_t row, const std::string& column,
                      const std::string& value)
{
    const std::vector<std::string> columns = {"TableName", "RecordRow", "ColumnName", "Value"};
    if (!m_insert) {
        m_tableName = m_target.freeTableName("ImportedValues");
        m_target.createTable(
            m_tableName,
            {{"TableName", "TEXT"}, {"RecordRow", "INTEGER"}, {"ColumnName", "TEXT"}, {"Value", "TEXT"}});
        m_insert.emplace(m_target.prepareInsert(m_tableName, columns));
    }
    m_insert->bind(1, table);
    m_insert->bind(2, row);
    m_insert->bind(3, column);
    m_insert->bind(4, value);
    m_insert->exec();
    m_insert->reset();
}

TableCopier::TableCopier(SourceFile& file, const TablePlan& plan, TargetDatabase& target,
                         UnfitValues& unfitValues)
    : m_file(file),
      m_plan(plan),
      m_target(target),
      m_unfitValues(unfitValues),
      m_cells(plan.columns.size()),
      m_columns(targetColumns(plan)),
      m_insert(target.prepareInsert(plan.target, m_columns))
{
}

CopiedTable TableCopier::run(const std::function<void(std::uint64_t)>& onRows)
{
    RowReader rows(m_file, *m_plan.source);
    while (rows.next()) {
        for (std::size_t at = 0; at < m_cells.size(); ++at) {
            readCell(m_file, rows, *m_plan.columns[at].source, m_cells[at]);
            bringIntoForm(m_plan.columns[at].form, m_cells[at]);
        }
        insertRow();
        if (++m_copied.rows % rowsPerReport == 0) onRows(m_copied.rows);
    }
    onRows(m_copied.rows);
    return m_copied;
}

/// The database would invent a key if there is none, and refuses one that is taken or is no number.
bool TableCopier::isKeyMissing() const
{
    for (std::size_t at = 0; at < m_cells.size(); ++at)
        if (m_plan.columns[at].isKey) return m_cells[at].kind == Cell::Kind::Null;
    return false;
}

void TableCopier::insertRow()
{
    if (isKeyMissing()) return insertRepeated();
    bindCells(m_cells, m_insert);
    const int code = m_insert.tryExecuteStep();
    if (code == SQLITE_DONE) {
        keepUnfitValues(m_plan.target);
        m_insert.reset();
        return;
    }
    m_insert.tryReset();
    if (!isKeyFault(code)) throw SQLite::Exception(m_target.lastError(), code);
    insertRepeated();
}

void TableCopier::insertRepeated()
{
    if (!m_insertRepeated) {
        m_copied.repeatedTable = m_target.freeTableName(m_plan.target + "_REPEATED");
        m_target.createTableLike(m_copied.repeatedTable, m_plan.target);
        m_insertRepeated.emplace(m_target.prepareInsert(m_copied.repeatedTable, m_columns));
    }
    bindCells(m_cells, *m_insertRepeated);
    m_insertRepeated->exec();
    m_insertRepeated->reset();
    ++m_copied.repeatedRows;
    keepUnfitValues(m_copied.repeatedTable);
}

void TableCopier::keepUnfitValues(const std::string& table)
{
    const std::int64_t row = m_target.lastRow();
    for (std::size_t at = 0; at < m_cells.size(); ++at) {
        if (!m_cells[at].unfit) continue;
        m_unfitValues.add(table, row, m_columns[at], *m_cells[at].unfit);
        ++m_copied.unfitValues[m_columns[at]];
    }
}

} // namespace accessimport

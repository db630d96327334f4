// SPDX-License-Identifier: GPL-3.0-or-later

#include "data/EditableRecordSet.h"

#include "data/DataTexts.h"
#include "data/DatabaseSession.h"
#include "data/SqlTokenizer.h"
#include "util/DateTimeText.h"
#include "util/Error.h"

#include <QStringList>

#include <algorithm>

namespace {

constexpr int unknownColumnNumber = SQLITE_ERROR;
constexpr int noRowNumber = SQLITE_NOTFOUND;
constexpr int noDateNumber = SQLITE_MISMATCH;

[[noreturn]] void refuseDate(const QString& text)
{
    throw Error(noDateNumber, DataTexts::tr("%1 is not a date or time").arg(text));
}

/// A value as the file holds it.
Value held(const CatalogColumn& column, const Value& value)
{
    if (isNull(value) || column.form == ColumnForm::Plain || column.form == ColumnForm::Text) return value;
    const auto* text = std::get_if<QString>(&value);
    if (text == nullptr) {
        throw Error(noDateNumber, DataTexts::tr("%1 takes a date or time as text").arg(column.name));
    }
    if (column.form == ColumnForm::Date) {
        const auto date = DateTimeText::readDate(*text);
        if (!date) refuseDate(*text);
        return DateTimeText::heldDate(*date);
    }
    if (column.form == ColumnForm::Time) {
        const auto time = DateTimeText::readTime(*text);
        if (!time) refuseDate(*text);
        return DateTimeText::heldTime(*time);
    }
    const QString both = DateTimeText::heldFromLiteral(*text);
    if (both.size() < 19) refuseDate(*text);
    return both;
}

/// A value that the file holds, as a record set returns it.
Value inProgramForm(const CatalogColumn& column, const Value& heldValue)
{
    const auto* text = std::get_if<QString>(&heldValue);
    if (text == nullptr) return heldValue;
    return programText(column.form, text->toStdString());
}

} // namespace

EditableRecordSet::EditableRecordSet(DatabaseSession& session, const QString& table, RecordSet rows)
    : m_session(&session), m_database(session.database()), m_table(*session.m_catalog.findTable(table))
{
    while (rows.next()) {
        Row& row = m_rows.emplace_back();
        row.number = rows.integer(0);
        for (std::size_t i = 0; i < m_table.columns.size(); ++i) {
            row.values.push_back(rows.value(static_cast<int>(i) + 1));
        }
    }
}

EditableRecordSet::~EditableRecordSet() = default;
EditableRecordSet::EditableRecordSet(EditableRecordSet&&) noexcept = default;

std::size_t EditableRecordSet::position(QStringView column) const
{
    const CatalogColumn* found = m_table.findColumn(column);
    if (found == nullptr) {
        throw Error(unknownColumnNumber, DataTexts::tr("no such column: %1.%2").arg(m_table.name, column));
    }
    return static_cast<std::size_t>(found - m_table.columns.data());
}

Value EditableRecordSet::value(QStringView column) const
{
    const std::size_t index = position(column);
    if (m_adding) return m_newRow.at(index);
    if (atEnd()) throw Error(noRowNumber, DataTexts::tr("There is no current record."));
    return m_rows[m_current].values.at(index);
}

RecordTable EditableRecordSet::current() const
{
    if (atEnd()) return {};
    std::vector<QString> names;
    for (const CatalogColumn& column : m_table.columns)
        names.push_back(column.name);
    return {std::move(names), m_rows[m_current].values};
}

void EditableRecordSet::addNew()
{
    requireOpen();
    const std::optional<qint64> number = nextNumber();
    m_adding = true;
    m_staged.clear();
    m_newRow.assign(m_table.columns.size(), Value());
    if (number) set(m_table.keyColumn, *number);
}

void EditableRecordSet::requireOpen() const
{
    if (m_session->database() == m_database) return;
    throw Error(SQLITE_MISUSE, DataTexts::tr("The database of this record is not open any more."));
}

std::optional<qint64> EditableRecordSet::nextNumber() const
{
    if (m_table.keyColumn.isEmpty()) return std::nullopt;
    const QString next = QStringLiteral("SELECT ifnull(max(%1), 0) + 1 FROM %2")
                             .arg(quoteSqlName(m_table.keyColumn), quoteSqlName(m_table.name));
    RecordSet number = m_session->readOnce(next);
    number.next();
    return number.integer(0);
}

void EditableRecordSet::set(const QString& column, const Value& value)
{
    const std::size_t index = position(column);
    const Value heldValue = held(m_table.columns[index], value);
    const auto staged = std::find_if(m_staged.begin(), m_staged.end(),
                                     [index](const auto& entry) { return entry.first == index; });
    if (staged != m_staged.end()) {
        staged->second = heldValue;
    } else {
        m_staged.emplace_back(index, heldValue);
    }
    if (m_adding) m_newRow[index] = inProgramForm(m_table.columns[index], heldValue);
}

void EditableRecordSet::update()
{
    m_adding ? insertRow() : changeRow();
    m_staged.clear();
    m_adding = false;
}

EngineStatement& EditableRecordSet::statementFor(const QString& engineStatement)
{
    requireOpen();
    if (m_preparedText != engineStatement || !m_prepared) {
        m_prepared =
            std::make_unique<EngineStatement>(m_session->prepare(engineStatement, m_session->writeAccess()));
        m_preparedText = engineStatement;
    }
    m_prepared->reset();
    return *m_prepared;
}

void EditableRecordSet::bindStaged(EngineStatement& statement) const
{
    for (std::size_t i = 0; i < m_staged.size(); ++i) {
        statement.bind(static_cast<int>(i) + 1, m_staged[i].second);
    }
}

void EditableRecordSet::insertRow()
{
    QStringList columns;
    QStringList places;
    for (const auto& entry : m_staged) {
        columns << quoteSqlName(m_table.columns[entry.first].name);
        places << QStringLiteral("?");
    }
    const QString values =
        m_staged.empty() ? QStringLiteral("DEFAULT VALUES")
                         : QStringLiteral("(%1) VALUES (%2)").arg(columns.join(u','), places.join(u','));
    EngineStatement& statement =
        statementFor(QStringLiteral("INSERT INTO %1 %2").arg(quoteSqlName(m_table.name), values));
    bindStaged(statement);
    m_session->run(statement);
    m_rows.push_back({m_database->getLastInsertRowid(), m_newRow});
    m_current = m_rows.size() - 1;
}

void EditableRecordSet::changeRow()
{
    if (atEnd()) throw Error(noRowNumber, DataTexts::tr("There is no current record."));
    if (m_staged.empty()) return;
    QStringList assignments;
    for (const auto& entry : m_staged) {
        assignments << quoteSqlName(m_table.columns[entry.first].name) + QStringLiteral(" = ?");
    }
    EngineStatement& statement =
        statementFor(QStringLiteral("UPDATE %1 SET %2 WHERE rowid = ?")
                         .arg(quoteSqlName(m_table.name), assignments.join(QStringLiteral(", "))));
    bindStaged(statement);
    statement.bind(static_cast<int>(m_staged.size()) + 1, m_rows[m_current].number);
    m_session->run(statement);
    if (m_database->getChanges() == 0) {
        throw Error(noRowNumber, DataTexts::tr("The record is not in the database any more."));
    }
    for (const auto& [index, heldValue] : m_staged) {
        m_rows[m_current].values[index] = inProgramForm(m_table.columns[index], heldValue);
    }
}

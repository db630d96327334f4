// SPDX-License-Identifier: GPL-3.0-or-later

#include "data/HeldRows.h"

#include "data/DatabaseSession.h"

namespace {

Value valueAt(const EngineStatement& statement, int column)
{
    switch (statement.type(column)) {
    case SQLITE_NULL:
        return {};
    case SQLITE_INTEGER:
        return statement.integer(column);
    case SQLITE_FLOAT:
        return statement.real(column);
    default:
        return QString::fromUtf8(statement.text(column));
    }
}

std::vector<QString> namesOf(const EngineStatement& statement)
{
    std::vector<QString> names;
    names.reserve(static_cast<std::size_t>(statement.columnCount()));
    for (int column = 0; column < statement.columnCount(); ++column)
        names.push_back(statement.columnName(column));
    return names;
}

void bindAll(EngineStatement& statement, const std::vector<Value>& values)
{
    int place = 0;
    for (const Value& value : values)
        statement.bind(++place, value);
}

} // namespace

const Value& valueOf(const HeldRow& row, QStringView column)
{
    static const Value none;
    for (const auto& [name, value] : row)
        if (name.compare(column, Qt::CaseInsensitive) == 0) return value;
    return none;
}

qint64 wholeNumberOf(const HeldRow& row, QStringView column)
{
    const auto* number = std::get_if<qint64>(&valueOf(row, column));
    return number == nullptr ? 0 : *number;
}

QString textOf(const HeldRow& row, QStringView column)
{
    const auto* text = std::get_if<QString>(&valueOf(row, column));
    return text == nullptr ? QString() : *text;
}

std::vector<HeldRow> HeldRows::read(const QString& engineStatement, const std::vector<Value>& values) const
{
    const PreparedStatements::Loan prepared = m_session.prepareHeld(engineStatement, Access::Read);
    EngineStatement& statement = prepared->statement;
    bindAll(statement, values);
    std::vector<QString> names = prepared->names;
    std::vector<HeldRow> rows;
    while (statement.step()) {
        // another program may have added a column since the statement was prepared
        if (static_cast<int>(names.size()) != statement.columnCount()) names = namesOf(statement);
        HeldRow& row = rows.emplace_back();
        row.reserve(names.size());
        for (int column = 0; column < statement.columnCount(); ++column) {
            if (statement.type(column) == SQLITE_BLOB) continue;
            row.emplace_back(names[static_cast<std::size_t>(column)], valueAt(statement, column));
        }
    }
    return rows;
}

void HeldRows::readEach(const QString& engineStatement, const std::vector<Value>& values,
                        const std::function<void(const EngineStatement& row)>& take) const
{
    const PreparedStatements::Loan prepared = m_session.prepareHeld(engineStatement, Access::Read);
    bindAll(prepared->statement, values);
    while (prepared->statement.step())
        take(prepared->statement);
}

int HeldRows::write(const QString& engineStatement, const std::vector<Value>& values) const
{
    const PreparedStatements::Loan prepared = m_session.prepareHeld(engineStatement, m_session.writeAccess());
    bindAll(prepared->statement, values);
    m_session.run(prepared->statement);
    return m_session.database()->getChanges();
}

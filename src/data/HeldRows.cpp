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
    EngineStatement statement = m_session.prepare(engineStatement, Access::Read);
    bindAll(statement, values);
    std::vector<QString> names;
    for (int column = 0; column < statement.columnCount(); ++column)
        names.push_back(statement.columnName(column));
    std::vector<HeldRow> rows;
    while (statement.step()) {
        HeldRow& row = rows.emplace_back();
        for (std::size_t column = 0; column < names.size(); ++column)
            row.emplace_back(names[column], valueAt(statement, static_cast<int>(column)));
    }
    return rows;
}

int HeldRows::write(const QString& engineStatement, const std::vector<Value>& values) const
{
    if (!m_prepared || m_preparedText != engineStatement) {
        m_prepared.emplace(m_session.prepare(engineStatement, m_session.writeAccess()));
        m_preparedText = engineStatement;
    } else {
        m_prepared->reset();
    }
    bindAll(*m_prepared, values);
    m_session.run(*m_prepared);
    return m_session.database()->getChanges();
}

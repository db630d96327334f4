// SPDX-License-Identifier: GPL-3.0-or-later

#include "data/RecordSet.h"

#include "data/DataTexts.h"
#include "util/DateTimeText.h"
#include "util/Error.h"

namespace {

constexpr int unknownColumnNumber = 1;

int findColumn(const std::vector<QString>& names, QStringView name)
{
    for (std::size_t i = 0; i < names.size(); ++i) {
        if (names[i].compare(name, Qt::CaseInsensitive) == 0) return static_cast<int>(i);
    }
    throw Error(unknownColumnNumber, DataTexts::tr("no such column: %1").arg(name));
}

} // namespace

QString programText(ColumnForm form, std::string_view held)
{
    switch (form) {
    case ColumnForm::Date:
        return DateTimeText::programFromHeldDate(held);
    case ColumnForm::Time:
        return DateTimeText::programFromHeldTime(held);
    case ColumnForm::DateTime:
        return DateTimeText::programFromHeldDateTime(held);
    case ColumnForm::Plain:
    case ColumnForm::Text:
        break;
    }
    return QString::fromUtf8(held.data(), static_cast<qsizetype>(held.size()));
}

RecordSet::RecordSet(PreparedStatements::Loan prepared, StatementWatch& watch,
                     std::unique_ptr<StatementLog> log)
    : m_prepared(std::move(prepared)), m_watch(&watch), m_log(std::move(log))
{
}

bool RecordSet::next()
{
    // SQLite would begin a statement again that has ended or failed
    if (m_failure) throw Error(*m_failure);
    if (m_ended) return false;
    m_watch->beginStep();
    if (m_log) m_log->beginStep();
    try {
        m_ended = !engine().step();
    } catch (const Error& error) {
        m_failure = error;
        m_log.reset();
        throw;
    }
    if (m_log) m_log->endStep(!m_ended);
    if (m_ended) m_log.reset();
    return !m_ended;
}

int RecordSet::column(QStringView name) const
{
    return findColumn(m_prepared->names, name);
}

QString RecordSet::text(int column) const
{
    return programText(m_prepared->forms[static_cast<std::size_t>(column)], held(column));
}

Value RecordSet::value(int column) const
{
    switch (engine().type(column)) {
    case SQLITE_NULL:
        return {};
    case SQLITE_INTEGER:
        return integer(column);
    case SQLITE_FLOAT:
        return real(column);
    default:
        return text(column);
    }
}

RecordTable::RecordTable(RecordSet&& rows) : m_names(rows.columnNames())
{
    while (rows.next()) {
        std::vector<Value>& row = m_rows.emplace_back();
        for (std::size_t i = 0; i < m_names.size(); ++i)
            row.push_back(rows.value(static_cast<int>(i)));
    }
}

const Value& RecordTable::value(std::size_t row, QStringView column) const
{
    return m_rows.at(row).at(static_cast<std::size_t>(findColumn(m_names, column)));
}

qint64 RecordTable::integer(std::size_t row, QStringView column) const
{
    const Value& found = value(row, column);
    if (const auto* whole = std::get_if<qint64>(&found)) return *whole;
    if (const auto* real = std::get_if<double>(&found)) return static_cast<qint64>(*real);
    if (const auto* text = std::get_if<QString>(&found)) return text->toLongLong();
    return 0;
}

QString RecordTable::text(std::size_t row, QStringView column) const
{
    const Value& found = value(row, column);
    if (const auto* text = std::get_if<QString>(&found)) return *text;
    if (const auto* whole = std::get_if<qint64>(&found)) return QString::number(*whole);
    if (const auto* real = std::get_if<double>(&found)) return QString::number(*real, 'g', 17);
    return {};
}

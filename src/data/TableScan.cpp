// SPDX-License-Identifier: GPL-3.0-or-later

#include "data/TableScan.h"

#include <limits>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 portion = 4000; ///< rows that take some milliseconds

} // namespace

TableScan::TableScan(QString table, const QString& columns, const QString& condition)
    : m_table(std::move(table)),
      m_statement(
          u"SELECT rowid AS Number, %1 FROM %2 WHERE rowid > ? AND rowid <= ? AND (%3) ORDER BY rowid"_s.arg(
              columns, m_table, condition)),
      m_last(std::numeric_limits<qint64>::min())
{
}

std::vector<HeldRow> TableScan::next(DatabaseSession& session)
{
    const HeldRows rows(session);
    const auto end =
        rows.read(u"SELECT max(Number) AS Last, count(*) AS Rows FROM (SELECT rowid AS Number FROM %1 "
                  "WHERE rowid > ? ORDER BY rowid LIMIT ?)"_s.arg(m_table),
                  {m_last, portion});
    m_isDone = wholeNumberOf(end.front(), u"Rows") < portion;
    const Value last = valueOf(end.front(), u"Last");
    if (isNull(last)) return {};
    return rows.read(m_statement, {std::exchange(m_last, last), last});
}

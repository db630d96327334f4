// SPDX-License-Identifier: GPL-3.0-or-later

#include "history/DeletedRecords.h"

#include "data/DatabaseSession.h"
#include "data/HeldRows.h"
#include "journal/RecordParts.h"
#include "journal/Undeletion.h"

#include <QHash>

using namespace Qt::StringLiterals;

namespace {

/// The deleted records of a kind; a status counts in any letter case, as it does for the lists. The `+` has
/// SQLite look through the index of a list rather than through the rows, which are ten times as long.
QString clauses(RecordKind kind)
{
    const RecordParts& record = recordParts(kind);
    return u" FROM %1 WHERE %2 = 'DELETED' COLLATE ORVIK AND +%3 > 1"_s.arg(
        record.names.record, record.statusColumn, record.names.key);
}

template <typename Type>
Type valueIn(const HeldRow& row, std::size_t column)
{
    const auto* value = std::get_if<Type>(&row[column].second);
    return value == nullptr ? Type() : *value;
}

/// When each record of a kind was deleted last, as far as the journal knows.
QHash<qint64, QString> readMoments(DatabaseSession& session, RecordKind kind)
{
    QHash<qint64, QString> moments;
    if (!session.keepsJournal()) return moments;
    for (
        const HeldRow& row : HeldRows(session).read(
            u"SELECT Identifier, max(Moment) FROM Journal WHERE What = 'delete' AND Kind = ? GROUP BY Identifier"_s,
            {recordNames(kind).record})) {
        moments.insert(valueIn<qint64>(row, 0), valueIn<QString>(row, 1));
    }
    return moments;
}

} // namespace

std::size_t DeletedRecords::count(RecordKind kind) const
{
    const auto rows = HeldRows(m_session).read(u"SELECT count(*)"_s + clauses(kind));
    return static_cast<std::size_t>(valueIn<qint64>(rows.front(), 0));
}

std::vector<DeletedRecord> DeletedRecords::read(RecordKind kind) const
{
    const RecordNames names = recordNames(kind);
    const QHash<qint64, QString> moments = readMoments(m_session, kind);
    std::vector<DeletedRecord> records;
    for (const HeldRow& row :
         HeldRows(m_session).read(u"SELECT %1, %2"_s.arg(names.key, names.name) + clauses(kind))) {
        const auto identifier = valueIn<qint64>(row, 0);
        records.push_back({identifier, valueIn<QString>(row, 1), moments.value(identifier)});
    }
    return records;
}

std::vector<qint64> DeletedRecords::restore(RecordKind kind, const std::vector<qint64>& identifiers) const
{
    return Undeletion::restore(m_session, m_clock, kind, identifiers);
}

// SPDX-License-Identifier: GPL-3.0-or-later

#include "journal/JournaledListChange.h"

using namespace Qt::StringLiterals;

namespace {

/// Of a row that stays, the key and the columns that changed.
HeldRow keyAndChanges(const HeldRow& row, const HeldRow& other, const QString& key)
{
    HeldRow changes;
    for (const auto& each : row)
        if (each.first == key || each.second != valueOf(other, each.first)) changes.push_back(each);
    return changes;
}

} // namespace

JournaledListChange::JournaledListChange(DatabaseSession& session, const Clock& clock)
    : m_session(session), m_moment(clock.now()), m_transaction(session), m_writing(session)
{
}

JournaledListChange::~JournaledListChange()
{
    if (m_isOpen) m_transaction.rollBack();
}

void JournaledListChange::setTouched(const std::vector<TouchedRows>& touched)
{
    if (!m_session.keepsJournal()) return;
    for (const TouchedRows& each : touched) {
        const CatalogTable* table = m_session.catalog().findTable(each.table);
        m_watched.push_back({each, table == nullptr ? QString() : table->keyColumn, {}});
        Watched& watched = m_watched.back();
        watched.before = read(watched, each.condition);
    }
}

JournaledListChange::NumberedRows JournaledListChange::read(const Watched& watched,
                                                            const QString& condition) const
{
    QStringList columns = watched.touched.columns;
    if (columns.isEmpty()) {
        columns << u"*"_s;
    } else if (!watched.key.isEmpty()) {
        columns.prepend(watched.key);
    }
    NumberedRows numbered;
    for (HeldRow& row : HeldRows(m_session).read(u"SELECT rowid, %1 FROM %2 WHERE %3 ORDER BY rowid"_s.arg(
             columns.join(u", "_s), watched.touched.table, condition))) {
        const qint64 number = std::get<qint64>(row.front().second);
        row.erase(row.begin());
        numbered.emplace_hint(numbered.end(), number, std::move(row));
    }
    return numbered;
}

/// The rows that meet the condition now, and those that met it before.
JournaledListChange::NumberedRows JournaledListChange::readAgain(const Watched& watched) const
{
    NumberedRows rows = read(watched, watched.touched.condition);
    QStringList others;
    for (const auto& [number, row] : watched.before)
        if (!rows.contains(number)) others << QString::number(number);
    if (!others.isEmpty()) rows.merge(read(watched, u"rowid IN (%1)"_s.arg(others.join(u','))));
    return rows;
}

void JournaledListChange::addDifferences(const Watched& watched, JournalEntry& entry) const
{
    const NumberedRows after = readAgain(watched);
    const QString& table = watched.touched.table;
    const auto shortened = [&watched](const HeldRow& row, const HeldRow& other) {
        return watched.key.isEmpty() ? row : keyAndChanges(row, other, watched.key);
    };
    for (const auto& [number, row] : watched.before) {
        const auto now = after.find(number);
        if (now == after.end()) {
            entry.before.tables[table].push_back(row);
        } else if (now->second != row) {
            entry.before.tables[table].push_back(shortened(row, now->second));
            entry.after.tables[table].push_back(shortened(now->second, row));
        }
    }
    for (const auto& [number, row] : after)
        if (!watched.before.contains(number)) entry.after.tables[table].push_back(row);
}

void JournaledListChange::commit(const ListOperation& operation)
{
    JournalEntry entry{JournalAction::List, operation.table, operation.key, operation.title, {}, {}};
    for (const Watched& each : m_watched)
        addDifferences(each, entry);
    if (!entry.before.isEmpty() || !entry.after.isEmpty()) {
        entry.after.tables[Snapshots::operationRows.toString()] = {
            {{u"Name"_s, operation.name}, {u"Word"_s, operation.entryWord}}};
        JournalStep step;
        Journal::append(m_session, m_moment, entry, step);
    }
    m_isOpen = false;
    m_transaction.commit();
}

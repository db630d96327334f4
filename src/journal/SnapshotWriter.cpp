// SPDX-License-Identifier: GPL-3.0-or-later

#include "journal/SnapshotWriter.h"

#include "data/DatabaseSession.h"
#include "journal/JournalTexts.h"
#include "journal/RecordParts.h"
#include "util/Error.h"

#include <QStringList>

#include <sqlite3.h>

#include <algorithm>
#include <map>
#include <set>

using namespace Qt::StringLiterals;

namespace {

/// The names of tables go into statements.
[[noreturn]] void refuse()
{
    throw Error(SQLITE_CORRUPT, JournalTexts::tr("The journal holds a step that cannot be read."));
}

/// The columns of a row that the table has too.
HeldRow ownColumns(const DatabaseSession& session, const QString& table, const HeldRow& row)
{
    HeldRow own;
    const CatalogTable* found = session.catalog().findTable(table);
    if (found == nullptr) return own;
    for (const auto& each : row)
        if (found->findColumn(each.first) != nullptr) own.push_back(each);
    return own;
}

std::vector<HeldRow> ownColumns(const DatabaseSession& session, const QString& table,
                                const std::vector<HeldRow>& rows)
{
    std::vector<HeldRow> own;
    own.reserve(rows.size());
    for (const HeldRow& row : rows)
        own.push_back(ownColumns(session, table, row));
    return own;
}

bool areSame(const HeldRow& one, const HeldRow& other)
{
    return one.size() == other.size() && std::all_of(one.begin(), one.end(), [&other](const auto& each) {
               return Snapshots::areSame(each.second, valueOf(other, each.first));
           });
}

bool areSame(const std::vector<HeldRow>& one, const std::vector<HeldRow>& other)
{
    return std::equal(one.begin(), one.end(), other.begin(), other.end(),
                      [](const HeldRow& a, const HeldRow& b) { return areSame(a, b); });
}

/// The columns of `row` that are not the same in `other`.
HeldRow differing(const HeldRow& row, const HeldRow& other)
{
    HeldRow changed;
    for (const auto& each : row)
        if (!Snapshots::areSame(each.second, valueOf(other, each.first))) changed.push_back(each);
    return changed;
}

/// An imported table may have columns of any name.
QString quoted(const QString& column)
{
    return u'"' + QString(column).replace(u'"', u"\"\""_s) + u'"';
}

QString joined(const HeldRow& row, const QString& pattern, const QString& separator)
{
    QStringList parts;
    for (const auto& each : row)
        parts << pattern.arg(quoted(each.first));
    return parts.join(separator);
}

void append(std::vector<Value>& values, const HeldRow& row)
{
    for (const auto& each : row)
        values.push_back(each.second);
}

int insert(const HeldRows& rows, const QString& table, const HeldRow& row, const QString& unless = {},
           const std::vector<Value>& unlessValues = {})
{
    if (row.empty()) return 0;
    const QString marks = QStringList(static_cast<qsizetype>(row.size()), u"?"_s).join(u',');
    std::vector<Value> values;
    append(values, row);
    values.insert(values.end(), unlessValues.begin(), unlessValues.end());
    const QString source =
        unless.isEmpty() ? u"VALUES (%1)"_s.arg(marks) : u"SELECT %1 WHERE %2"_s.arg(marks, unless);
    return rows.write(u"INSERT INTO %1 (%2) %3"_s.arg(table, joined(row, u"%1"_s, u","_s), source), values);
}

int update(const HeldRows& rows, const QString& table, const HeldRow& changed, const QString& condition,
           const std::vector<Value>& conditionValues)
{
    std::vector<Value> values;
    append(values, changed);
    values.insert(values.end(), conditionValues.begin(), conditionValues.end());
    return rows.write(
        u"UPDATE %1 SET %2 WHERE %3"_s.arg(table, joined(changed, u"%1 = ?"_s, u", "_s), condition), values);
}

/// Exchanges rows of one table and notes what became of each.
class TableExchange
{
public:
    TableExchange(DatabaseSession& session, const QString& table, SnapshotWriter::Exchange& outcome)
        : m_session(session), m_rows(session), m_table(table), m_outcome(outcome)
    {
    }

    void byKey(const QString& key, const std::vector<HeldRow>& present, const std::vector<HeldRow>& target)
    {
        const auto keyed = [&key](const std::vector<HeldRow>& rows) {
            std::map<Value, const HeldRow*> byKey;
            for (const HeldRow& row : rows)
                byKey.emplace(valueOf(row, key), &row);
            return byKey;
        };
        const auto replacements = keyed(target);
        const auto replaced = keyed(present);
        for (const HeldRow& row : present) {
            const auto replacement = replacements.find(valueOf(row, key));
            replace(row, replacement == replacements.end() ? nullptr : replacement->second, matching(row),
                    valuesOf(row));
        }
        for (const HeldRow& row : target) {
            if (replaced.contains(valueOf(row, key))) continue;
            const QString isFree = u"NOT EXISTS (SELECT 1 FROM %1 WHERE %2 = ?)"_s.arg(m_table, key);
            note(nullptr, &row, insert(m_rows, m_table, own(row), isFree, {valueOf(row, key)}) == 1);
        }
    }

    void byContent(const QString& recordColumn, const std::vector<HeldRow>& present,
                   const std::vector<HeldRow>& target)
    {
        std::map<Value, std::vector<const HeldRow*>> replacements;
        for (const HeldRow& row : target)
            replacements[valueOf(row, recordColumn)].push_back(&row);
        std::map<Value, std::size_t> used;
        for (const HeldRow& row : present) {
            const auto& ofRecord = replacements[valueOf(row, recordColumn)];
            std::size_t& next = used[valueOf(row, recordColumn)];
            const HeldRow* replacement = next < ofRecord.size() ? ofRecord[next++] : nullptr;
            replace(row, replacement,
                    u"rowid = (SELECT rowid FROM %1 WHERE %2 LIMIT 1)"_s.arg(m_table, matching(row)),
                    valuesOf(row));
        }
        for (const auto& [record, ofRecord] : replacements)
            for (std::size_t i = used[record]; i < ofRecord.size(); ++i)
                note(nullptr, ofRecord[i], insert(m_rows, m_table, own(*ofRecord[i])) == 1);
    }

private:
    [[nodiscard]] HeldRow own(const HeldRow& row) const { return ownColumns(m_session, m_table, row); }

    [[nodiscard]] QString matching(const HeldRow& row) const
    {
        return joined(own(row), u"%1 IS ?"_s, u" AND "_s);
    }

    [[nodiscard]] std::vector<Value> valuesOf(const HeldRow& row) const
    {
        std::vector<Value> values;
        append(values, own(row));
        return values;
    }

    void replace(const HeldRow& row, const HeldRow* replacement, const QString& condition,
                 const std::vector<Value>& values)
    {
        const int count = replacement == nullptr
                              ? m_rows.write(u"DELETE FROM %1 WHERE %2"_s.arg(m_table, condition), values)
                              : update(m_rows, m_table, own(*replacement), condition, values);
        note(&row, replacement, count == 1);
    }

    void note(const HeldRow* removed, const HeldRow* written, bool isDone)
    {
        const auto add = [this](Snapshot& rows, const HeldRow* row) {
            if (row != nullptr) rows.tables[m_table].push_back(*row);
        };
        if (!isDone) return add(m_outcome.unmatched, removed == nullptr ? written : removed);
        add(m_outcome.removed, removed);
        add(m_outcome.written, written);
    }

    DatabaseSession& m_session;
    HeldRows m_rows;
    const QString& m_table;
    SnapshotWriter::Exchange& m_outcome;
};

/// The key of a table; empty for a table of links. Throws Error if the file has no such table.
QString keyColumnOf(const DatabaseSession& session, const QString& table)
{
    const CatalogTable* found = session.catalog().findTable(table);
    if (found == nullptr) refuse();
    return found->keyColumn;
}

QString recordColumnOf(const QString& table)
{
    for (const RecordKind kind : recordKinds)
        for (const PartTable& part : recordParts(kind).parts)
            if (part.table == table) return part.recordColumn;
    refuse();
}

void writeMainRow(DatabaseSession& session, const RecordNames& names, qint64 identifier,
                  const std::vector<HeldRow>& found, const std::vector<HeldRow>& target)
{
    const HeldRows rows(session);
    const QString isRecord = names.key + u" = ?"_s;
    if (target.empty()) {
        if (!found.empty())
            rows.write(u"DELETE FROM %1 WHERE %2"_s.arg(names.record, isRecord), {identifier});
        return;
    }
    const HeldRow row = ownColumns(session, names.record, target.front());
    if (found.empty()) {
        insert(rows, names.record, row);
        return;
    }
    const HeldRow changed = differing(row, found.front());
    if (!changed.empty()) update(rows, names.record, changed, isRecord, {identifier});
}

/// Writes rows of links anew, so that they are in the order of the snapshot.
void writeLinks(DatabaseSession& session, const PartTable& part, qint64 identifier,
                const std::vector<HeldRow>& wanted)
{
    const HeldRows rows(session);
    rows.write(u"DELETE FROM %1 WHERE %2 = ?"_s.arg(part.table, part.recordColumn), {identifier});
    for (const HeldRow& row : wanted)
        insert(rows, part.table, row);
}

/// Changes only what differs, since imported columns may hold what a snapshot does not.
void writeInPlace(DatabaseSession& session, const PartTable& part, qint64 identifier,
                  const std::vector<HeldRow>& wanted)
{
    const HeldRows rows(session);
    const auto found = rows.read(
        u"SELECT rowid AS Number, * FROM %1 WHERE %2 = ? ORDER BY rowid"_s.arg(part.table, part.recordColumn),
        {identifier});
    const QString isRow = u"rowid = ?"_s;
    for (std::size_t i = 0; i < std::max(found.size(), wanted.size()); ++i) {
        if (i >= found.size()) {
            insert(rows, part.table, wanted[i]);
            continue;
        }
        const Value& number = found[i].front().second;
        if (i >= wanted.size()) {
            rows.write(u"DELETE FROM %1 WHERE %2"_s.arg(part.table, isRow), {number});
            continue;
        }
        const HeldRow changed = differing(wanted[i], found[i]);
        if (!changed.empty()) update(rows, part.table, changed, isRow, {number});
    }
}

} // namespace

void SnapshotWriter::writeRecord(DatabaseSession& session, RecordKind kind, qint64 identifier,
                                 const Snapshot& found, const Snapshot& target)
{
    const RecordParts& record = recordParts(kind);
    writeMainRow(session, record.names, identifier, found.rows(record.names.record),
                 target.rows(record.names.record));
    for (const PartTable& part : record.parts) {
        const auto wanted = ownColumns(session, part.table, target.rows(part.table));
        if (areSame(ownColumns(session, part.table, found.rows(part.table)), wanted)) continue;
        if (part.linkedTo)
            writeLinks(session, part, identifier, wanted);
        else
            writeInPlace(session, part, identifier, wanted);
    }
}

void SnapshotWriter::addToHistory(DatabaseSession& session, RecordKind kind, qint64 identifier,
                                  const QDateTime& moment)
{
    const RecordNames names = recordNames(kind);
    const CatalogTable* record = session.catalog().findTable(names.record);
    const CatalogTable* history = session.catalog().findTable(QString(names.record + u"_HIST"_s));
    if (record == nullptr || history == nullptr) return;
    QStringList columns;
    for (const CatalogColumn& each : record->columns) {
        // a save copies all but these two
        const bool isCopied = each.name != u"ReleaseForm" && each.name != u"ParentID";
        if (isCopied && history->findColumn(each.name) != nullptr) columns << quoted(each.name);
    }
    const QString list = columns.join(u", "_s);
    HeldRows(session).write(u"INSERT INTO %1 (%2, UpdateTime) SELECT %2, ? FROM %3 WHERE %4 = ?"_s.arg(
                                history->name, list, names.record, names.key),
                            {moment.toString(u"yyyy-MM-dd HH:mm:ss"_s), identifier});
}

SnapshotWriter::Exchange SnapshotWriter::exchange(DatabaseSession& session, const Snapshot& present,
                                                  const Snapshot& target)
{
    Exchange outcome;
    std::map<QString, std::vector<HeldRow>> all = present.tables;
    all.insert(target.tables.begin(), target.tables.end());
    for (const auto& each : all) {
        const QString& table = each.first;
        if (!Snapshots::isTable(table)) continue;
        TableExchange rows(session, table, outcome);
        const QString key = keyColumnOf(session, table);
        if (key.isEmpty()) {
            rows.byContent(recordColumnOf(table), present.rows(table), target.rows(table));
        } else {
            rows.byKey(key, present.rows(table), target.rows(table));
        }
    }
    return outcome;
}

Snapshot SnapshotWriter::presentRows(DatabaseSession& session, const Snapshot& rows)
{
    Snapshot present;
    const HeldRows held(session);
    for (const auto& [table, wanted] : rows.tables) {
        const QString key = keyColumnOf(session, table);
        const QString column = key.isEmpty() ? recordColumnOf(table) : key;
        std::set<Value> seen;
        for (const HeldRow& row : wanted) {
            const Value& value = valueOf(row, column);
            if (!seen.insert(value).second) continue;
            const QString columns = joined(ownColumns(session, table, row), u"%1"_s, u", "_s);
            for (HeldRow& found :
                 held.read(u"SELECT %1 FROM %2 WHERE %3 IS ? ORDER BY rowid"_s.arg(columns, table, column),
                           {value}))
                present.tables[table].push_back(std::move(found));
        }
    }
    return present;
}

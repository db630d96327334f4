// SPDX-License-Identifier: GPL-3.0-or-later

#include "history/VersionRestore.h"

#include "data/DatabaseSession.h"
#include "data/ListEntry.h"
#include "journal/FormerFiles.h"
#include "journal/JournaledSave.h"
#include "journal/RecordParts.h"
#include "journal/SnapshotWriter.h"
#include "records/StoredState.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

Value* valueAt(HeldRow& row, QStringView column)
{
    const auto found = std::find_if(row.begin(), row.end(), [column](const auto& each) {
        return each.first.compare(column, Qt::CaseInsensitive) == 0;
    });
    return found == row.end() ? nullptr : &found->second;
}

std::optional<qint64> keyIn(const HeldRow& row, const QString& column)
{
    const auto* key = std::get_if<qint64>(&valueOf(row, column));
    return key == nullptr ? std::nullopt : std::optional(*key);
}

QString nameIn(const HeldRow& row, const NamedKey& key)
{
    const auto* name = std::get_if<QString>(&valueOf(row, key.nameColumn));
    return name == nullptr ? QString::number(keyIn(row, key.column).value_or(0)) : *name;
}

/// The caption of the field with a key or with links.
QString captionOf(const RecordFields& fields, const QString& table, const QString& column)
{
    for (const RecordField& each : fields.fields) {
        if (each.table == table && each.column.compare(column, Qt::CaseInsensitive) == 0) return each.caption;
    }
    return column;
}

} // namespace

Snapshot VersionRestore::target(const VersionContent& version, const Snapshot& present) const
{
    const RecordParts& record = recordParts(m_kind);
    Snapshot target = version.isWhole ? version.snapshot : present;
    std::vector<HeldRow>& rows = target.tables[record.names.record];
    if (rows.empty()) return present;
    HeldRow& row = rows.front();
    if (!version.isWhole) {
        const std::vector<HeldRow>& kept = version.snapshot.rows(record.names.record);
        if (kept.empty()) return present;
        for (const RecordField& field : m_fields.fields) {
            Value* own = field.isInHistory ? valueAt(row, field.column) : nullptr;
            if (own != nullptr) *own = valueOf(kept.front(), field.column);
        }
        for (const NamedKey& key : record.keys) {
            if (Value* name = valueAt(row, key.nameColumn)) *name = valueOf(kept.front(), key.nameColumn);
        }
    }
    Value* status = valueAt(row, record.statusColumn);
    const auto* text = status == nullptr ? nullptr : std::get_if<QString>(status);
    if (text != nullptr && text->compare(deletedStatus, Qt::CaseInsensitive) == 0) *status = activeStatus;
    return target;
}

bool VersionRestore::isThere(const QString& table, const QString& keyColumn, qint64 key) const
{
    return !HeldRows(m_session)
                .read(u"SELECT %1 FROM %2 WHERE %1 = ?"_s.arg(keyColumn, table), {key})
                .empty();
}

void VersionRestore::leaveOutKeys(Snapshot& target, QStringList& leftOut) const
{
    const RecordParts& record = recordParts(m_kind);
    HeldRow& row = target.tables[record.names.record].front();
    for (const NamedKey& key : record.keys) {
        const auto number = keyIn(row, key.column);
        if (!number || isThere(key.table, key.keyColumn, *number)) continue;
        leftOut << u"%1: %2"_s.arg(captionOf(m_fields, record.names.record, key.column), nameIn(row, key));
        *valueAt(row, key.column) = noneKey;
    }
}

/// A list that loses all its links keeps its placeholder.
void VersionRestore::leaveOutLinks(Snapshot& target, QStringList& leftOut) const
{
    for (const PartTable& part : recordParts(m_kind).parts) {
        const auto found = target.tables.find(part.table);
        if (!part.linkedTo || found == target.tables.end()) continue;
        const NamedKey& key = *part.linkedTo;
        std::vector<HeldRow> kept;
        for (HeldRow& row : found->second) {
            const auto number = keyIn(row, key.column);
            if (!number || isThere(key.table, key.keyColumn, *number)) {
                kept.push_back(std::move(row));
                continue;
            }
            const auto setting = keyIn(row, u"Setting"_s);
            if (setting.value_or(1) == 1)
                leftOut << u"%1: %2"_s.arg(captionOf(m_fields, part.table, key.column), nameIn(row, key));
        }
        const bool hasPlaceholder =
            std::any_of(m_fields.fields.begin(), m_fields.fields.end(), [&part](const RecordField& each) {
                return each.table == part.table && each.hasPlaceholder;
            });
        if (kept.empty() && hasPlaceholder)
            kept.push_back({{part.recordColumn, m_identifier}, {key.column, noneKey}});
        if (kept.empty())
            target.tables.erase(found);
        else
            found->second = std::move(kept);
    }
    leftOut.removeDuplicates();
}

bool VersionRestore::needsCharts(const VersionContent& version) const
{
    if (m_kind != RecordKind::Organization || !version.journalNumber) return false;
    const auto wanted = FormerFiles::ofVersion(m_session, m_identifier, *version.journalNumber);
    return FormerFiles(m_folder).isOtherwise(wanted, m_identifier);
}

void VersionRestore::bringBackCharts(const VersionContent& version, JournaledSave& save,
                                     QStringList& messages) const
{
    if (m_kind != RecordKind::Organization || !version.journalNumber) return;
    const auto wanted = FormerFiles::ofVersion(m_session, m_identifier, *version.journalNumber);
    if (wanted.empty()) return;
    for (const QString& name : save.files(m_folder).bringBack(wanted, m_identifier))
        messages << FormerFiles::goneMessage(name);
}

VersionRestore::Outcome VersionRestore::restore(const VersionContent& version, const Snapshot& known)
{
    Outcome outcome;
    JournaledSave save(m_session, m_clock, m_kind, m_identifier);
    try {
        const Snapshot found = Snapshots::ofRecord(m_session, m_kind, m_identifier);
        if (!Snapshots::areEqual(m_kind, found, known)) return outcome;
        save.setAction(JournalAction::Restore);
        Snapshot rows = target(version, known);
        leaveOutKeys(rows, outcome.leftOut);
        leaveOutLinks(rows, outcome.leftOut);
        bringBackCharts(version, save, outcome.messages);
        SnapshotWriter::writeRecord(m_session, m_kind, m_identifier, found, rows);
        SnapshotWriter::addToHistory(m_session, m_kind, m_identifier, m_clock.now());
    } catch (...) {
        save.rollBack();
        throw;
    }
    save.commit();
    outcome.isDone = true;
    return outcome;
}

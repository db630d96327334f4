// SPDX-License-Identifier: GPL-3.0-or-later

#include "records/RecordStore.h"

#include "records/DocumentRecord.h"
#include "records/EventRecord.h"
#include "records/OrganizationRecord.h"
#include "records/RecordIdentifier.h"
#include "records/RecordsTexts.h"

namespace {

template <typename Record>
void addEmpty(DatabaseSession& /*session*/, const ListLink<Record>& link, Record& record)
{
    RecordLinks::addPlaceholder(record.*link.entries);
}

template <typename Record>
void addEmpty(DatabaseSession& session, const CheckLink<Record>& link, Record& record)
{
    fillCheckList(session, link.source, record.*link.entries);
}

template <typename Record>
void readFrom(DatabaseSession& session, const ListLink<Record>& link, Record& record)
{
    record.*link.entries = RecordLinks::read(session, link.statement + QString::number(record.id),
                                             link.displayColumn, link.table.linkColumn);
    RecordLinks::addPlaceholder(record.*link.entries);
}

template <typename Record>
void readFrom(DatabaseSession& session, const CheckLink<Record>& link, Record& record)
{
    fillCheckList(session, link.source, record.*link.entries);
    RecordLinks::readChecks(session, link.table, record.id, link.hasSetting, record.*link.entries);
}

template <typename Record>
void requireIdentifiers(const ListLink<Record>& link, const Record& record)
{
    RecordLinks::requireIdentifiers(record.*link.entries);
}

template <typename Record>
void requireIdentifiers(const CheckLink<Record>& link, const Record& record)
{
    if (link.hasSetting) return RecordLinks::requireIdentifiers(record.*link.entries);
    RecordLinks::requireChecked(record.*link.entries);
}

template <typename Record>
void rewrite(DatabaseSession& session, const ListLink<Record>& link, const Record& record)
{
    RecordLinks::rewrite(session, link.table, record.id, record.*link.entries);
}

template <typename Record>
void rewrite(DatabaseSession& session, const CheckLink<Record>& link, const Record& record)
{
    const auto write = link.hasSetting ? &RecordLinks::rewriteSettings : &RecordLinks::rewriteChecked;
    write(session, link.table, record.id, record.*link.entries);
}

} // namespace

template <typename Record>
QString RecordStore<Record>::statement(const QString& table, qint64 id) const
{
    return QStringLiteral("SELECT * FROM %1 WHERE %2 = %3")
        .arg(table, recordNames(m_tables.kind).key, QString::number(id));
}

template <typename Record>
Record RecordStore<Record>::emptyRecord() const
{
    Record record;
    for (const RecordLink<Record>& link : m_tables.links)
        std::visit([&](const auto& each) { addEmpty(m_session, each, record); }, link);
    return record;
}

template <typename Record>
LoadedRecord<Record> RecordStore<Record>::load(qint64 id) const
{
    recordIdentifier(id);
    LoadedRecord<Record> loaded;
    Record& record = loaded.record;
    record.id = id;
    StoredState stored;
    stored.row = m_session.readAll(statement(recordNames(m_tables.kind).record, id));
    loaded.isFound = stored.row.count() > 0;
    if (loaded.isFound) RecordColumns::read(m_tables.columns, stored.row, record);
    stored.profile = readParts(record);
    readLinks(record);
    if (loaded.isFound) {
        stored.known = viewOf(record, stored.row.text(0, m_tables.statusColumn));
        record.stored = std::move(stored);
    }
    return loaded;
}

template <typename Record>
void RecordStore<Record>::readLinks(Record& record) const
{
    for (const RecordLink<Record>& link : m_tables.links)
        readLink(link, record);
}

template <typename Record>
void RecordStore<Record>::readLink(const RecordLink<Record>& link, Record& record) const
{
    std::visit([&](const auto& each) { readFrom(m_session, each, record); }, link);
}

/// All that another save could have changed.
template <typename Record>
RecordView RecordStore<Record>::viewOf(const Record& record, const QString& status) const
{
    RecordView view{RecordColumns::fields(m_tables.columns, record,
                                          [](const RecordColumn<Record>& each) { return !each.isOfFile; }),
                    status};
    for (FieldValue& field : partFields(record))
        view.fields.push_back(std::move(field));
    for (const RecordLink<Record>& link : m_tables.links) {
        view.fields.push_back(std::visit(
            [&](const auto& each) {
                return RecordLinks::field(each.table, each.caption, record.*each.entries);
            },
            link));
    }
    return view;
}

template <typename Record>
FieldValues RecordStore<Record>::changedFields(const Record& record) const
{
    const bool withFile = takesFile(record, SaveMode::Change);
    const auto isTaken = [&](const RecordColumn<Record>& each) { return withFile || !each.isOfFile; };
    FieldValues fields = RecordColumns::fields(m_tables.columns, record, isTaken);
    if (record.stored) {
        Record read;
        RecordColumns::read(m_tables.columns, record.stored->row, read);
        StoredStates::keepUnchanged(fields, RecordColumns::fields(m_tables.columns, read, isTaken),
                                    record.stored->row);
    }
    return fields;
}

/// A key that the user did not change is not written, whatever it is.
template <typename Record>
void RecordStore<Record>::requireWritable(const Record& record) const
{
    Record read;
    for (const RecordColumn<Record>& column : m_tables.columns) {
        const auto* key = std::get_if<qint64 Record::*>(&column.member);
        if (key == nullptr) continue;
        if (record.stored) RecordValues::read(record.stored->row, column.column, read.**key);
        if (record.**key != read.**key) recordIdentifier(record.**key);
    }
    for (const RecordLink<Record>& link : m_tables.links)
        std::visit([&](const auto& each) { requireIdentifiers(each, record); }, link);
}

template <typename Record>
bool RecordStore<Record>::isNameTaken(const Record& record) const
{
    const RecordNames names = recordNames(m_tables.kind);
    return RecordValues::hasRow(
        m_session, QStringLiteral("SELECT * FROM ") + names.record + QStringLiteral(" WHERE ") + names.name +
                       QStringLiteral(" LIKE ") + RecordValues::quotedTitle(record.*m_tables.name) +
                       QStringLiteral(" AND ") + m_tables.statusColumn + QStringLiteral(" = 'ACTIVE'") +
                       RecordValues::exceptFor(names.key, record.id));
}

/// Begins the row of a new record, whose identifier no other record has had.
template <typename Record>
void RecordStore<Record>::beginRow(EditableRecordSet& rows) const
{
    rows.addNew();
    const RecordNames names = recordNames(m_tables.kind);
    const qint64 next = Journal::largestIdentifier(m_session, names.record) + 1;
    if (std::get<qint64>(rows.value(names.key)) < next) rows.set(names.key, next);
}

template <typename Record>
bool RecordStore<Record>::add(Record& record)
{
    record.stored.reset();
    requireWritable(record);
    JournaledSave save(m_session, m_clock, m_tables.kind, std::nullopt);
    if (isNameTaken(record)) return false;
    const RecordNames names = recordNames(m_tables.kind);
    EditableRecordSet rows = m_session.edit(statement(names.record, record.id));
    if (rows.atEnd()) beginRow(rows);
    const qint64 id = recordIdentifier(std::get<qint64>(rows.value(names.key)));
    save.setIdentifier(id);
    prepare(record, SaveMode::Addition, id, save);
    StoredStates::setDiffering(
        rows, RecordColumns::fields(m_tables.columns, record, [](const auto& /*each*/) { return true; }));
    setConstants(rows, activeStatus, false);
    rows.update();
    record.id = id;
    writeParts(record, SaveMode::Addition, save);
    writeLinks(record);
    writeHistory(record, activeStatus);
    save.commit();
    return true;
}

template <typename Record>
std::optional<RecordConflict> RecordStore<Record>::change(Record& record)
{
    recordIdentifier(record.id);
    requireWritable(record);
    const auto find = [this, &record] { return load(record.id).record.stored.value().known; };
    // goes after the save: what that wrote may have been taken back in the end
    std::optional<StoredStates::KnownAfterSave<decltype(find)>> known;
    JournaledSave save(m_session, m_clock, m_tables.kind, record.id);
    EditableRecordSet rows =
        RecordValues::openRecord(m_session, statement(recordNames(m_tables.kind).record, record.id));
    if (auto conflict = StoredStates::conflict(record.stored, find())) return conflict;
    known.emplace(record.stored, find);
    prepare(record, SaveMode::Change, record.id, save);
    StoredStates::setDiffering(rows, changedFields(record));
    rows.update();
    writeParts(record, SaveMode::Change, save);
    writeLinks(record);
    writeHistory(record, StoredStates::historyStatus(rows.value(m_tables.statusColumn)));
    save.commit();
    return std::nullopt;
}

template <typename Record>
void RecordStore<Record>::setConstants(EditableRecordSet& rows, const QString& status, bool isHistory) const
{
    rows.set(m_tables.statusColumn, status);
    for (const ConstantColumn& each : m_tables.constants) {
        if (!isHistory || each.history == History::Copied) rows.set(each.column, each.value);
    }
}

template <typename Record>
void RecordStore<Record>::writeLinks(const Record& record)
{
    for (const RecordLink<Record>& link : m_tables.links)
        std::visit([&](const auto& each) { rewrite(m_session, each, record); }, link);
}

template <typename Record>
void RecordStore<Record>::writeHistory(const Record& record, const QString& status)
{
    const RecordNames names = recordNames(m_tables.kind);
    EditableRecordSet rows = m_session.edit(statement(names.record + QStringLiteral("_HIST"), record.id));
    rows.addNew();
    rows.set(names.key, record.id);
    StoredStates::setDiffering(
        rows, RecordColumns::fields(m_tables.columns, record, [](const RecordColumn<Record>& each) {
            return each.history == History::Copied;
        }));
    setConstants(rows, status, true);
    rows.set(QStringLiteral("UpdateTime"), RecordValues::updateTime(m_clock));
    rows.update();
}

template <typename Record>
QString RecordStore<Record>::remove(qint64 id, JournalStep* step)
{
    const RecordNames names = recordNames(m_tables.kind);
    const QString number = QString::number(recordIdentifier(id));
    JournaledSave save(m_session, m_clock, m_tables.kind, id, step);
    m_session.execute(QStringLiteral("UPDATE %1 SET %2 = 'DELETED' WHERE %3 = %4")
                          .arg(names.record, m_tables.statusColumn, names.key, number));
    save.commit();
    switch (m_tables.kind) {
    case RecordKind::Document:
        return RecordsTexts::tr("Document ID %1 successfully deleted.").arg(number);
    case RecordKind::Event:
        return RecordsTexts::tr("Event ID %1 successfully deleted.").arg(number);
    case RecordKind::Organization:
        break;
    }
    return RecordsTexts::tr("Organization ID %1 successfully deleted.").arg(number);
}

template class RecordStore<DocumentRecord>;
template class RecordStore<EventRecord>;
template class RecordStore<OrganizationRecord>;

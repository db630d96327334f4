// SPDX-License-Identifier: GPL-3.0-or-later

#include "records/StoredState.h"

#include "records/RecordsTexts.h"

namespace {

/// In any letter case, like the condition of the lists.
bool isDeleted(const QString& status)
{
    return status.compare(deletedStatus, Qt::CaseInsensitive) == 0;
}

} // namespace

void StoredStates::keepUnchanged(FieldValues& fields, const FieldValues& read, const RecordTable& row)
{
    if (row.count() == 0) return;
    for (std::size_t i = 0; i < fields.size(); ++i) {
        if (fields[i].value == read[i].value) fields[i].value = row.value(0, fields[i].column);
    }
}

void StoredStates::setDiffering(EditableRecordSet& rows, const FieldValues& fields)
{
    for (const FieldValue& field : fields) {
        if (rows.value(field.column) != field.value) rows.set(field.column.toString(), field.value);
    }
}

std::optional<RecordConflict> StoredStates::conflict(const std::optional<StoredState>& stored,
                                                     RecordView found)
{
    if (!stored) return std::nullopt;
    const RecordView& known = stored->known;
    RecordConflict conflict;
    for (std::size_t i = 0; i < found.fields.size(); ++i) {
        if (found.fields[i].value == known.fields[i].value) continue;
        conflict.fields << RecordsTexts::tr(found.fields[i].caption);
    }
    conflict.fields.removeDuplicates();
    if (found.status != known.status) {
        conflict.isDeleted = isDeleted(found.status);
        if (!conflict.isDeleted) conflict.fields << RecordsTexts::tr("Status");
    }
    if (conflict.fields.isEmpty() && !conflict.isDeleted) return std::nullopt;
    conflict.found = std::move(found);
    return conflict;
}

QString StoredStates::historyStatus(const Value& status)
{
    const auto* text = std::get_if<QString>(&status);
    return text != nullptr && isDeleted(*text) ? deletedStatus : activeStatus;
}

// SPDX-License-Identifier: GPL-3.0-or-later

#include "records/RecordFields.h"

#include "records/DocumentStore.h"
#include "records/EventStore.h"
#include "records/OrganizationColumns.h"
#include "records/OrganizationStore.h"
#include "records/RecordsTexts.h"
#include "records/StoredState.h"
#include "util/DateTimeText.h"

namespace {

template <typename Record>
FieldForm formOf(const RecordColumn<Record>& column)
{
    if (std::holds_alternative<bool Record::*>(column.member)) return FieldForm::Flag;
    if (std::holds_alternative<qint64 Record::*>(column.member)) return FieldForm::Key;
    if (column.written == &RecordValues::date) return FieldForm::Date;
    return column.written == &RecordValues::time ? FieldForm::Time : FieldForm::Text;
}

template <typename Record>
void add(std::type_identity_t<ColumnTable<Record>> columns, const QString& table,
         std::vector<RecordField>& fields)
{
    for (const RecordColumn<Record>& each : columns) {
        fields.push_back({table, each.column.toString(), RecordsTexts::tr(each.caption), formOf(each),
                          each.history == History::Copied, false});
    }
}

template <typename Record>
RecordField fieldOf(const ListLink<Record>& link)
{
    return {link.table.table,
            link.table.linkColumn,
            RecordsTexts::tr(link.caption),
            FieldForm::Links,
            false,
            true};
}

template <typename Record>
RecordField fieldOf(const CheckLink<Record>& link)
{
    return {link.table.table, link.table.linkColumn, RecordsTexts::tr(link.caption),
            link.hasSetting ? FieldForm::Settings : FieldForm::Links};
}

template <typename Record>
RecordFields fieldsOf(const RecordTables<Record>& tables)
{
    const RecordNames names = recordNames(tables.kind);
    RecordFields all;
    add<Record>(tables.columns, names.record, all.fields);
    if (tables.kind == RecordKind::Organization) {
        // no editor shows the position, but the map does
        all.fields.push_back({names.record, QStringLiteral("Lat"), RecordsTexts::tr("Latitude")});
        all.fields.push_back({names.record, QStringLiteral("Lon"), RecordsTexts::tr("Longitude")});
        add<OrganizationProfile>(profileColumns, QStringLiteral("OrganizationProfile"), all.fields);
    }
    for (const RecordLink<Record>& link : tables.links)
        all.fields.push_back(std::visit([](const auto& each) { return fieldOf(each); }, link));
    all.fields.push_back(
        {names.record, tables.statusColumn, RecordsTexts::tr("Status"), FieldForm::Status, true});
    all.hidden << names.key;
    for (const ConstantColumn& each : tables.constants)
        all.hidden << each.column;
    return all;
}

} // namespace

RecordFields recordFields(RecordKind kind)
{
    switch (kind) {
    case RecordKind::Document:
        return fieldsOf(DocumentStore::tables());
    case RecordKind::Event:
        return fieldsOf(EventStore::tables());
    case RecordKind::Organization:
        break;
    }
    return fieldsOf(OrganizationStore::tables());
}

QString FieldTexts::flag(bool isSet)
{
    return isSet ? RecordsTexts::tr("Yes") : RecordsTexts::tr("No");
}

QString FieldTexts::shown(FieldForm form, const QString& held)
{
    switch (form) {
    case FieldForm::Flag:
        return flag(held.toDouble() != 0);
    case FieldForm::Date:
        return DateTimeText::programFromHeldDate(held.toStdString());
    case FieldForm::Time:
        return DateTimeText::programFromHeldTime(held.toStdString());
    case FieldForm::Status:
        // any but the two that the program gives as it is
        if (held.compare(deletedStatus, Qt::CaseInsensitive) == 0) return RecordsTexts::tr("Deleted");
        return held.compare(activeStatus, Qt::CaseInsensitive) == 0 ? RecordsTexts::tr("Active") : held;
    default:
        return held;
    }
}

QString FieldTexts::withoutName(qint64 key)
{
    return key == noneKey ? ListEntry::none().display : RecordsTexts::tr("No. %1").arg(key);
}

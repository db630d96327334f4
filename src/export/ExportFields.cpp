// SPDX-License-Identifier: GPL-3.0-or-later

#include "export/ExportFields.h"

#include "data/DatabaseSession.h"
#include "export/ExportTexts.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

std::optional<RecordKind> kindOfTable(const QString& table)
{
    for (const RecordKind kind : recordKinds)
        if (recordNames(kind).record == table) return kind;
    return std::nullopt;
}

const PartTable* partOf(const RecordParts& parts, const QString& table)
{
    const auto found = std::find_if(parts.parts.begin(), parts.parts.end(),
                                    [&table](const PartTable& part) { return part.table == table; });
    return found == parts.parts.end() ? nullptr : &*found;
}

std::optional<NamedKey> keyOf(const RecordParts& parts, const QString& column)
{
    for (const NamedKey& key : parts.keys)
        if (key.column.compare(column, Qt::CaseInsensitive) == 0) return key;
    return std::nullopt;
}

ExportField exportField(const RecordParts& parts, const RecordField& field)
{
    ExportField made{field, keyOf(parts, field.column), parts.names.key, std::nullopt};
    if (const PartTable* part = partOf(parts, field.table)) {
        made.named = part->linkedTo;
        made.recordColumn = part->recordColumn;
    }
    if (made.named) made.target = kindOfTable(made.named->table);
    return made;
}

/// The records of a kind that link to the exported ones by the rows of a table.
ExportField linking(RecordKind from, RecordKind to, const QString& table, const QString& caption)
{
    const RecordNames names = recordNames(from);
    return {{table, names.key, caption, FieldForm::Links, false, true},
            NamedKey{names.key, names.record, names.key, names.name},
            recordNames(to).key,
            from};
}

void addLinking(RecordKind kind, std::vector<ExportField>& fields)
{
    const QString events = ExportTexts::tr("Related events");
    if (kind == RecordKind::Document)
        fields.push_back(linking(RecordKind::Event, kind, u"DocumentEvents"_s, events));
    if (kind != RecordKind::Organization) return;
    fields.push_back(
        linking(RecordKind::Document, kind, u"Document"_s, ExportTexts::tr("Related documents")));
    fields.push_back(linking(RecordKind::Event, kind, u"OrganizationEvents"_s, events));
}

bool hasField(const std::vector<ExportField>& fields, const QString& table, const QString& column)
{
    return std::any_of(fields.begin(), fields.end(), [&](const ExportField& each) {
        return each.field.table == table && each.field.column.compare(column, Qt::CaseInsensitive) == 0;
    });
}

} // namespace

std::vector<ExportField> exportFields(const DatabaseSession& session, RecordKind kind)
{
    const RecordParts& parts = recordParts(kind);
    const RecordFields known = recordFields(kind);
    const CatalogTable* main = session.catalog().findTable(parts.names.record);
    std::vector<ExportField> fields;
    for (const RecordField& each : known.fields) {
        const CatalogTable* table = session.catalog().findTable(each.table);
        const CatalogColumn* column = table == nullptr ? nullptr : table->findColumn(each.column);
        // of the two columns of a chart, the other one has its file
        const bool isShown = each.form != FieldForm::Status && each.column != u"ChartOption"_s;
        if (column == nullptr || !isShown) continue;
        fields.push_back(exportField(parts, each));
        fields.back().fileColumn = column->name;
    }
    for (const CatalogColumn& column : main != nullptr ? main->columns : std::vector<CatalogColumn>()) {
        const bool isHidden = known.hidden.contains(column.name, Qt::CaseInsensitive) ||
                              column.name.compare(parts.statusColumn, Qt::CaseInsensitive) == 0;
        if (isHidden || hasField(fields, parts.names.record, column.name)) continue;
        fields.push_back({{parts.names.record, column.name, column.name, FieldForm::Text, false, false},
                          std::nullopt,
                          parts.names.key,
                          std::nullopt,
                          column.name});
    }
    addLinking(kind, fields);
    return fields;
}

std::optional<std::size_t> fieldNamed(const std::vector<ExportField>& fields, QStringView member)
{
    const auto found = std::find_if(fields.begin(), fields.end(), [member](const ExportField& each) {
        return each.member().compare(member, Qt::CaseInsensitive) == 0;
    });
    if (found == fields.end()) return std::nullopt;
    return static_cast<std::size_t>(found - fields.begin());
}

QString titleOf(RecordKind kind)
{
    switch (kind) {
    case RecordKind::Document:
        return ExportTexts::tr("Documents");
    case RecordKind::Event:
        return ExportTexts::tr("Events");
    case RecordKind::Organization:
        break;
    }
    return ExportTexts::tr("Organizations");
}

// SPDX-License-Identifier: GPL-3.0-or-later

#include "history/ComparedFields.h"

#include "data/ListEntry.h"
#include "history/HistoryTexts.h"
#include "journal/RecordParts.h"
#include "records/StoredState.h"

#include <algorithm>
#include <set>

namespace {

constexpr int realDigits = 15; ///< as many as a real number keeps exactly

QString textOf(const Value& value)
{
    if (const auto* whole = std::get_if<qint64>(&value)) return QString::number(*whole);
    if (const auto* real = std::get_if<double>(&value)) return QString::number(*real, 'g', realDigits);
    if (const auto* text = std::get_if<QString>(&value)) return *text;
    return {};
}

/// A missing key stands for "None".
qint64 keyOf(const Value& value)
{
    if (const auto* whole = std::get_if<qint64>(&value)) return *whole;
    return isNull(value) ? noneKey : textOf(value).toLongLong();
}

/// Where the name of what a column's key stands for is; null if it holds no key.
const NamedKey* namedKey(const RecordParts& record, const RecordField& field)
{
    for (const NamedKey& key : record.keys)
        if (key.column.compare(field.column, Qt::CaseInsensitive) == 0) return &key;
    return nullptr;
}

QString nameOf(const HeldRow& row, const NamedKey& key, qint64 number)
{
    QString name = textOf(valueOf(row, key.nameColumn));
    return name.isEmpty() ? FieldTexts::withoutName(number) : name;
}

std::vector<NamedLink> linksOf(const std::vector<HeldRow>& rows, const PartTable& part,
                               const RecordField& field)
{
    std::vector<NamedLink> links;
    std::set<qint64> taken;
    if (field.hasPlaceholder) taken.insert(noneKey);
    for (const HeldRow& row : rows) {
        if (field.form == FieldForm::Settings && keyOf(valueOf(row, u"Setting")) != 1) continue;
        const qint64 key = keyOf(valueOf(row, part.linkedTo->column));
        if (taken.insert(key).second) links.push_back({key, nameOf(row, *part.linkedTo, key)});
    }
    return links;
}

FieldContent contentOf(const RecordParts& record, const RecordField& field, const HeldRow& row)
{
    const Value& value = valueOf(row, field.column);
    const QString text = textOf(value);
    if (field.form != FieldForm::Key) return {FieldTexts::shown(field.form, text), 0, {}};
    const qint64 key = keyOf(value);
    const NamedKey* named = namedKey(record, field);
    return {named == nullptr ? text : nameOf(row, *named, key), key, {}};
}

bool hasColumn(const HeldRow& row, const QString& column)
{
    return std::any_of(row.begin(), row.end(), [&column](const auto& each) {
        return each.first.compare(column, Qt::CaseInsensitive) == 0;
    });
}

std::set<qint64> keysOf(const std::vector<NamedLink>& links)
{
    std::set<qint64> keys;
    for (const NamedLink& link : links)
        keys.insert(link.key);
    return keys;
}

} // namespace

bool ComparedField::isDifferent() const
{
    if (!older || !newer) return false;
    if (hasLinks()) return keysOf(older->links) != keysOf(newer->links);
    return field.form == FieldForm::Key ? older->key != newer->key : older->text != newer->text;
}

std::optional<FieldContent> ComparedFields::contentOf(const RecordField& field,
                                                      const VersionContent& version) const
{
    if (!version.isWhole && !field.isInHistory) return std::nullopt;
    const RecordParts& record = recordParts(m_kind);
    const std::vector<HeldRow>& rows = version.snapshot.rows(field.table);
    const auto part = std::find_if(record.parts.begin(), record.parts.end(),
                                   [&field](const PartTable& each) { return each.table == field.table; });
    if (part != record.parts.end() && part->linkedTo) return FieldContent{{}, 0, linksOf(rows, *part, field)};
    if (rows.empty()) return ::contentOf(record, field, {});
    if (!hasColumn(rows.front(), field.column)) return std::nullopt;
    return ::contentOf(record, field, rows.front());
}

void ComparedFields::addOwnColumns(const VersionContent& version, std::vector<RecordField>& fields) const
{
    if (!version.isWhole) return;
    const RecordParts& record = recordParts(m_kind);
    const std::vector<HeldRow>& rows = version.snapshot.rows(record.names.record);
    if (rows.empty()) return;
    for (const auto& [column, value] : rows.front()) {
        const auto isOf = [&record, &name = column](const RecordField& field) {
            return field.table == record.names.record && field.column.compare(name, Qt::CaseInsensitive) == 0;
        };
        const bool isName =
            std::any_of(record.keys.begin(), record.keys.end(),
                        [&name = column](const NamedKey& key) { return key.nameColumn == name; });
        if (isName || m_known.hidden.contains(column, Qt::CaseInsensitive)) continue;
        if (std::any_of(fields.begin(), fields.end(), isOf)) continue;
        fields.push_back({record.names.record, column, column, FieldForm::Text, false, false});
    }
}

std::vector<ComparedField> ComparedFields::compare(const VersionContent& older,
                                                   const VersionContent& newer) const
{
    std::vector<RecordField> fields = m_known.fields;
    addOwnColumns(older, fields);
    addOwnColumns(newer, fields);
    std::vector<ComparedField> compared;
    compared.reserve(fields.size());
    for (const RecordField& field : fields) {
        ComparedField& each =
            compared.emplace_back(ComparedField{field, contentOf(field, older), contentOf(field, newer)});
        const bool isChart = field.column == u"OrganizationChart" && each.older && each.newer;
        if (isChart && older.chart != newer.chart && each.older->text == each.newer->text)
            each.newer->text += u' ' + HistoryTexts::tr("(another file)");
    }
    return compared;
}

QStringList ComparedFields::differences(const VersionContent& older, const VersionContent& newer) const
{
    QStringList captions;
    for (const ComparedField& each : compare(older, newer))
        if (each.isDifferent()) captions << each.field.caption;
    captions.removeDuplicates();
    return captions;
}

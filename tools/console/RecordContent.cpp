// SPDX-License-Identifier: GPL-3.0-or-later

#include "RecordContent.h"

#include "Output.h"
#include "export/JsonWriter.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace console {

namespace {

constexpr int indent = 4;

/// The column in the file, whose name may have another letter case than the program's; null if it has none.
const std::pair<QString, Value>* columnOf(const RecordField& field, const VersionContent& version)
{
    const std::vector<HeldRow>& rows = version.snapshot.rows(field.table);
    if (rows.empty()) return nullptr;
    const auto found = std::find_if(rows.front().begin(), rows.front().end(), [&field](const auto& each) {
        return each.first.compare(field.column, Qt::CaseInsensitive) == 0;
    });
    return found == rows.front().end() ? nullptr : &*found;
}

void writeLink(qint64 key, const QString& name, JsonWriter& json)
{
    json.beginObject();
    json.member(u"id", key);
    json.member(u"name", name);
    json.endObject();
}

} // namespace

void writeField(const RecordField& field, const FieldContent& content, Output& output)
{
    const bool hasLinks = !content.links.empty();
    if (!hasLinks && content.text.isEmpty()) return;
    QStringList lines = content.text.split(u'\n');
    if (hasLinks) {
        lines.clear();
        for (const NamedLink& link : content.links)
            lines << link.name;
    }
    // what takes several lines stands below its caption
    if (lines.size() == 1) return output.line(field.caption + u": "_s + lines.front());
    output.line(field.caption + u':');
    for (const QString& line : lines)
        output.line(QString(indent, u' ') + line);
}

QString memberOf(const RecordField& field, const VersionContent& version)
{
    if (field.form == FieldForm::Links || field.form == FieldForm::Settings) return field.table;
    const auto* column = columnOf(field, version);
    return column == nullptr ? field.column : column->first;
}

void writeValue(const RecordField& field, const FieldContent& content, const VersionContent& version,
                JsonWriter& json)
{
    if (field.form == FieldForm::Key) return writeLink(content.key, content.text, json);
    const auto* column = columnOf(field, version);
    const Value value = column == nullptr ? Value() : column->second;
    if (field.form != FieldForm::Flag) return json.value(value);
    const auto* whole = std::get_if<qint64>(&value);
    json.value(whole != nullptr && *whole != 0);
}

void writeLinks(const std::vector<NamedLink>& links, JsonWriter& json)
{
    json.beginArray();
    for (const NamedLink& link : links)
        writeLink(link.key, link.name, json);
    json.endArray();
}

} // namespace console

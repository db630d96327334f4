// SPDX-License-Identifier: GPL-3.0-or-later

#include "export/RecordSheet.h"

#include "data/ListEntry.h"
#include "export/ExportTable.h"
#include "export/HtmlText.h"

namespace {

/// Neither a flag that is not set nor a key that leads to nothing says anything.
bool holdsSomething(const ExportField& field, const ExportedValue& value)
{
    if (field.hasLinks()) return !value.links.empty();
    if (field.field.form == FieldForm::Flag) return value.real != 0;
    if (field.field.form == FieldForm::Key && field.named) return value.whole != noneKey;
    return !value.text.empty();
}

/// Appends the name of something that a field leads to, as a link if that is a record.
void appendName(const ExportField& field, qint64 key, std::string_view name, const RecordAddress& addressOf,
                std::string& html)
{
    if (!field.target || !addressOf) return HtmlText::appendLines(name, html);
    // by itself, since in a narrow column each may take several lines
    html += "<p><a href=\"";
    HtmlText::append(addressOf(*field.target, key), html);
    html += "\">";
    HtmlText::appendLines(name, html);
    html += "</a></p>";
}

void appendValue(const ExportField& field, const ExportedValue& value, const RecordAddress& addressOf,
                 std::string& html)
{
    const bool areParagraphs = field.target && addressOf;
    for (const ExportedLink& link : value.links) {
        if (&link != &value.links.front() && !areParagraphs) html += "<br/>";
        appendName(field, link.key, link.name, addressOf, html);
    }
    if (field.hasLinks()) return;
    std::string text;
    appendReadable(field, value, text);
    if (field.field.form == FieldForm::Key && field.target)
        return appendName(field, value.whole, text, addressOf, html);
    if (field.field.form == FieldForm::Text) return HtmlText::appendLinked(text, html);
    HtmlText::appendLines(text, html);
}

} // namespace

void appendRecordSheet(RecordKind kind, const std::vector<ExportField>& fields, const ExportedRecord& record,
                       std::string& html, const RecordAddress& addressOf)
{
    const QString nameColumn = recordNames(kind).name;
    std::string name;
    std::string rows;
    for (std::size_t i = 0; i < fields.size(); ++i) {
        const ExportField& field = fields[i];
        const ExportedValue& value = record.values[i];
        if (field.field.column == nameColumn && !field.hasLinks()) {
            name = value.text;
        } else if (holdsSomething(field, value)) {
            rows += "<tr><th>";
            HtmlText::appendLines(field.field.caption.toStdString(), rows);
            rows += "</th><td>";
            appendValue(field, value, addressOf, rows);
            rows += "</td></tr>\n";
        }
    }
    if (name.empty()) name = FieldTexts::withoutName(record.identifier).toStdString();
    html += "<h2 id=\"" + sheetAnchor(record.identifier) + "\">";
    HtmlText::appendLines(name, html);
    html += "</h2>\n";
    if (!rows.empty()) html += "<table class=\"fields\">\n" + rows + "</table>\n";
}

std::string sheetAnchor(qint64 identifier)
{
    return "record-" + std::to_string(identifier);
}

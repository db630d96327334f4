// SPDX-License-Identifier: GPL-3.0-or-later

#include "export/RecordSheet.h"

#include "data/ListEntry.h"
#include "export/ExportTable.h"
#include "export/ExportTexts.h"
#include "export/HtmlText.h"

#include <algorithm>
#include <span>

namespace {

/// Neither a flag that is not set nor a key that leads to nothing says anything.
bool holdsSomething(const ExportField& field, const ExportedValue& value)
{
    if (field.hasLinks()) return !value.links.empty();
    if (field.field.form == FieldForm::Flag) return value.real != 0;
    if (field.field.form == FieldForm::Key && field.named) return value.whole != noneKey;
    return !value.text.empty();
}

// a page with more takes long to lay out
constexpr std::size_t mostLinks = 200;     ///< of a field
constexpr std::size_t longestText = 20000; ///< of a field, in bytes

/// Appends the name of a record as a link, by itself, since in a narrow column each may take several lines.
void appendLink(const std::string& address, std::string_view name, std::string& html)
{
    html += "<p><a href=\"";
    HtmlText::append(address, html);
    html += "\">";
    HtmlText::appendLines(name, html);
    html += "</a></p>";
}

void appendLinks(const ExportField& field, std::span<const ExportedLink> links,
                 const RecordAddress& addressOf, std::string& html)
{
    for (const ExportedLink& link : links.first(std::min(links.size(), mostLinks)))
        appendLink(addressOf(*field.target, link.key), link.name, html);
    if (links.size() <= mostLinks) return;
    const auto more = static_cast<int>(links.size() - mostLinks);
    html += "<p>";
    HtmlText::appendLines(ExportTexts::tr("… and %n more.", nullptr, more).toStdString(), html);
    html += "</p>";
}

/// Appends the beginning of a text that is too long for a page.
void appendBeginning(std::string_view text, std::string& html)
{
    const auto isInsideLetter = [](char byte) { return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U; };
    std::size_t end = longestText;
    while (isInsideLetter(text[end]))
        --end;
    HtmlText::appendLines(text.substr(0, end), html);
    html += "<p>";
    HtmlText::appendLines(ExportTexts::tr("… View the record to read on.").toStdString(), html);
    html += "</p>";
}

void appendValue(const ExportField& field, const ExportedValue& value, const RecordAddress& addressOf,
                 std::string& html)
{
    if (field.target && addressOf && field.hasLinks())
        return appendLinks(field, value.links, addressOf, html);
    for (const ExportedLink& link : value.links) {
        if (&link != &value.links.front()) html += "<br/>";
        HtmlText::appendLines(link.name, html);
    }
    if (field.hasLinks()) return;
    std::string text;
    appendReadable(field, value, text);
    if (field.field.form == FieldForm::Key && field.target && addressOf)
        return appendLink(addressOf(*field.target, value.whole), text, html);
    if (addressOf && text.size() > longestText) return appendBeginning(text, html);
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
    html += "<h2>";
    HtmlText::appendLines(name, html);
    html += "</h2>\n";
    if (!rows.empty()) html += "<table class=\"fields\">\n" + rows + "</table>\n";
}

// SPDX-License-Identifier: GPL-3.0-or-later

#include "export/ExportTable.h"

#include "browse/list/ListTexts.h"
#include "export/ExportTexts.h"

namespace {

constexpr std::string_view linkSeparator = "; ";

/// The field with the values of a column of the list's query, which may be the name of a key.
int fieldOf(const std::vector<ExportField>& fields, QStringView column)
{
    for (std::size_t i = 0; i < fields.size(); ++i) {
        const ExportField& each = fields[i];
        const bool isKey = each.field.form == FieldForm::Key && each.named;
        const QString& name = isKey ? each.named->nameColumn : each.field.column;
        if (!each.hasLinks() && name.compare(column, Qt::CaseInsensitive) == 0) return static_cast<int>(i);
    }
    return -1;
}

int keyOf(const std::vector<ExportField>& fields, QStringView column)
{
    for (std::size_t i = 0; i < fields.size(); ++i) {
        const bool isSame = fields[i].field.column.compare(column, Qt::CaseInsensitive) == 0;
        if (!fields[i].hasLinks() && isSame) return static_cast<int>(i);
    }
    return -1;
}

void appendLinks(const std::vector<ExportedLink>& links, std::string& text)
{
    for (const ExportedLink& link : links) {
        if (&link != &links.front()) text += linkSeparator;
        text += link.name;
    }
}

void append(const QString& shown, std::string& text)
{
    const QByteArray utf8 = shown.toUtf8();
    text.append(utf8.constData(), static_cast<std::size_t>(utf8.size()));
}

} // namespace

ExportTable::ExportTable(RecordKind kind, const std::vector<ExportField>& fields, FieldChoice choice)
    : m_fields(fields)
{
    if (choice == FieldChoice::OfList) {
        addListColumns(kind);
        return;
    }
    m_titles.push_back(ExportTexts::tr("ID"));
    for (const ExportField& each : fields)
        m_titles.push_back(each.field.caption);
}

void ExportTable::addListColumns(RecordKind kind)
{
    m_layout = &listLayout(kind, Years::FourDigits);
    for (const ListColumn& column : m_layout->columns)
        m_titles.push_back(column.marksKeys ? ExportTexts::tr("Key") : ListTexts::tr(column.title));
    for (std::size_t i = 0; i < m_layout->fields.size(); ++i)
        m_listFields[i] = fieldOf(m_fields, m_layout->fields[i]);
    m_number = keyOf(m_fields, m_layout->number);
    m_isKey = keyOf(m_fields, m_layout->isKey);
}

const ExportField* ExportTable::field(std::size_t column) const
{
    return m_layout != nullptr || column == 0 ? nullptr : &m_fields[column - 1];
}

const ExportedValue* ExportTable::value(const ExportedRecord& record, std::size_t column) const
{
    return m_layout != nullptr || column == 0 ? nullptr : &record.values[column - 1];
}

ListRow ExportTable::listRow(const ExportedRecord& record) const
{
    const auto at = [&record](int field) -> const ExportedValue& {
        return record.values[static_cast<std::size_t>(field)];
    };
    ListRow row;
    row.identifier = record.identifier;
    for (std::size_t i = 0; i < m_layout->fields.size(); ++i)
        if (m_listFields[i] >= 0 && !at(m_listFields[i]).lacksName) row.fields[i] = at(m_listFields[i]).text;
    if (m_number >= 0) row.number = static_cast<std::int32_t>(at(m_number).whole);
    if (m_isKey >= 0) row.isKey = at(m_isKey).real != 0;
    return row;
}

void ExportTable::appendText(const ExportedRecord& record, std::size_t column, std::string& text) const
{
    if (m_layout != nullptr) {
        const ListColumn& shown = m_layout->columns[column];
        const ListRow row = listRow(record);
        if (shown.marksKeys) return append(row.isKey ? FieldTexts::flag(true) : QString(), text);
        return append(QString::fromStdString(shown.text(row)), text);
    }
    if (column == 0) {
        text += std::to_string(record.identifier);
        return;
    }
    const ExportField& field = m_fields[column - 1];
    const ExportedValue& value = record.values[column - 1];
    if (field.hasLinks()) return appendLinks(value.links, text);
    // as the file holds them, dates and times mean the same to every program
    const bool isHeld = field.field.form != FieldForm::Flag;
    if (isHeld) {
        text += value.text;
    } else {
        appendReadable(field, value, text);
    }
}

bool isOfList(RecordKind kind, const ExportField& field)
{
    const ListLayout& layout = listLayout(kind);
    const std::vector<ExportField> only{field};
    if (keyOf(only, layout.isKey) == 0) return true;
    for (std::size_t i = 0; i < layout.fields.size(); ++i) {
        // the icon of a document's row is made of it
        const bool isShown = kind != RecordKind::Document || i != fileLocationField;
        if (isShown && fieldOf(only, layout.fields[i]) == 0) return true;
    }
    return false;
}

void appendReadable(const ExportField& field, const ExportedValue& value, std::string& text)
{
    if (field.hasLinks()) return appendLinks(value.links, text);
    const FieldForm form = field.field.form;
    if (form == FieldForm::Text || form == FieldForm::Key) {
        text += value.text;
        return;
    }
    append(FieldTexts::shown(form, QString::fromStdString(value.text)), text);
}

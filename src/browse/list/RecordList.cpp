// SPDX-License-Identifier: GPL-3.0-or-later

#include "browse/list/RecordList.h"

#include "browse/list/ListTexts.h"
#include "records/FileHints.h"
#include "util/TextCompare.h"

#include <algorithm>
#include <numeric>

void RecordList::beginReading(const RecordSet& rows)
{
    const auto optional = [&rows](QStringView name) { return name.isEmpty() ? -1 : rows.column(name); };
    m_identifierColumn = rows.column(m_layout->identifier);
    m_numberColumn = optional(m_layout->number);
    m_isKeyColumn = optional(m_layout->isKey);
    m_isReleasedColumn = optional(m_layout->isReleased);
    for (std::size_t i = 0; i < m_layout->fields.size(); ++i)
        m_fieldColumns[i] = rows.column(m_layout->fields[i]);
}

void RecordList::append(const RecordSet& rows)
{
    Row row;
    row.identifier = rows.integer(m_identifierColumn);
    row.begin = m_texts.size();
    for (std::size_t i = 0; i < m_layout->fields.size(); ++i) {
        const std::string_view text = rows.held(m_fieldColumns[i]);
        m_texts += text;
        row.lengths[i] = static_cast<std::uint32_t>(text.size());
    }
    if (m_numberColumn >= 0) row.number = static_cast<std::int32_t>(rows.integer(m_numberColumn));
    if (m_isKeyColumn >= 0) row.isKey = rows.integer(m_isKeyColumn) != 0;
    if (m_isReleasedColumn >= 0) row.isReleased = rows.integer(m_isReleasedColumn) != 0;
    m_rows.push_back(row);
}

ListRow RecordList::at(std::size_t row) const
{
    const Row& held = m_rows[row];
    ListRow found{held.identifier, {}, held.number, held.isKey, held.isReleased};
    std::string_view texts = std::string_view(m_texts).substr(held.begin);
    for (std::size_t i = 0; i < held.lengths.size(); ++i) {
        found.fields[i] = texts.substr(0, held.lengths[i]);
        texts.remove_prefix(held.lengths[i]);
    }
    return found;
}

bool RecordList::contains(qint64 identifier) const
{
    return std::any_of(m_rows.begin(), m_rows.end(),
                       [identifier](const Row& row) { return row.identifier == identifier; });
}

QString RecordList::text(std::size_t row, int column) const
{
    return QString::fromStdString(this->column(column).text(at(row)));
}

QString RecordList::toolTip(std::size_t row, int column) const
{
    return this->column(column).toolTip(at(row));
}

QString RecordList::fileLocation(std::size_t row) const
{
    if (m_kind != RecordKind::Document) return {};
    const std::string_view name = at(row).fields[fileLocationField];
    return QString::fromUtf8(name.data(), static_cast<qsizetype>(name.size()));
}

QString RecordList::documentIcon(std::size_t row, bool isInFolder) const
{
    const Row& found = m_rows[row];
    QString key = u'd' + QString::number(found.number);
    if (isInFolder) return key;
    return key + (found.isReleased ? QStringLiteral("cd") : QStringLiteral("ng"));
}

QString RecordList::drawnIcon(std::size_t row, const QString& icon) const
{
    if (m_kind != RecordKind::Document) return icon;
    const std::string_view name = at(row).fields[fileTypeField];
    const QString type = QString::number(m_rows[row].number);
    const int known = FileHints::knownType(
        m_rows[row].number, QString::fromUtf8(name.data(), static_cast<qsizetype>(name.size())));
    return u'd' + QString::number(known) + icon.mid(1 + type.size());
}

void RecordList::appendTexts(std::size_t row, std::string& texts) const
{
    const ListRow found = at(row);
    for (const ListColumn& column : columns()) {
        if (!column.marksKeys) texts.append(column.text(found)).push_back('\n');
    }
}

std::vector<std::uint32_t> RecordList::sorted(int column, bool descending) const
{
    const auto sortKey = this->column(column).sortKey;
    std::vector<ListSortKey> keys;
    keys.reserve(m_rows.size());
    for (std::size_t row = 0; row < m_rows.size(); ++row)
        keys.push_back(sortKey(at(row)));
    const auto less = [&keys](std::uint32_t left, std::uint32_t right) {
        const ListSortKey& a = keys[left];
        const ListSortKey& b = keys[right];
        return a.number != b.number ? a.number < b.number : TextCompare::compare(a.text, b.text) < 0;
    };
    std::vector<std::uint32_t> order(m_rows.size());
    std::iota(order.begin(), order.end(), 0U);
    std::stable_sort(order.begin(), order.end(), [&](std::uint32_t left, std::uint32_t right) {
        return descending ? less(right, left) : less(left, right);
    });
    return order;
}

QString RecordList::countText(RecordKind kind, std::size_t count)
{
    const int number = static_cast<int>(count);
    switch (kind) {
    case RecordKind::Document:
        return number == 1 ? ListTexts::tr("Displaying 1 Document")
                           : ListTexts::tr("Displaying %n Documents", nullptr, number);
    case RecordKind::Event:
        return number == 1 ? ListTexts::tr("Displaying 1 Event")
                           : ListTexts::tr("Displaying %n Events", nullptr, number);
    case RecordKind::Organization:
        break;
    }
    return number == 1 ? ListTexts::tr("Displaying 1 Organization")
                       : ListTexts::tr("Displaying %n Organizations", nullptr, number);
}

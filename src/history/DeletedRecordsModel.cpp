// SPDX-License-Identifier: GPL-3.0-or-later

#include "history/DeletedRecordsModel.h"

#include "util/DateTimeText.h"
#include "util/TextCompare.h"
#include "widgets/PlainToolTip.h"

#include <algorithm>
#include <map>

void DeletedRecordsModel::setRecords(RecordKind kind, std::vector<DeletedRecord> records)
{
    beginResetModel();
    m_kind = kind;
    m_rows.clear();
    m_rows.reserve(records.size());
    for (DeletedRecord& record : records) {
        std::string name = record.name.toStdString();
        m_rows.push_back({std::move(record), std::move(name), 0});
    }
    std::sort(m_rows.begin(), m_rows.end(), [](const Row& one, const Row& other) {
        const int order = TextCompare::compare(one.name, other.name);
        return order == 0 ? one.record.identifier < other.record.identifier : order < 0;
    });
    for (std::size_t i = 0; i < m_rows.size(); ++i)
        m_rows[i].place = i;
    arrange();
    endResetModel();
}

void DeletedRecordsModel::arrange()
{
    const bool isDescending = m_order == Qt::DescendingOrder;
    std::sort(m_rows.begin(), m_rows.end(), [&](const Row& one, const Row& other) {
        if (m_column == nameColumn) return isDescending ? one.place > other.place : one.place < other.place;
        const QString& moment = one.record.moment;
        const QString& otherMoment = other.record.moment;
        if (moment == otherMoment) return one.place < other.place;
        if (moment.isEmpty() || otherMoment.isEmpty()) return otherMoment.isEmpty();
        return isDescending ? moment > otherMoment : moment < otherMoment;
    });
}

void DeletedRecordsModel::sort(int column, Qt::SortOrder order)
{
    Q_EMIT layoutAboutToBeChanged({}, VerticalSortHint);
    const QModelIndexList before = persistentIndexList();
    std::vector<qint64> identifiers;
    identifiers.reserve(static_cast<std::size_t>(before.size()));
    for (const QModelIndex& index : before)
        identifiers.push_back(record(index.row()).identifier);
    m_column = column;
    m_order = order;
    arrange();
    std::map<qint64, int> rows;
    for (int row = 0; row < rowCount(); ++row)
        rows.emplace(record(row).identifier, row);
    QModelIndexList after;
    for (qsizetype i = 0; i < before.size(); ++i)
        after << index(rows.at(identifiers[static_cast<std::size_t>(i)]), before[i].column());
    changePersistentIndexList(before, after);
    Q_EMIT layoutChanged({}, VerticalSortHint);
}

int DeletedRecordsModel::rowOf(qint64 identifier) const
{
    const auto found = std::find_if(m_rows.begin(), m_rows.end(), [identifier](const Row& row) {
        return row.record.identifier == identifier;
    });
    return found == m_rows.end() ? -1 : static_cast<int>(found - m_rows.begin());
}

int DeletedRecordsModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_rows.size());
}

int DeletedRecordsModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : 2;
}

QVariant DeletedRecordsModel::data(const QModelIndex& index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid)) return {};
    const DeletedRecord& shown = record(index.row());
    const QString text = index.column() == nameColumn
                             ? shown.name
                             : DateTimeText::programFromHeldDateTime(shown.moment.toStdString());
    if (role == Qt::DisplayRole) return text;
    if (role == Qt::ToolTipRole) return PlainToolTip::text(text);
    return {};
}

QVariant DeletedRecordsModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole || section >= columnCount()) return {};
    if (section == momentColumn) return tr("Deleted");
    return m_kind == RecordKind::Document ? tr("Title") : tr("Name");
}

// SPDX-License-Identifier: GPL-3.0-or-later

#include "history/DeletedRecordsModel.h"

#include "util/DateTimeText.h"
#include "util/TextCompare.h"
#include "widgets/PlainToolTip.h"

#include <algorithm>
#include <map>
#include <numeric>

namespace {

/// The digits of a moment in held form as a number, which sorts as the moment does; 0 if there is none.
qint64 sortKey(const QString& moment)
{
    qint64 key = 0;
    for (const QChar letter : moment)
        if (letter.isDigit()) key = key * 10 + letter.digitValue();
    return key;
}

} // namespace

void DeletedRecordsModel::setRecords(RecordKind kind, std::vector<DeletedRecord> records)
{
    beginResetModel();
    m_kind = kind;
    m_rows.clear();
    m_rows.reserve(records.size());
    for (DeletedRecord& record : records) {
        std::string name = record.name.toStdString();
        const qint64 moment = sortKey(record.moment);
        m_rows.push_back({std::move(record), std::move(name), moment});
    }
    m_places.resize(m_rows.size());
    std::iota(m_places.begin(), m_places.end(), 0u);
    arrange();
    endResetModel();
}

void DeletedRecordsModel::arrange()
{
    const bool isDescending = m_order == Qt::DescendingOrder;
    const bool byName = m_column == nameColumn;
    std::sort(m_places.begin(), m_places.end(), [&](std::uint32_t left, std::uint32_t right) {
        const Row& one = m_rows[left];
        const Row& other = m_rows[right];
        if (!byName && one.moment != other.moment) {
            if (one.moment == 0 || other.moment == 0) return other.moment == 0;
            return isDescending ? one.moment > other.moment : one.moment < other.moment;
        }
        const int names = TextCompare::compare(one.name, other.name);
        if (names == 0) return one.record.identifier < other.record.identifier;
        return byName && isDescending ? names > 0 : names < 0;
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
    for (int row = 0; row < rowCount(); ++row)
        if (record(row).identifier == identifier) return row;
    return -1;
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

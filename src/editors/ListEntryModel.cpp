// SPDX-License-Identifier: GPL-3.0-or-later

#include "editors/ListEntryModel.h"

void ListEntryModel::setEntries(std::vector<ListEntry> entries)
{
    beginResetModel();
    m_entries = std::move(entries);
    endResetModel();
}

void ListEntryModel::append(const ListEntry& entry)
{
    const int row = rowCount();
    beginInsertRows({}, row, row);
    m_entries.push_back(entry);
    endInsertRows();
}

int ListEntryModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_entries.size());
}

QVariant ListEntryModel::data(const QModelIndex& index, int role) const
{
    // a drop-down without a selection asks with an invalid index
    if (!index.isValid() || !checkIndex(index)) return {};
    const ListEntry& entry = m_entries[static_cast<std::size_t>(index.row())];
    if (role == Qt::DisplayRole || role == Qt::EditRole) return entry.display;
    if (role == Qt::UserRole) return entry.key;
    return {};
}

// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "data/ListEntry.h"

#include <QAbstractListModel>

#include <vector>

/// The entries of a drop-down, with their keys as item data.
class ListEntryModel final : public QAbstractListModel
{
    Q_OBJECT

public:
    explicit ListEntryModel(QObject* parent) : QAbstractListModel(parent) {}

    void setEntries(std::vector<ListEntry> entries);

    void append(const ListEntry& entry);

    [[nodiscard]] const std::vector<ListEntry>& entries() const { return m_entries; }

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;

private:
    std::vector<ListEntry> m_entries;
};

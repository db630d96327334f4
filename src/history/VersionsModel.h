// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "history/RecordVersions.h"

#include <QAbstractTableModel>

#include <map>

/// The versions of a record as a table: when, what, and which fields. Reads on while the list is scrolled.
class VersionsModel final : public QAbstractTableModel
{
    Q_OBJECT

public:
    using QAbstractTableModel::QAbstractTableModel;

    /// Shows the versions of a record, which must stay until others are set; null shows none.
    void setVersions(RecordVersions* versions);

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    [[nodiscard]] bool canFetchMore(const QModelIndex& parent) const override;
    void fetchMore(const QModelIndex& parent) override;

private:
    [[nodiscard]] QString text(int row, int column) const;
    [[nodiscard]] const QString& fields(int row) const;

    RecordVersions* m_versions = nullptr;
    int m_rows = 0;
    mutable std::map<int, QString> m_fields; ///< of the rows that were shown
};

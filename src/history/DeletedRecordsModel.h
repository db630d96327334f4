// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "history/DeletedRecords.h"

#include <QAbstractTableModel>

#include <cstdint>
#include <string>
#include <vector>

/// Deleted records of one kind as a table: what each is called and when it was deleted.
class DeletedRecordsModel final : public QAbstractTableModel
{
    Q_OBJECT

public:
    using QAbstractTableModel::QAbstractTableModel;

    static constexpr int nameColumn = 0;
    static constexpr int momentColumn = 1;

    /// Shows these records, in the order that was chosen last.
    void setRecords(RecordKind kind, std::vector<DeletedRecord> records);

    [[nodiscard]] const DeletedRecord& record(int row) const
    {
        return m_rows[m_places[static_cast<std::size_t>(row)]].record;
    }

    /// The row of a record; -1 if it is not there.
    [[nodiscard]] int rowOf(qint64 identifier) const;

    /// Records that are equal in the column stand in the order of their names, those without a moment behind
    /// all others.
    void sort(int column, Qt::SortOrder order) override;

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    struct Row
    {
        DeletedRecord record;
        std::string name;  ///< as it is sorted
        qint64 moment = 0; ///< the same; 0 if it is not known
    };

    void arrange();

    RecordKind m_kind = RecordKind::Document;
    std::vector<Row> m_rows;
    std::vector<std::uint32_t> m_places; ///< in m_rows, in the order that is shown
    int m_column = momentColumn;
    Qt::SortOrder m_order = Qt::DescendingOrder;
};

// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "records/PickList.h"

#include <QAbstractTableModel>

#include <cstdint>
#include <string>
#include <vector>

/// The rows of a pick list with their ticks. A filter hides rows and an order moves them; both leave the
/// ticks alone, and a hidden row that is ticked counts.
class PickListModel final : public QAbstractTableModel
{
    Q_OBJECT

public:
    using QAbstractTableModel::QAbstractTableModel;

    /// Takes the rows of a kind, each ticked if it is among the chosen ones.
    void setRows(std::vector<PickListRow> rows, PickListKind kind, const PickedItems& chosen);

    /// Shows only rows that contain every word of the text, without regard to case.
    void setFilter(const QString& text);

    void sort(int column, Qt::SortOrder order = Qt::AscendingOrder) override;

    /// Toggles the ticks of the rows.
    void toggle(const QModelIndexList& rows);

    [[nodiscard]] std::size_t count() const { return m_rows.size(); }
    [[nodiscard]] std::size_t tickedCount() const { return m_tickedCount; }

    /// What is ticked, in the order of the list, hidden rows in their place, each record once.
    /// Throws Error 6 if an identifier does not fit into 16 bits.
    [[nodiscard]] PickedItems ticked() const;

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    bool setData(const QModelIndex& index, const QVariant& value, int role) override;
    [[nodiscard]] Qt::ItemFlags flags(const QModelIndex& index) const override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

Q_SIGNALS:
    void ticksChanged();

private:
    [[nodiscard]] std::uint32_t source(const QModelIndex& index) const
    {
        return m_shown[static_cast<std::size_t>(index.row())];
    }
    [[nodiscard]] const QString& text(const PickListRow& row, int column) const;
    [[nodiscard]] std::vector<std::uint32_t> passing() const;
    void foldTexts();
    void tick(std::uint32_t row, bool on);

    PickListKind m_kind = PickListKind::Organizations;
    QStringList m_headers;
    std::vector<PickListRow> m_rows;
    std::vector<char> m_ticks;
    std::size_t m_tickedCount = 0;
    std::vector<std::uint32_t> m_order; ///< every row, as ordered
    std::vector<std::uint32_t> m_shown; ///< those that pass the filter, in the same order
    std::vector<std::string> m_folded;  ///< what the filter searches; made when first used
    std::vector<std::string> m_words;   ///< of the filter, folded
};

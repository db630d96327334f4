// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "lists/ListKind.h"
#include "lists/LookupEntry.h"

#include <QAbstractTableModel>
#include <QPixmap>
#include <QSortFilterProxyModel>

#include <functional>
#include <string>
#include <vector>

/// The entries of one list as a table, with how many records use each.
class ListsModel final : public QAbstractTableModel
{
    Q_OBJECT

public:
    using QAbstractTableModel::QAbstractTableModel;

    void setRows(ListKind list, std::vector<LookupRow> rows);

    [[nodiscard]] const LookupRow& row(int index) const { return m_rows[static_cast<std::size_t>(index)]; }

    /// The column of the number of records, behind those that describe the entry.
    [[nodiscard]] int usesColumn() const { return static_cast<int>(m_headers.size()) - 1; }

    /// A text as it is sorted.
    [[nodiscard]] const std::string& sortText(int row, int column) const;

    /// What a filter searches: the texts of a row, folded.
    [[nodiscard]] const std::string& folded(int row) const { return m_folded[static_cast<std::size_t>(row)]; }

    /// Returns the colour that the map gives to a function.
    std::function<QPixmap(qint64 function)> marker;

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    [[nodiscard]] QString text(const LookupRow& row, int column) const;

    ListKind m_list = ListKind::DocumentTypes;
    QStringList m_headers;
    std::vector<LookupRow> m_rows;
    std::vector<std::vector<std::string>> m_sortTexts; ///< by row and column
    std::vector<std::string> m_folded;
};

/// The same rows, sorted and filtered.
class SortedLists final : public QSortFilterProxyModel
{
    Q_OBJECT

public:
    SortedLists(ListsModel& model, QObject* parent);

    /// Shows only rows that contain every word of the text, without regard to case.
    void setFilter(const QString& text);

protected:
    [[nodiscard]] bool lessThan(const QModelIndex& left, const QModelIndex& right) const override;
    [[nodiscard]] bool filterAcceptsRow(int row, const QModelIndex& parent) const override;

private:
    ListsModel& m_model;
    std::vector<std::string> m_words;
};

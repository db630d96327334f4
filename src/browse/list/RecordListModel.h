// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "browse/list/FilterWords.h"
#include "browse/list/FoldedRows.h"
#include "browse/list/RecordList.h"
#include "browse/list/RowIconKeys.h"
#include "filetext/FilePassage.h"

#include <QAbstractTableModel>

#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

class IconSet;

/// The order of a list's rows that the user chose.
struct ListSort
{
    int column = 0;
    bool descending = false;

    friend bool operator==(const ListSort&, const ListSort&) = default;
};

/// The model of a record list. While the list is read, its rows are published in growing batches, since a
/// view's work for a batch grows with the number of rows that it already has. A filter shows only some of the
/// rows that were published; it stays when the list is replaced.
class RecordListModel final : public QAbstractTableModel
{
    Q_OBJECT

public:
    /// The icons and their keys must outlive the model.
    RecordListModel(std::shared_ptr<const RecordList> list, RowIconKeys& iconKeys, IconSet& icons,
                    QObject* parent);

    /// The role of the passage that a row shows below its texts.
    static constexpr int PassageRole = Qt::UserRole;

    /// Sets the passages of the next list; null for none.
    void setPassages(FilePassages passages) { m_passages = std::move(passages); }

    /// Replaces the list. The rows of the new one are shown once they are published.
    void setList(std::shared_ptr<const RecordList> list);

    /// Publishes rows: the first ones at once, later ones when there are twice as many as before.
    void publish();

    /// Publishes all rows.
    void publishAll();

    /// Orders the rows, which must all be published, or returns them to the query's order.
    void order(const std::optional<ListSort>& sort);

    /// Shows the rows that match the words from now on, or all. The views forget selection and place.
    void setFilter(const FilterWords& words);
    [[nodiscard]] const FilterWords& filter() const { return m_filter; }

    /// The row of a record in the present order, or -1 if it is not shown.
    [[nodiscard]] int rowOf(qint64 identifier) const;
    [[nodiscard]] qint64 identifier(int row) const { return m_list->identifier(source(row)); }
    [[nodiscard]] QString iconKey(int row) const;
    [[nodiscard]] const RecordList& list() const { return *m_list; }

    /// The row of the record list that is shown in a row.
    [[nodiscard]] std::size_t source(int row) const;

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    [[nodiscard]] bool marksKeys(int column) const;
    [[nodiscard]] FilePassage passage(std::size_t source) const;
    [[nodiscard]] QString accessibleText(std::size_t source, int column) const;
    [[nodiscard]] std::vector<std::uint32_t> matching(int first, int last);
    void arrange();

    RowIconKeys& m_iconKeys;
    IconSet& m_icons;
    std::shared_ptr<const RecordList> m_list;
    FilePassages m_passages;
    int m_published = 0;                 ///< rows of the list, also those that the filter hides
    std::vector<std::uint32_t> m_order;  ///< of all rows; empty for the query's order
    FilterWords m_filter;                ///< empty if all rows are shown
    FoldedRows m_folded;                 ///< empty until there is a filter
    std::vector<std::uint32_t> m_left;   ///< the rows that the filter leaves, in the query's order
    std::vector<std::uint32_t> m_sorted; ///< those in the user's order, if there is one
};

// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

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
/// view's work for a batch grows with the number of rows that it already has.
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

    /// The row of a record in the present order, or -1.
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

    RowIconKeys& m_iconKeys;
    IconSet& m_icons;
    std::shared_ptr<const RecordList> m_list;
    FilePassages m_passages;
    int m_published = 0;
    std::vector<std::uint32_t> m_order; ///< empty for the query's order
};

#pragma once

#include "browse/list/RecordList.h"
#include "browse/list/RowIconKeys.h"

#include <QAbstractTableModel>

#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

class IconSet;

/// How the rows of a list are ordered where the user chose an order.
struct ListSort
{
    int column = 0;
    bool descending = false;

    friend bool operator==(const ListSort&, const ListSort&) = default;
};

/// Shows a record list to a view. While the list is read, its rows are made known in growing batches, since
/// a view's own work for a batch grows with the rows it already has.
class RecordListModel final : public QAbstractTableModel
{
    Q_OBJECT

public:
    /// Both must outlive the model.
    RecordListModel(RowIconKeys& iconKeys, IconSet& icons, QObject* parent);

    /// Takes another list in place of the one before; its rows are known once they are published.
    void setList(std::shared_ptr<const RecordList> list);

    /// Makes rows known: the first ones at once, later ones when there are twice as many as were known.
    void publish();

    /// Makes all rows known.
    void publishAll();

    /// Orders the rows that are known, or brings them back into the query's order.
    void order(const std::optional<ListSort>& sort);

    /// The position of a record in the list as it is ordered now, or -1.
    [[nodiscard]] int rowOf(qint64 identifier) const;
    [[nodiscard]] qint64 identifier(int row) const { return m_list->identifier(source(row)); }
    [[nodiscard]] QString iconKey(int row) const;
    [[nodiscard]] const RecordList& list() const { return *m_list; }
    [[nodiscard]] std::size_t source(int row) const;

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    [[nodiscard]] bool marksKeys(int column) const;

    RowIconKeys& m_iconKeys;
    IconSet& m_icons;
    std::shared_ptr<const RecordList> m_list;
    int m_known = 0;
    std::vector<std::uint32_t> m_order; ///< empty: the query's order
};

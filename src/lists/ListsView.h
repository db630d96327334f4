// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "lists/ListKind.h"
#include "lists/LookupEntry.h"

#include <QPixmap>
#include <QWidget>

#include <functional>
#include <vector>

class ListsModel;
class QLineEdit;
class QTreeView;
class SortedLists;

/// The entries of one list with a filter above them; one of them is selected at a time. A click on a column's
/// title sorts by it.
class ListsView final : public QWidget
{
    Q_OBJECT

public:
    explicit ListsView(QWidget* parent);

    /// Returns the colour that the map gives to a function; to be set before rows are.
    void setMarker(std::function<QPixmap(qint64 function)> marker);

    /// Shows these entries in place of those before; of another list, sorted by name and without a filter.
    void setRows(ListKind list, std::vector<LookupRow> rows);

    /// The selected entry, or null.
    [[nodiscard]] const LookupRow* selected() const;

    /// Selects the entry of that key, or the first one if there is none. If the filter hides the entry,
    /// clears the filter.
    void select(qint64 key);

Q_SIGNALS:
    void selectionChanged();

    /// The user double-clicked an entry or pressed Return on it.
    void activated();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void makeTable();
    void selectShown(qint64 key);
    void giveColumnsTheirWidths();

    ListsModel* m_model;
    SortedLists* m_sorted;
    QLineEdit* m_filter;
    QTreeView* m_table;
    ListKind m_list = ListKind::DocumentTypes;
    bool m_isEmpty = true; ///< before the first rows
};

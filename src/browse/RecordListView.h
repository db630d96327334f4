#pragma once

#include <QTreeView>

/// A list of records in report style: one row a record, columns that can be widened, typing finds a name,
/// a click on a header asks for that order.
class RecordListView final : public QTreeView
{
    Q_OBJECT

public:
    explicit RecordListView(QWidget* parent);

    /// Copies the selected rows, as text with tabs and as a table.
    void copySelection() const;

    /// The rows that are selected, from the first to the last.
    [[nodiscard]] QList<int> selectedRows() const;
};

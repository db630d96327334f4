#pragma once

#include <QTreeView>

/// A list of records in report style: one row a record, columns that can be widened, typing finds a name,
/// a click on a header asks for that order.
class RecordListView final : public QTreeView
{
    Q_OBJECT

public:
    explicit RecordListView(QWidget* parent);

    /// Gives a column a width in pixels. The last one is drawn wider if there is room beside it.
    void setWidth(int column, int width);

    /// The width at which no text of a column is shortened, as far as its first rows tell.
    [[nodiscard]] int widthNeeded(int column) const { return sizeHintForColumn(column); }

    /// Copies the selected rows, as text with tabs and as a table.
    void copySelection() const;

    /// The rows that are selected, from the first to the last.
    [[nodiscard]] QList<int> selectedRows() const;

Q_SIGNALS:
    /// The user gave a column that width, in pixels.
    void widthChosen(int column, int width);

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    void takeWidth(int column, int width);
    void stretchLastColumn();

    int m_lastWidth = 0;     ///< of the last column, before it is drawn wider
    bool m_resizing = false; ///< by itself, not by the user
};

// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QTreeView>

class MarkingDelegate;

/// A list of records in report style: a row for each record, columns that the user can widen, names found by
/// typing.
class RecordListView final : public QTreeView
{
    Q_OBJECT

public:
    explicit RecordListView(QWidget* parent);

    /// Sets the width of a column in pixels. The last column is drawn wider if there is room beside it.
    void setWidth(int column, int width);

    /// The width in pixels at which no text of the column's first rows is shortened.
    [[nodiscard]] int widthNeeded(int column) const { return sizeHintForColumn(column); }

    /// Makes text and icons so many percent of the desktop's.
    void setTextSize(int percent);

    /// Marks words in the cells.
    [[nodiscard]] MarkingDelegate& marks() { return *m_marks; }

    /// Shows the passages of the rows, each below the texts of its row; from the next list on.
    void setShowsPassages(bool shows) { m_showsPassages = shows; }

    /// The height in pixels that a passage adds to each row; 0 if none are shown.
    [[nodiscard]] int passageHeight() const;

    /// Copies the selected rows, as text with tabs and as a table.
    void copySelection() const;

    /// The rows that are selected, from the first to the last.
    [[nodiscard]] QList<int> selectedRows() const;

Q_SIGNALS:
    /// The user gave a column this width, in pixels.
    void widthChosen(int column, int width);

protected:
    void resizeEvent(QResizeEvent* event) override;
    void drawRow(QPainter* painter, const QStyleOptionViewItem& option,
                 const QModelIndex& index) const override;

private:
    void takeWidth(int column, int width);
    void stretchLastColumn();
    void drawPassage(QPainter& painter, QStyleOptionViewItem& line, const QModelIndex& index) const;

    MarkingDelegate* m_marks;
    int m_lastWidth = 0; ///< of the last column in pixels, before it is drawn wider
    bool m_showsPassages = false;
    bool m_resizing = false; ///< while the program resizes columns, not the user
};

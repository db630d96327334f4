// SPDX-License-Identifier: GPL-3.0-or-later

#include "browse/list/RecordListView.h"

#include "browse/list/RecordListModel.h"
#include "widgets/MarkingDelegate.h"

#include <QApplication>
#include <QClipboard>
#include <QHeaderView>
#include <QMimeData>
#include <QPainter>
#include <QScopedValueRollback>
#include <QStyle>

#include <algorithm>
#include <memory>

namespace {

constexpr int belowPassage = 4;

/// Shows a key marker as a picture without its text, which is meant for the clipboard. As no other cell, it
/// is in every list whose rows may have passages, so it is the one that makes room for them.
class KeyMarkerDelegate final : public LineDelegate
{
public:
    explicit KeyMarkerDelegate(RecordListView* list) : LineDelegate(list), m_list(*list) {}

    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override
    {
        if (index.data(Qt::DecorationRole).isNull())
            m_list.itemDelegate()->paint(painter, option, index); // the text of a list without key records
        else
            LineDelegate::paint(painter, option, index);
    }

    [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override
    {
        QSize hint = LineDelegate::sizeHint(option, index);
        if (m_list.passageHeight() == 0) return hint;
        const int line = m_list.itemDelegate()->sizeHint(option, index.siblingAtColumn(0)).height();
        hint.setHeight(line + m_list.passageHeight());
        return hint;
    }

protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override
    {
        LineDelegate::initStyleOption(option, index);
        if (option->icon.isNull()) return;
        option->text.clear();
        option->decorationAlignment = Qt::AlignCenter;
        option->decorationPosition = QStyleOptionViewItem::Top;
        option->features &= ~QStyleOptionViewItem::ViewItemFeatures(QStyleOptionViewItem::HasDisplay);
    }

private:
    const RecordListView& m_list;
};

} // namespace

RecordListView::RecordListView(QWidget* parent) : QTreeView(parent), m_marks(new MarkingDelegate(this))
{
    setObjectName(QStringLiteral("ListView1"));
    setAccessibleName(tr("Records"));
    setRootIsDecorated(false);
    setItemsExpandable(false);
    setUniformRowHeights(true);
    setAllColumnsShowFocus(true);
    setSelectionMode(ExtendedSelection);
    setSelectionBehavior(SelectRows);
    setEditTriggers(NoEditTriggers);
    setAlternatingRowColors(true);
    setContextMenuPolicy(Qt::CustomContextMenu);
    setItemDelegate(m_marks);
    setItemDelegateForColumn(1, new KeyMarkerDelegate(this));
    // the header's own stretching forgets the user's width and also makes the column narrower
    header()->setStretchLastSection(false);
    connect(header(), &QHeaderView::sectionResized, this,
            [this](int column, int /*before*/, int width) { takeWidth(column, width); });
    header()->setSectionsClickable(true);
    header()->setSortIndicatorShown(false);
    header()->setMinimumSectionSize(20);
    header()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
}

void RecordListView::setTextSize(int percent)
{
    setFont({});
    setIconSize({});
    if (percent == 100) return;
    QFont scaled = font();
    if (scaled.pointSizeF() > 0) {
        scaled.setPointSizeF(scaled.pointSizeF() * percent / 100);
    } else {
        scaled.setPixelSize(scaled.pixelSize() * percent / 100);
    }
    setFont(scaled);
    const int icon = style()->pixelMetric(QStyle::PM_SmallIconSize, nullptr, this) * percent / 100;
    setIconSize({icon, icon});
}

void RecordListView::setWidth(int column, int width)
{
    const QScopedValueRollback resizing(m_resizing, true);
    if (column == header()->count() - 1) m_lastWidth = width;
    setColumnWidth(column, width);
    stretchLastColumn();
}

void RecordListView::takeWidth(int column, int width)
{
    if (m_resizing) return;
    if (column == header()->count() - 1) m_lastWidth = width;
    stretchLastColumn();
    Q_EMIT widthChosen(column, width);
}

void RecordListView::stretchLastColumn()
{
    const int last = header()->count() - 1;
    if (last < 0) return;
    const QScopedValueRollback resizing(m_resizing, true);
    const int room = viewport()->width() - (header()->length() - header()->sectionSize(last));
    header()->resizeSection(last, std::max(m_lastWidth, room));
}

void RecordListView::resizeEvent(QResizeEvent* event)
{
    QTreeView::resizeEvent(event);
    stretchLastColumn();
}

int RecordListView::passageHeight() const
{
    return m_showsPassages ? fontMetrics().height() + belowPassage : 0;
}

void RecordListView::drawRow(QPainter* painter, const QStyleOptionViewItem& option,
                             const QModelIndex& index) const
{
    QStyleOptionViewItem cells = option;
    cells.rect.setHeight(option.rect.height() - passageHeight());
    QTreeView::drawRow(painter, cells, index);
    if (!m_showsPassages) return;
    QStyleOptionViewItem below = option;
    below.rect.setRect(columnViewportPosition(0), cells.rect.bottom() + 1, header()->length(),
                       passageHeight());
    drawPassage(*painter, below, index);
}

/// Draws a line across all columns, with its background.
void RecordListView::drawPassage(QPainter& painter, QStyleOptionViewItem& line,
                                 const QModelIndex& index) const
{
    if (index.row() % 2 != 0) line.features |= QStyleOptionViewItem::Alternate;
    if (selectionModel()->isSelected(index)) line.state |= QStyle::State_Selected;
    style()->drawPrimitive(QStyle::PE_PanelItemViewRow, &line, &painter, this);
    style()->drawPrimitive(QStyle::PE_PanelItemViewItem, &line, &painter, this);

    const auto passage = index.siblingAtColumn(0).data(RecordListModel::PassageRole).value<FilePassage>();
    if (passage.text.isEmpty()) return;
    const int margin = style()->pixelMetric(QStyle::PM_FocusFrameHMargin, nullptr, this) + 1;
    const int icon = line.decorationSize.width() + 3 * margin;
    QRect area = line.rect.adjusted(icon, 0, -margin, -belowPassage);
    area = QStyle::visualRect(layoutDirection(), line.rect, area);
    // as much of it as can be seen, however far the list is scrolled to the side
    area.setLeft(std::max(area.left(), 0));
    area.setRight(std::min(area.right(), viewport()->width() - 1));
    MarkingDelegate::drawMarked(painter, line, area, passage.text, passage.marks);
}

QList<int> RecordListView::selectedRows() const
{
    QList<int> rows;
    const QModelIndexList selected = selectionModel()->selectedRows();
    for (const QModelIndex& index : selected)
        rows << index.row();
    std::sort(rows.begin(), rows.end());
    return rows;
}

void RecordListView::copySelection() const
{
    QString text;
    QString table = QStringLiteral("<table>");
    const QList<int> rows = selectedRows();
    if (rows.isEmpty()) return;
    for (const int row : rows) {
        QStringList cells;
        for (int column = 0; column < model()->columnCount(); ++column) {
            QString cell = model()->index(row, column).data(Qt::DisplayRole).toString();
            // a tab or a line end would split the cell where it is pasted
            std::replace_if(
                cell.begin(), cell.end(), [](QChar c) { return c == u'\t' || c == u'\n' || c == u'\r'; },
                u' ');
            cells << cell;
        }
        text += cells.join(u'\t') + u'\n';
        for (QString& cell : cells)
            cell = cell.toHtmlEscaped();
        table += QStringLiteral("<tr><td>") + cells.join(QStringLiteral("</td><td>")) +
                 QStringLiteral("</td></tr>");
    }
    auto copied = std::make_unique<QMimeData>();
    copied->setText(text);
    copied->setHtml(table + QStringLiteral("</table>"));
    QApplication::clipboard()->setMimeData(copied.release());
}

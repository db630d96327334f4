// SPDX-License-Identifier: GPL-3.0-or-later

#include "browse/list/RecordListView.h"

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

/// Shows a key marker as a picture without its text, which is meant for the clipboard.
class KeyMarkerDelegate final : public LineDelegate
{
public:
    using LineDelegate::LineDelegate;

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

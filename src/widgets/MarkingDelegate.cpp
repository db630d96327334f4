// SPDX-License-Identifier: GPL-3.0-or-later

#include "widgets/MarkingDelegate.h"

#include <QApplication>
#include <QPainter>
#include <QTextLayout>

namespace {

constexpr QColor markColour(255, 221, 87);
constexpr QColor markedText(20, 20, 20);

QPalette::ColorGroup groupOf(const QStyleOptionViewItem& option)
{
    if (!(option.state & QStyle::State_Enabled)) return QPalette::Disabled;
    return option.state & QStyle::State_Active ? QPalette::Active : QPalette::Inactive;
}

QList<QTextLayout::FormatRange> formats(const std::vector<TextRange>& places)
{
    QTextCharFormat mark;
    mark.setBackground(markColour);
    mark.setForeground(markedText);
    QList<QTextLayout::FormatRange> ranges;
    for (const TextRange& place : places) {
        ranges << QTextLayout::FormatRange{static_cast<int>(place.begin),
                                           static_cast<int>(place.end - place.begin), mark};
    }
    return ranges;
}

} // namespace

std::vector<TextRange> MarkingDelegate::marks(const QModelIndex& index, const QString& text) const
{
    std::vector<TextRange> ranges;
    for (const Marker& marker : m_markers) {
        const std::vector<TextRange> more = marker(index, text);
        ranges.insert(ranges.end(), more.begin(), more.end());
    }
    return merged(std::move(ranges));
}

void MarkingDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                            const QModelIndex& index) const
{
    QStyleOptionViewItem item = option;
    initStyleOption(&item, index);
    const std::vector<TextRange> places = marks(index, item.text);
    if (places.empty()) {
        LineDelegate::paint(painter, option, index);
        return;
    }
    const QStyle* style = item.widget != nullptr ? item.widget->style() : QApplication::style();
    const QRect area = style->subElementRect(QStyle::SE_ItemViewItemText, &item, item.widget);
    const int margin = style->pixelMetric(QStyle::PM_FocusFrameHMargin, nullptr, item.widget) + 1;
    const QString text = item.text;
    item.text.clear();
    style->drawControl(QStyle::CE_ItemViewItem, &item, painter, item.widget);
    drawMarked(*painter, item, area.adjusted(margin, 0, -margin, 0), text, places);
}

void MarkingDelegate::drawMarked(QPainter& painter, const QStyleOptionViewItem& item, const QRect& area,
                                 const QString& text, const std::vector<TextRange>& ranges)
{
    QTextLayout layout(item.fontMetrics.elidedText(text, Qt::ElideRight, area.width()), item.font);
    // a mark beyond the end of the elided text is cut off with it
    layout.setFormats(formats(ranges));
    layout.beginLayout();
    const QTextLine line = layout.createLine();
    layout.endLayout();
    if (!line.isValid()) return;
    painter.save();
    painter.setClipRect(area);
    painter.setPen(item.palette.color(
        groupOf(item), item.state & QStyle::State_Selected ? QPalette::HighlightedText : QPalette::Text));
    layout.draw(&painter, QPointF(area.left(), area.top() + (area.height() - line.height()) / 2));
    painter.restore();
}

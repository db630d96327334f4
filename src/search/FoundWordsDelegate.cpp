// SPDX-License-Identifier: GPL-3.0-or-later

#include "search/FoundWordsDelegate.h"

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

QList<QTextLayout::FormatRange> formats(const std::vector<FoundWords::Range>& places)
{
    QTextCharFormat mark;
    mark.setBackground(markColour);
    mark.setForeground(markedText);
    QList<QTextLayout::FormatRange> ranges;
    for (const FoundWords::Range& place : places) {
        ranges << QTextLayout::FormatRange{static_cast<int>(place.begin),
                                           static_cast<int>(place.end - place.begin), mark};
    }
    return ranges;
}

} // namespace

void FoundWordsDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                               const QModelIndex& index) const
{
    QStyleOptionViewItem item = option;
    initStyleOption(&item, index);
    const auto places = m_words.in(item.text);
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

    const QRect inner = area.adjusted(margin, 0, -margin, 0);
    QTextLayout layout(item.fontMetrics.elidedText(text, Qt::ElideRight, inner.width()), item.font);
    // a mark beyond the end of the elided text is cut off with it
    layout.setFormats(formats(places));
    layout.beginLayout();
    const QTextLine line = layout.createLine();
    layout.endLayout();
    if (!line.isValid()) return;
    painter->save();
    painter->setClipRect(inner);
    painter->setPen(item.palette.color(
        groupOf(item), item.state & QStyle::State_Selected ? QPalette::HighlightedText : QPalette::Text));
    layout.draw(painter, QPointF(inner.left(), inner.top() + (inner.height() - line.height()) / 2));
    painter->restore();
}

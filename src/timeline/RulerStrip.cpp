// SPDX-License-Identifier: GPL-3.0-or-later

#include "timeline/RulerStrip.h"

#include "timeline/Timeline.h"

#include <QEvent>
#include <QLabel>
#include <QPainter>

namespace {

constexpr int captionGap = 3;
constexpr int tickRoom = 14;

/// The height of a tick by its rank. Ticks of days and longer cross the row of dates too.
int tickHeight(TimelineRuler::Rank rank, int whole)
{
    switch (rank) {
    case TimelineRuler::Rank::Part:
        return 5;
    case TimelineRuler::Rank::Step:
        return tickRoom;
    case TimelineRuler::Rank::Day:
    case TimelineRuler::Rank::Month:
    case TimelineRuler::Rank::Year:
        return whole;
    }
    return 0;
}

QColor faint(QColor colour)
{
    colour.setAlpha(140);
    return colour;
}

} // namespace

RulerStrip::RulerStrip(const Timeline& timeline, QWidget* parent) : QWidget(parent), m_timeline(timeline)
{
    setObjectName(QStringLiteral("imgTime"));
    setAccessibleName(tr("Time scale"));
    chooseDateFont();
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    for (std::size_t i = 0; i < m_captions.size(); ++i) {
        m_captions[i] = new QLabel(this);
        m_captions[i]->setObjectName(QStringLiteral("uCurrentTimeLabel(%1)").arg(i));
        m_captions[i]->setForegroundRole(QPalette::Text);
    }
}

int RulerStrip::captionRow() const
{
    return fontMetrics().height() + 2;
}

void RulerStrip::chooseDateFont()
{
    m_dateFont = font();
    m_dateFont.setBold(true);
}

void RulerStrip::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::FontChange) chooseDateFont();
}

int RulerStrip::labelWidth(const QString& text, bool isDate) const
{
    return (isDate ? QFontMetrics(m_dateFont) : fontMetrics()).horizontalAdvance(text) + 1;
}

QSize RulerStrip::sizeHint() const
{
    return {TimelineScale::stepWidth, captionRow() + 2 * fontMetrics().height() + tickRoom / 2};
}

QSize RulerStrip::minimumSizeHint() const
{
    return {0, sizeHint().height()};
}

void RulerStrip::showRuler()
{
    const auto texts = m_timeline.captions();
    for (std::size_t i = 0; i < m_captions.size(); ++i) {
        QLabel& caption = *m_captions[i];
        caption.setText(texts[i]);
        caption.adjustSize();
        const int at = static_cast<int>(i) * TimelineScale::stepWidth;
        // a caption that does not fit to the right of its moment stands to the left of it
        const bool fits = at + captionGap + caption.width() <= width();
        caption.move(fits ? at + captionGap : at - captionGap - caption.width(), 0);
        caption.setVisible(at < width());
    }
    update();
}

void RulerStrip::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    painter.setPen(palette().color(QPalette::Highlight));
    for (int i = 0; i < static_cast<int>(m_captions.size()); ++i) {
        painter.drawLine(i * TimelineScale::stepWidth, 2, i * TimelineScale::stepWidth, captionRow() - 2);
    }
    const int top = captionRow();
    painter.fillRect(0, top, width(), height() - top, palette().color(QPalette::AlternateBase));
    paintTicks(painter, top);
    paintLabels(painter, top);
}

void RulerStrip::paintTicks(QPainter& painter, int top) const
{
    const QColor plain = palette().color(QPalette::WindowText);
    for (const TimelineRuler::Tick& tick : m_timeline.ruler().ticks) {
        painter.setPen(tick.rank == TimelineRuler::Rank::Part ? faint(plain) : plain);
        const int length = tickHeight(tick.rank, height() - top);
        painter.drawLine(QLineF(tick.left, height() - length, tick.left, height()));
    }
    painter.setPen(faint(plain));
    painter.drawLine(0, height() - 1, width(), height() - 1);
}

void RulerStrip::paintLabels(QPainter& painter, int top) const
{
    const QColor plain = palette().color(QPalette::WindowText);
    const int lineHeight = fontMetrics().height();
    for (const TimelineRuler::Label& label : m_timeline.ruler().labels) {
        const int row = label.isDate ? top : top + lineHeight;
        painter.setFont(label.isDate ? m_dateFont : font());
        painter.setPen(label.rank == TimelineRuler::Rank::Part ? faint(plain) : plain);
        // a date at the right edge covers its tick
        if (label.isDate) {
            const QRectF room(label.left - 1, row, labelWidth(label.text, true) + 2, lineHeight);
            painter.fillRect(room, palette().color(QPalette::AlternateBase));
        }
        painter.drawText(QPointF(label.left, row + fontMetrics().ascent()), label.text);
    }
}

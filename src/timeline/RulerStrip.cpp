// SPDX-License-Identifier: GPL-3.0-or-later

#include "timeline/RulerStrip.h"

#include "timeline/Timeline.h"

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

QFont bold(QFont font)
{
    font.setBold(true);
    return font;
}

} // namespace

RulerStrip::RulerStrip(const Timeline& timeline, QWidget* parent) : QWidget(parent), m_timeline(timeline)
{
    setObjectName(QStringLiteral("imgTime"));
    setAccessibleName(tr("Time scale"));
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

int RulerStrip::labelWidth(const QString& text, bool isDate) const
{
    return (isDate ? QFontMetrics(bold(font())) : fontMetrics()).horizontalAdvance(text) + 1;
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
    paintScale(painter, palette());
}

void RulerStrip::draw(QPainter& painter, const QPalette& palette) const
{
    paintScale(painter, palette);
    painter.setPen(palette.color(QPalette::Text));
    for (const QLabel* caption : m_captions) {
        if (!caption->isHidden()) painter.drawText(caption->geometry(), Qt::AlignVCenter, caption->text());
    }
}

void RulerStrip::paintScale(QPainter& painter, const QPalette& palette) const
{
    painter.setPen(palette.color(QPalette::Highlight));
    for (int i = 0; i < static_cast<int>(m_captions.size()); ++i) {
        const int at = i * TimelineScale::stepWidth;
        if (at < width()) painter.drawLine(at, 2, at, captionRow() - 2);
    }
    const int top = captionRow();
    painter.fillRect(0, top, width(), height() - top, palette.color(QPalette::AlternateBase));
    paintTicks(painter, palette, top);
    paintLabels(painter, palette, top);
}

void RulerStrip::paintTicks(QPainter& painter, const QPalette& palette, int top) const
{
    const QColor plain = palette.color(QPalette::WindowText);
    for (const TimelineRuler::Tick& tick : m_timeline.ruler().ticks) {
        painter.setPen(tick.rank == TimelineRuler::Rank::Part ? faint(plain) : plain);
        const int length = tickHeight(tick.rank, height() - top);
        painter.drawLine(QLineF(tick.left, height() - length, tick.left, height()));
    }
    painter.setPen(faint(plain));
    painter.drawLine(0, height() - 1, width(), height() - 1);
}

void RulerStrip::paintLabels(QPainter& painter, const QPalette& palette, int top) const
{
    const QColor plain = palette.color(QPalette::WindowText);
    const QFont timeFont = painter.font();
    const QFont dateFont = bold(timeFont);
    const int lineHeight = fontMetrics().height();
    for (const TimelineRuler::Label& label : m_timeline.ruler().labels) {
        const int row = label.isDate ? top : top + lineHeight;
        painter.setFont(label.isDate ? dateFont : timeFont);
        painter.setPen(label.rank == TimelineRuler::Rank::Part ? faint(plain) : plain);
        // a date at the right edge covers its tick
        if (label.isDate) {
            const QRectF room(label.left - 1, row, labelWidth(label.text, true) + 2, lineHeight);
            painter.fillRect(room, palette.color(QPalette::AlternateBase));
        }
        painter.drawText(QPointF(label.left, row + fontMetrics().ascent()), label.text);
    }
    painter.setFont(timeFont);
}

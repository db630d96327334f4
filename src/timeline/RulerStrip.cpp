#include "timeline/RulerStrip.h"

#include "timeline/Timeline.h"

#include <QLabel>
#include <QPainter>

namespace {

constexpr int captionGap = 3;
constexpr int tickRoom = 14;

/// The heights of the ticks, by rank; those of days and longer cross the row of dates too.
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
        // at the right edge the caption stands before its moment rather than half beyond the edge
        const bool fits = at + captionGap + caption.width() <= width();
        caption.move(fits ? at + captionGap : at - captionGap - caption.width(), 0);
        caption.setVisible(at < width());
    }
    update();
}

void RulerStrip::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    const QColor text = palette().color(QPalette::WindowText);
    QColor faint = text;
    faint.setAlpha(140);
    painter.setPen(palette().color(QPalette::Highlight));
    for (int i = 0; i < static_cast<int>(m_captions.size()); ++i) {
        painter.drawLine(i * TimelineScale::stepWidth, 2, i * TimelineScale::stepWidth, captionRow() - 2);
    }

    const int rulerTop = captionRow();
    painter.fillRect(0, rulerTop, width(), height() - rulerTop, palette().color(QPalette::AlternateBase));
    for (const TimelineRuler::Tick& tick : m_timeline.ruler().ticks) {
        painter.setPen(tick.rank == TimelineRuler::Rank::Part ? faint : text);
        const int length = tickHeight(tick.rank, height() - rulerTop);
        painter.drawLine(QLineF(tick.left, height() - length, tick.left, height()));
    }
    const int lineHeight = fontMetrics().height();
    QFont plain = font();
    QFont bold = font();
    bold.setBold(true);
    for (const TimelineRuler::Label& label : m_timeline.ruler().labels) {
        painter.setFont(label.isDate ? bold : plain);
        painter.setPen(label.rank == TimelineRuler::Rank::Part ? faint : text);
        const int top = rulerTop + (label.isDate ? 0 : lineHeight);
        painter.drawText(QPointF(label.left, top + fontMetrics().ascent()), label.text);
    }
    painter.setPen(faint);
    painter.drawLine(0, height() - 1, width(), height() - 1);
}

// SPDX-License-Identifier: GPL-3.0-or-later

#include "timeline/EventLabel.h"

#include "widgets/PlainToolTip.h"

#include <QHelpEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QToolTip>

EventLabel::EventLabel(QWidget* parent) : QLabel(parent)
{
    setTextFormat(Qt::PlainText);
    hide();
}

void EventLabel::showLane(const Lane& lane, int index)
{
    m_eventId = lane.eventId;
    m_isInside = lane.place == Lane::CaptionPlace::Inside;
    setProperty("tag", lane.eventId);
    setText(lane.caption);
    setToolTip(lane.toolTip);
    setAccessibleName(lane.toolTip);
    setGeometry(lane.captionLeft, index * TimelineLanes::laneHeight, lane.captionWidth,
                TimelineLanes::laneHeight);
    show();
}

bool EventLabel::event(QEvent* event)
{
    if (event->type() != QEvent::ToolTip) return QLabel::event(event);
    QToolTip::showText(static_cast<QHelpEvent*>(event)->globalPos(), PlainToolTip::text(toolTip()), this);
    return true;
}

void EventLabel::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    draw(painter, palette());
}

void EventLabel::draw(QPainter& painter, const QPalette& palette) const
{
    painter.setPen(m_isInside ? QColor(Qt::white) : palette.color(QPalette::Text));
    const QString fitting = painter.fontMetrics().elidedText(text(), Qt::ElideRight, width());
    painter.drawText(rect(), Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine, fitting);
}

void EventLabel::mousePressEvent(QMouseEvent* event)
{
    m_pressed = event->button();
    // the middle button drags the picture below
    if (m_pressed == Qt::MiddleButton) event->ignore();
}

void EventLabel::mouseReleaseEvent(QMouseEvent* event)
{
    const bool isClick = m_pressed == event->button() && rect().contains(event->position().toPoint());
    m_pressed = Qt::NoButton;
    if (!isClick) return;
    if (event->button() == Qt::LeftButton) Q_EMIT clicked(m_eventId);
    if (event->button() == Qt::RightButton) {
        Q_EMIT menuRequested(m_eventId, event->globalPosition().toPoint());
    }
}

void EventLabel::mouseDoubleClickEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton) Q_EMIT doubleClicked(m_eventId);
}

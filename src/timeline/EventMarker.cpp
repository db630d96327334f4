// SPDX-License-Identifier: GPL-3.0-or-later

#include "timeline/EventMarker.h"

#include "timeline/TimelineColours.h"

#include <QPainter>
#include <QPolygonF>

#include <cmath>

namespace {

constexpr int outlineAlpha = 160;

QPolygonF diamond(const QRectF& place)
{
    const QPointF middle = place.center();
    return {{{middle.x(), place.top()},
             {place.right(), middle.y()},
             {middle.x(), place.bottom()},
             {place.left(), middle.y()}}};
}

EventMarker::Picture pictureOf(const Lane& lane)
{
    using Picture = EventMarker::Picture;
    if (lane.isSelected) return lane.isKey ? Picture::imgSelectedKey : Picture::imgSelected;
    return lane.isKey ? Picture::imgDefaultKey : Picture::imgDefault;
}

} // namespace

EventMarker::EventMarker(QWidget* parent) : QWidget(parent)
{
    setAttribute(Qt::WA_TransparentForMouseEvents);
    hide();
}

void EventMarker::showLane(const Lane& lane, int index)
{
    m_picture = pictureOf(lane);
    setGeometry(static_cast<int>(std::lround(lane.markerLeft)), index * TimelineLanes::laneHeight,
                TimelineLanes::markerWidth, TimelineLanes::laneHeight);
    show();
    update();
}

void EventMarker::paintKey(QPainter& painter, const QRectF& place)
{
    painter.setPen(QPen(TimelineColours::keyEdge, 1));
    painter.setBrush(TimelineColours::key);
    painter.drawPolygon(diamond(place));
}

void EventMarker::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const bool isSelected = m_picture == Picture::imgSelected || m_picture == Picture::imgSelectedKey;
    const bool isKey = m_picture == Picture::imgDefaultKey || m_picture == Picture::imgSelectedKey;
    const QPointF middle = QRectF(rect()).center();
    // at an edge of the timeline it is drawn narrower rather than cut off
    const QRectF seen = parentWidget()->rect().translated(-pos());
    const QRectF whole(middle.x() - 7, middle.y() - 7, 14, 14);
    const QRectF outer = whole.intersected(seen.adjusted(0.5, 0, -0.5, 0));
    // the colours are dark: an outline sets them off from a dark background
    QColor outline = palette().color(QPalette::Text);
    outline.setAlpha(outlineAlpha);
    painter.setPen(QPen(outline, 1));
    painter.setBrush(isSelected ? TimelineColours::selected : TimelineColours::event);
    painter.drawPolygon(diamond(outer));
    const double inset = 3 * outer.width() / whole.width();
    if (isKey) paintKey(painter, outer.adjusted(inset, 3, -inset, -3));
}

// SPDX-License-Identifier: GPL-3.0-or-later

#include "timeline/EventMarker.h"

#include "timeline/TimelineColours.h"

#include <QPainter>
#include <QPolygonF>

#include <algorithm>
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
    painter.translate(-pos());
    draw(painter, m_picture, QRectF(geometry()).center(), parentWidget()->width(),
         palette().color(QPalette::Text));
}

void EventMarker::draw(QPainter& painter, Picture picture, QPointF middle, double width, const QColor& text)
{
    painter.setRenderHint(QPainter::Antialiasing);
    const bool isSelected = picture == Picture::imgSelected || picture == Picture::imgSelectedKey;
    const bool isKey = picture == Picture::imgDefaultKey || picture == Picture::imgSelectedKey;
    const QRectF whole(middle.x() - 7, middle.y() - 7, 14, 14);
    const double left = std::max(whole.left(), 0.5);
    const QRectF outer(left, whole.top(), std::min(whole.right(), width - 0.5) - left, whole.height());
    // the colours are dark: an outline sets them off from a dark background
    QColor outline = text;
    outline.setAlpha(outlineAlpha);
    painter.setPen(QPen(outline, 1));
    painter.setBrush(isSelected ? TimelineColours::selected : TimelineColours::event);
    painter.drawPolygon(diamond(outer));
    const double inset = 3 * outer.width() / whole.width();
    if (isKey) paintKey(painter, outer.adjusted(inset, 3, -inset, -3));
}

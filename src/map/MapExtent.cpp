#include "map/MapExtent.h"

#include "map/MapProjection.h"

#include <algorithm>

namespace {

constexpr double smallestScale = 0.0001;
constexpr double largestScale = 1;
constexpr double roomAround = 1.04;

/// How far the middle of the map can be moved.
const QRectF& middleBounds()
{
    static const QRectF bounds(MapProjection::toPlane(-276, 84), MapProjection::toPlane(84, -84));
    return bounds;
}

} // namespace

MapExtent::MapExtent() : m_fitted(MapProjection::contiguousStates())
{
    applyFit();
}

void MapExtent::setSize(QSizeF pixels)
{
    m_size = pixels.expandedTo(QSizeF(1, 1));
    if (m_isFitted) applyFit();
}

void MapExtent::fit(const QRectF& plane)
{
    m_fitted = plane;
    m_isFitted = true;
    applyFit();
}

void MapExtent::applyFit()
{
    m_centre = m_fitted.center();
    m_scale = roomAround * std::max(m_fitted.width() / m_size.width(), m_fitted.height() / m_size.height());
    keepInBounds();
}

void MapExtent::zoom(double factor, QPointF about)
{
    const QPointF below = toPlane(about);
    m_isFitted = false;
    m_scale = std::clamp(m_scale / factor, smallestScale, largestScale);
    m_centre += below - toPlane(about);
    keepInBounds();
}

void MapExtent::zoomTo(const QRectF& screen)
{
    const QRectF plane(toPlane(screen.topLeft()), toPlane(screen.bottomRight()));
    m_isFitted = false;
    m_centre = plane.center();
    m_scale = std::max(plane.width() / m_size.width(), plane.height() / m_size.height());
    keepInBounds();
}

void MapExtent::pan(QPointF pixels)
{
    m_isFitted = false;
    m_centre -= pixels * m_scale;
    keepInBounds();
}

void MapExtent::show(QPointF plane)
{
    const QPointF screen = toScreen(plane);
    if (QRectF(QPointF(), m_size).contains(screen)) return;
    m_isFitted = false;
    m_centre = plane;
    keepInBounds();
}

void MapExtent::keepInBounds()
{
    const QRectF& bounds = middleBounds();
    m_scale = std::clamp(m_scale, smallestScale, largestScale);
    m_centre.setX(std::clamp(m_centre.x(), bounds.left(), bounds.right()));
    m_centre.setY(std::clamp(m_centre.y(), bounds.top(), bounds.bottom()));
}

QPointF MapExtent::toScreen(QPointF plane) const
{
    return (plane - m_centre) / m_scale + QPointF(m_size.width() / 2, m_size.height() / 2);
}

QPointF MapExtent::toPlane(QPointF screen) const
{
    return m_centre + (screen - QPointF(m_size.width() / 2, m_size.height() / 2)) * m_scale;
}

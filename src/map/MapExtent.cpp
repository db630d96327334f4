// SPDX-License-Identifier: GPL-3.0-or-later

#include "map/MapExtent.h"

#include "map/MapProjection.h"

#include <algorithm>
#include <iterator>

namespace {

constexpr double smallestScale = 0.0001;
constexpr double largestScale = 1;
constexpr double roomAround = 1.04;

/// Places beyond the contiguous states are left out of sight if they are at most one in so many.
constexpr std::size_t shareLeftOut = 8;

/// In degrees of longitude; what is around a single place tells where it is.
constexpr double smallestStretch = 6;

/// Returns the places that are to be in sight.
std::vector<QPointF> mainPlaces(const std::vector<QPointF>& places)
{
    const QRectF states = MapProjection::contiguousStates();
    std::vector<QPointF> within;
    std::copy_if(places.begin(), places.end(), std::back_inserter(within),
                 [&states](QPointF place) { return states.contains(place); });
    return (places.size() - within.size()) * shareLeftOut <= places.size() ? within : places;
}

/// The rectangle around places, at least as large as the smallest stretch.
QRectF around(const std::vector<QPointF>& places)
{
    const auto [left, right] =
        std::minmax_element(places.begin(), places.end(), [](QPointF a, QPointF b) { return a.x() < b.x(); });
    const auto [top, bottom] =
        std::minmax_element(places.begin(), places.end(), [](QPointF a, QPointF b) { return a.y() < b.y(); });
    const QRectF bounds(QPointF(left->x(), top->y()), QPointF(right->x(), bottom->y()));
    QRectF stretch(QPointF(), bounds.size().expandedTo(QSizeF(smallestStretch, smallestStretch)));
    stretch.moveCenter(bounds.center());
    return stretch;
}

/// The bounds of the middle of the map.
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
    fitWithInsets(plane, {});
}

void MapExtent::fitWithInsets(const QRectF& whole, std::vector<InsetState> states)
{
    m_fitted = whole;
    m_insetStates = std::move(states);
    m_isFitted = true;
    applyFit();
}

void MapExtent::applyFit()
{
    m_insets.clear();
    if (!m_insetStates.empty()) {
        const QRectF states = MapProjection::contiguousStates();
        fitTo(states);
        m_insets = layOutInsets(m_insetStates,
                                {toMainScreen(states.topLeft()), toMainScreen(states.bottomRight())}, m_size);
    }
    if (m_insets.empty()) fitTo(m_fitted);
}

void MapExtent::fitTo(const QRectF& plane)
{
    m_centre = plane.center();
    m_scale = fittingScale(plane);
    keepInBounds();
}

double MapExtent::fittingScale(const QRectF& plane) const
{
    return roomAround * std::max(plane.width() / m_size.width(), plane.height() / m_size.height());
}

/// The map is that of the user from here on, without insets.
void MapExtent::leaveFit()
{
    m_isFitted = false;
    m_insetStates.clear();
    m_insets.clear();
}

void MapExtent::zoom(double factor, QPointF about)
{
    const auto inset = factor > 1 ? insetAt(about) : std::nullopt;
    const QPointF below = inset ? toPlane(about) : toMainPlane(about);
    const double scale = inset ? m_insets[*inset].scale() : m_scale;
    leaveFit();
    m_scale = std::clamp(scale / factor, smallestScale, largestScale);
    m_centre += below - toPlane(about);
    keepInBounds();
}

void MapExtent::zoomTo(const QRectF& screen)
{
    const auto inset = insetAt(screen.center());
    const auto corner = [&](QPointF point) {
        return inset ? m_insets[*inset].toPlane(point) : toMainPlane(point);
    };
    const QRectF plane(corner(screen.topLeft()), corner(screen.bottomRight()));
    leaveFit();
    m_centre = plane.center();
    m_scale = std::max(plane.width() / m_size.width(), plane.height() / m_size.height());
    keepInBounds();
}

void MapExtent::pan(QPointF pixels)
{
    leaveFit();
    m_centre -= pixels * m_scale;
    keepInBounds();
}

void MapExtent::show(QPointF plane)
{
    if (isInSight(plane)) return;
    leaveFit();
    m_centre = plane;
    keepInBounds();
}

void MapExtent::goTo(const std::vector<QPointF>& places)
{
    if (places.empty()) return fit(MapProjection::contiguousStates());
    const std::vector<QPointF> wanted = mainPlaces(places);
    if (std::all_of(wanted.begin(), wanted.end(), [this](QPointF place) { return isInSight(place); })) return;
    const QRectF states = MapProjection::contiguousStates();
    const QRectF stretch = around(wanted);
    // for places all over the states, all of the states is the more familiar picture
    const bool isMost = states.contains(stretch) && stretch.width() > states.width() / 2;
    fit(isMost ? states : stretch);
}

void MapExtent::keepInBounds()
{
    const QRectF& bounds = middleBounds();
    m_scale = std::clamp(m_scale, smallestScale, largestScale);
    m_centre.setX(std::clamp(m_centre.x(), bounds.left(), bounds.right()));
    m_centre.setY(std::clamp(m_centre.y(), bounds.top(), bounds.bottom()));
}

std::optional<std::size_t> MapExtent::insetOf(QPointF plane) const
{
    const auto found = std::ranges::find_if(
        m_insets, [plane](const MapInset& inset) { return inset.state().bounds.contains(plane); });
    if (found == m_insets.end()) return std::nullopt;
    return static_cast<std::size_t>(found - m_insets.begin());
}

std::optional<std::size_t> MapExtent::insetAt(QPointF screen) const
{
    const auto found = std::ranges::find_if(
        m_insets, [screen](const MapInset& inset) { return inset.frame().contains(screen); });
    if (found == m_insets.end()) return std::nullopt;
    return static_cast<std::size_t>(found - m_insets.begin());
}

bool MapExtent::isCovered(QPointF plane) const
{
    return !insetOf(plane) && insetAt(toMainScreen(plane));
}

bool MapExtent::isInSight(QPointF plane) const
{
    return QRectF(QPointF(), m_size).contains(toScreen(plane)) && !isCovered(plane);
}

QPointF MapExtent::toScreen(QPointF plane) const
{
    const auto inset = insetOf(plane);
    return inset ? m_insets[*inset].toScreen(plane) : toMainScreen(plane);
}

QPointF MapExtent::toPlane(QPointF screen) const
{
    const auto inset = insetAt(screen);
    return inset ? m_insets[*inset].toPlane(screen) : toMainPlane(screen);
}

QPointF MapExtent::toMainScreen(QPointF plane) const
{
    return (plane - m_centre) / m_scale + QPointF(m_size.width() / 2, m_size.height() / 2);
}

QPointF MapExtent::toMainPlane(QPointF screen) const
{
    return m_centre + (screen - QPointF(m_size.width() / 2, m_size.height() / 2)) * m_scale;
}

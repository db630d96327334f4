// SPDX-License-Identifier: GPL-3.0-or-later

#include "map/PlaceMarkers.h"

#include "map/LegendLines.h"
#include "map/MapProjection.h"
#include "map/MarkerHit.h"

#include <QPainter>

#include <algorithm>
#include <cmath>
#include <numeric>
#include <set>

namespace {

constexpr double smallestMarker = 9;
constexpr double largestMarker = 14;
constexpr double hitRadius = 14;
constexpr double ringWidth = 2.5;

double diameter(const MapExtent& extent)
{
    return std::round(std::clamp(extent.markerScale() / extent.scale(), smallestMarker, largestMarker));
}

} // namespace

void PlaceMarkers::set(const std::vector<clsCities>& places)
{
    m_positions.clear();
    m_colours.clear();
    m_names.clear();
    m_topmost.clear();
    m_byName.clear();
    for (const clsCities& place : places) {
        m_positions.push_back(MapProjection::toPlane(place.lon, place.lat));
        m_colours.push_back(place.colour);
        m_names.push_back(place.placeText() + QStringLiteral(": ") + functionName(place));
    }
    // of markers at the same position, only the last can be seen
    std::set<std::pair<double, double>> covered;
    for (std::size_t entry = m_positions.size(); entry-- > 0;) {
        if (covered.insert({m_positions[entry].x(), m_positions[entry].y()}).second)
            m_topmost.push_back(entry);
    }
    std::reverse(m_topmost.begin(), m_topmost.end());
}

std::vector<MapObstacle> PlaceMarkers::obstacles() const
{
    std::vector<MapObstacle> obstacles;
    obstacles.reserve(m_topmost.size());
    for (const std::size_t entry : m_topmost)
        obstacles.push_back({m_positions[entry], largestMarker / 2});
    return obstacles;
}

std::optional<std::size_t> PlaceMarkers::entryAt(QPointF screen, const MapExtent& extent) const
{
    std::vector<std::size_t> seen;
    std::vector<QPointF> middles;
    for (std::size_t entry = 0; entry < m_positions.size(); ++entry) {
        if (extent.isCovered(m_positions[entry])) continue;
        seen.push_back(entry);
        middles.push_back(extent.toScreen(m_positions[entry]));
    }
    const auto hit = markerAt(middles, screen, {m_pictures.extent() / 2, hitRadius});
    return hit ? std::optional(seen[*hit]) : std::nullopt;
}

std::size_t PlaceMarkers::neighbour(std::optional<std::size_t> entry, int step) const
{
    if (m_byName.empty()) {
        m_byName.resize(m_positions.size());
        std::iota(m_byName.begin(), m_byName.end(), std::size_t{0});
        std::stable_sort(m_byName.begin(), m_byName.end(),
                         [this](std::size_t a, std::size_t b) { return m_names[a] < m_names[b]; });
    }
    const auto total = static_cast<int>(m_byName.size());
    int place = step > 0 ? 0 : total - 1;
    if (entry) {
        const auto found = std::find(m_byName.begin(), m_byName.end(), *entry);
        place = (static_cast<int>(found - m_byName.begin()) + step + total) % total;
    }
    return m_byName[static_cast<std::size_t>(place)];
}

void PlaceMarkers::paint(QPainter& painter, const MapExtent& extent, const QRect& sight,
                         double devicePixelRatio)
{
    const double ratio = devicePixelRatio;
    m_pictures.prepare(diameter(extent), ratio);
    const double half = m_pictures.extent() / 2;
    const QRectF reach = QRectF(sight).adjusted(-half, -half, half, half);
    for (const std::size_t entry : m_topmost) {
        const QPointF middle = extent.toScreen(m_positions[entry]);
        if (!reach.contains(middle) || extent.isCovered(m_positions[entry])) continue;
        // on whole device pixels, a picture is copied without smoothing
        const QPointF corner(std::round((middle.x() - half) * ratio) / ratio,
                             std::round((middle.y() - half) * ratio) / ratio);
        painter.drawPixmap(corner, m_pictures.marker(m_colours[entry]));
    }
}

void PlaceMarkers::draw(QPainter& painter, const MapExtent& extent) const
{
    // at half a pixel from one another, the later of two markers covers the one before
    std::set<std::pair<int, int>> covered;
    std::vector<std::size_t> seen;
    for (auto entry = m_topmost.rbegin(); entry != m_topmost.rend(); ++entry) {
        const QPointF middle = extent.toScreen(m_positions[*entry]);
        const QPoint place = (middle * 2).toPoint();
        if (extent.isInSight(m_positions[*entry]) && covered.insert({place.x(), place.y()}).second)
            seen.push_back(*entry);
    }
    for (auto entry = seen.rbegin(); entry != seen.rend(); ++entry)
        MarkerPictures::draw(painter, m_colours[*entry], extent.toScreen(m_positions[*entry]),
                             diameter(extent));
}

void PlaceMarkers::paintRinged(QPainter& painter, const MapExtent& extent, std::size_t entry,
                               const QColor& colour) const
{
    painter.setRenderHint(QPainter::Antialiasing);
    const QPointF middle = extent.toScreen(m_positions.at(entry));
    const double radius = m_pictures.extent() / 2 + ringWidth;
    painter.drawPixmap(middle - QPointF(1, 1) * (m_pictures.extent() / 2),
                       m_pictures.marker(m_colours[entry]));
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(Qt::white, ringWidth + 2));
    painter.drawEllipse(middle, radius, radius);
    painter.setPen(QPen(colour, ringWidth));
    painter.drawEllipse(middle, radius, radius);
    painter.setRenderHint(QPainter::Antialiasing, false);
}

// SPDX-License-Identifier: GPL-3.0-or-later

#include "map/StateOutlines.h"

#include <algorithm>
#include <cmath>

namespace {

/// In pixels. Points in one cell of this grid become one, the same ones on both sides of a common border.
constexpr double grid = 0.25;

QPointF onGrid(QPointF pixels)
{
    return {std::round(pixels.x() / grid) * grid, std::round(pixels.y() / grid) * grid};
}

/// Cuts a ring at a line; points at a positive distance are kept.
template <typename Distance>
std::vector<QPointF> cut(const std::vector<QPointF>& ring, Distance distance)
{
    std::vector<QPointF> kept;
    for (std::size_t i = 0; i < ring.size(); ++i) {
        const QPointF& a = ring[i];
        const QPointF& b = ring[(i + 1) % ring.size()];
        const double da = distance(a);
        const double db = distance(b);
        if (da >= 0) kept.push_back(a);
        if ((da >= 0) != (db >= 0)) kept.push_back(a + (b - a) * (da / (da - db)));
    }
    return kept;
}

} // namespace

std::vector<QPointF> clipped(std::vector<QPointF> ring, const QRectF& to)
{
    ring = cut(ring, [&](QPointF p) { return p.x() - to.left(); });
    ring = cut(ring, [&](QPointF p) { return to.right() - p.x(); });
    ring = cut(ring, [&](QPointF p) { return p.y() - to.top(); });
    return cut(ring, [&](QPointF p) { return to.bottom() - p.y(); });
}

std::vector<std::vector<QPointF>> outlines(const StateShape& state, const MapPicture& picture, double beyond)
{
    const QRectF sight = QRectF(QPointF(), picture.size).adjusted(-beyond, -beyond, beyond, beyond);
    std::vector<std::vector<QPointF>> rings;
    const QRectF bounds(picture.toPixels(state.bounds.topLeft()),
                        picture.toPixels(state.bounds.bottomRight()));
    if (!bounds.intersects(sight)) return rings;
    for (const PlaneRing& ring : state.rings) {
        std::vector<QPointF> pixels;
        for (const QPointF& point : ring) {
            const QPointF pixel = onGrid(picture.toPixels(point));
            if (pixels.empty() || pixel != pixels.back()) pixels.push_back(pixel);
        }
        if (!sight.contains(bounds)) pixels = clipped(std::move(pixels), sight);
        constexpr std::size_t fewest = 3;
        if (pixels.size() >= fewest) rings.push_back(std::move(pixels));
    }
    return rings;
}

std::optional<StateShape> partOf(const StateShape& state, const QRectF& plane)
{
    PlaneRing ring = clipped(state.rings[state.largest], plane);
    constexpr std::size_t fewest = 3;
    if (ring.size() < fewest) return std::nullopt;
    StateShape part{state.name, state.letters, {}, boundsOf(ring), 0, widestPlace(ring)};
    part.rings.push_back(std::move(ring));
    return part;
}

namespace {

/// Returns the room for a line of text at a height of a ring, as left and right in the plane: around `about`,
/// or around the middle of the widest part.
std::optional<std::pair<double, double>> roomAcross(const PlaneRing& ring, double y, double halfHeight,
                                                    std::optional<double> about)
{
    const auto middle = chords(ring, y);
    if (middle.empty()) return std::nullopt;
    const auto width = [](const auto& chord) { return chord.second - chord.first; };
    const auto widest = std::max_element(middle.begin(), middle.end(),
                                         [&](const auto& a, const auto& b) { return width(a) < width(b); });
    const double x = about.value_or((widest->first + widest->second) / 2);
    std::pair<double, double> room(-HUGE_VAL, HUGE_VAL);
    for (const double line : {y - halfHeight, y, y + halfHeight}) {
        const auto across = chords(ring, line);
        const auto around = std::find_if(across.begin(), across.end(), [x](const auto& chord) {
            return chord.first <= x && x <= chord.second;
        });
        if (around == across.end()) return std::nullopt;
        room = {std::max(room.first, around->first), std::min(room.second, around->second)};
    }
    return room;
}

bool touches(const QRectF& place, const MapObstacle& obstacle)
{
    const QPointF nearest(std::clamp(obstacle.place.x(), place.left(), place.right()),
                          std::clamp(obstacle.place.y(), place.top(), place.bottom()));
    const QPointF apart = obstacle.place - nearest;
    return QPointF::dotProduct(apart, apart) <= obstacle.radius * obstacle.radius;
}

bool isFree(const QRectF& place, const std::vector<MapObstacle>& obstacles, double widest)
{
    const auto height = [](const MapObstacle& obstacle) { return obstacle.place.y(); };
    const auto first = std::ranges::lower_bound(obstacles, place.top() - widest, {}, height);
    const auto last = std::ranges::upper_bound(first, obstacles.end(), place.bottom() + widest, {}, height);
    return std::none_of(first, last, [&](const MapObstacle& obstacle) { return touches(place, obstacle); });
}

} // namespace

std::optional<QPointF> roomFor(const StateShape& state, const MapPicture& picture, QSizeF text,
                               const std::vector<MapObstacle>& obstacles)
{
    constexpr int linesTried = 12; // on each side of the best one
    double widest = 0;
    for (const MapObstacle& obstacle : obstacles)
        widest = std::max(widest, obstacle.radius);
    const double halfHeight = text.height() / 2 * picture.scale;
    if (text.width() * picture.scale > state.bounds.width()) return std::nullopt;
    for (int line = 0; line <= 2 * linesTried; ++line) {
        const int step = line % 2 == 0 ? line / 2 : -(line + 1) / 2;
        const double y = state.label.y() + step * halfHeight;
        if (y - halfHeight < state.bounds.top() || y + halfHeight > state.bounds.bottom()) continue;
        const auto about = step == 0 ? std::optional(state.label.x()) : std::nullopt;
        const auto room = roomAcross(state.rings[state.largest], y, halfHeight, about);
        const double spare = room ? (room->second - room->first) / picture.scale - text.width() : -1;
        if (spare < 0) {
            // if nothing is to be avoided, only the best line will do
            if (obstacles.empty()) return std::nullopt;
            continue;
        }
        const QPointF middle = picture.toPixels({(room->first + room->second) / 2, y});
        for (const double share : {0.0, -0.25, 0.25, -0.5, 0.5}) {
            QRectF place(QPointF(), text);
            place.moveCenter(middle + QPointF(share * spare, 0));
            if (isFree(place, obstacles, widest)) return place.center();
        }
    }
    return std::nullopt;
}

// SPDX-License-Identifier: GPL-3.0-or-later

#include "map/StateOutlines.h"

#include <algorithm>
#include <array>
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

/// The lines of text that a ring has room for: half a line apart, up and down from the best place for the
/// name.
class TextLines
{
public:
    static constexpr int mostSteps = 12; // on each side of the best line

    /// In the plane.
    TextLines(const StateShape& state, double halfHeight)
        : m_state(state), m_ring(state.rings[state.largest]), m_halfHeight(halfHeight)
    {
    }

    [[nodiscard]] double height(int step) const { return m_state.label.y() + step * m_halfHeight; }

    [[nodiscard]] bool isWithinBounds(int step) const
    {
        return height(step - 1) >= m_state.bounds.top() && height(step + 1) <= m_state.bounds.bottom();
    }

    /// Returns the room of a line as left and right: around the best place, or around the middle of the
    /// widest part.
    std::optional<std::pair<double, double>> room(int step)
    {
        const Chords& middle = across(step);
        if (middle.empty()) return std::nullopt;
        const auto widest = std::ranges::max_element(
            middle, {}, [](const auto& chord) { return chord.second - chord.first; });
        const double x = step == 0 ? m_state.label.x() : (widest->first + widest->second) / 2;
        std::pair<double, double> room(-HUGE_VAL, HUGE_VAL);
        for (const int line : {step - 1, step, step + 1}) {
            const auto around = std::ranges::find_if(
                across(line), [x](const auto& chord) { return chord.first <= x && x <= chord.second; });
            if (around == across(line).end()) return std::nullopt;
            room = {std::max(room.first, around->first), std::min(room.second, around->second)};
        }
        return room;
    }

private:
    using Chords = std::vector<std::pair<double, double>>;

    /// Each is looked for once: the lines of text share them.
    const Chords& across(int step)
    {
        const int place = step + mostSteps + 1;
        auto& found = m_across.at(static_cast<std::size_t>(place));
        if (!found) found = chords(m_ring, height(step));
        return *found;
    }

    const StateShape& m_state;
    const PlaneRing& m_ring;
    double m_halfHeight;
    std::array<std::optional<Chords>, 2 * mostSteps + 3> m_across;
};

bool isFree(const QRectF& place, const std::vector<MapObstacle>& obstacles, double widest)
{
    const auto height = [](const MapObstacle& obstacle) { return obstacle.place.y(); };
    const auto first = std::ranges::lower_bound(obstacles, place.top() - widest, {}, height);
    const auto last = std::ranges::upper_bound(first, obstacles.end(), place.bottom() + widest, {}, height);
    return std::none_of(first, last, [&](const MapObstacle& obstacle) { return touches(place, obstacle); });
}

} // namespace

bool touches(const QRectF& place, const MapObstacle& obstacle)
{
    const QPointF nearest(std::clamp(obstacle.place.x(), place.left(), place.right()),
                          std::clamp(obstacle.place.y(), place.top(), place.bottom()));
    const QPointF apart = obstacle.place - nearest;
    return QPointF::dotProduct(apart, apart) <= obstacle.radius * obstacle.radius;
}

std::optional<QPointF> roomFor(const StateShape& state, const MapPicture& picture, QSizeF text,
                               const std::vector<MapObstacle>& obstacles)
{
    double widest = 0;
    for (const MapObstacle& obstacle : obstacles)
        widest = std::max(widest, obstacle.radius);
    if (text.width() * picture.scale > state.bounds.width()) return std::nullopt;
    TextLines lines(state, text.height() / 2 * picture.scale);
    for (int line = 0; line <= 2 * TextLines::mostSteps; ++line) {
        const int step = line % 2 == 0 ? line / 2 : -(line + 1) / 2;
        if (!lines.isWithinBounds(step)) continue;
        const auto room = lines.room(step);
        const double spare = room ? (room->second - room->first) / picture.scale - text.width() : -1;
        if (spare < 0) {
            // if nothing is to be avoided, only the best line will do
            if (obstacles.empty()) return std::nullopt;
            continue;
        }
        const QPointF middle = picture.toPixels({(room->first + room->second) / 2, lines.height(step)});
        for (const double share : {0.0, -0.25, 0.25, -0.5, 0.5}) {
            QRectF place(QPointF(), text);
            place.moveCenter(middle + QPointF(share * spare, 0));
            if (isFree(place, obstacles, widest)) return place.center();
        }
    }
    return std::nullopt;
}

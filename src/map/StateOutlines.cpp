#include "map/StateOutlines.h"

#include <algorithm>
#include <cmath>

namespace {

/// Points closer than this cannot be told apart. A grid, so that neighbours leave out the same points.
constexpr double grid = 0.25;
constexpr double outOfSight = 16;

QPointF onGrid(QPointF pixels)
{
    return {std::round(pixels.x() / grid) * grid, std::round(pixels.y() / grid) * grid};
}

/// Cuts a ring at one side; `distance` is positive for what is kept.
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

std::vector<std::vector<QPointF>> outlines(const StateShape& state, const MapPicture& picture)
{
    const QRectF sight =
        QRectF(QPointF(), picture.size).adjusted(-outOfSight, -outOfSight, outOfSight, outOfSight);
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

std::optional<QPointF> roomFor(const StateShape& state, const MapPicture& picture, QSizeF text)
{
    const double halfHeight = text.height() / 2 * picture.scale;
    double left = -HUGE_VAL;
    double right = HUGE_VAL;
    for (const double y : {state.label.y() - halfHeight, state.label.y(), state.label.y() + halfHeight}) {
        const auto across = chords(state.rings[state.largest], y);
        const auto around = std::find_if(across.begin(), across.end(), [&](const auto& chord) {
            return chord.first <= state.label.x() && state.label.x() <= chord.second;
        });
        if (around == across.end()) return std::nullopt;
        left = std::max(left, around->first);
        right = std::min(right, around->second);
    }
    if ((right - left) / picture.scale < text.width()) return std::nullopt;
    return picture.toPixels({(left + right) / 2, state.label.y()});
}

// SPDX-License-Identifier: GPL-3.0-or-later

#include "map/StatesLayer.h"

#include "map/MapProjection.h"

#include <algorithm>
#include <cmath>

namespace {

/// In square degrees of the plane. Islands and the District of Columbia are smaller.
constexpr double smallArea = 0.3;
/// A small shape belongs to the full extent if it is no further off than this share of the extent's size.
constexpr double nearShare = 0.05;
constexpr int linesTried = 24;

PlaneRing toPlane(const std::vector<QPointF>& degrees)
{
    PlaneRing ring;
    ring.reserve(degrees.size());
    for (const QPointF& point : degrees)
        ring.push_back(MapProjection::toPlane(point.x(), point.y()));
    return ring;
}

double areaOf(const PlaneRing& ring)
{
    double twice = 0;
    for (std::size_t i = 0; i < ring.size(); ++i) {
        const QPointF& a = ring[i];
        const QPointF& b = ring[(i + 1) % ring.size()];
        twice += a.x() * b.y() - b.x() * a.y();
    }
    return std::abs(twice) / 2;
}

/// Returns the inset that a state belongs into, or null.
const InsetState* insetOf(const StateShape& state)
{
    const auto& insets = insetStates();
    const auto found = std::ranges::find_if(
        insets, [&](const InsetState& inset) { return inset.bounds.contains(state.bounds.center()); });
    return found == insets.end() ? nullptr : &*found;
}

} // namespace

QRectF boundsOf(const PlaneRing& ring)
{
    const auto [left, right] =
        std::minmax_element(ring.begin(), ring.end(), [](auto& a, auto& b) { return a.x() < b.x(); });
    const auto [top, bottom] =
        std::minmax_element(ring.begin(), ring.end(), [](auto& a, auto& b) { return a.y() < b.y(); });
    return {QPointF(left->x(), top->y()), QPointF(right->x(), bottom->y())};
}

QPointF widestPlace(const PlaneRing& ring)
{
    const QRectF bounds = boundsOf(ring);
    QPointF best = bounds.center();
    double bestWeight = 0;
    for (int line = 1; line < linesTried; ++line) {
        const double share = static_cast<double>(line) / linesTried;
        const double y = bounds.top() + bounds.height() * share;
        for (const auto& [left, right] : chords(ring, y)) {
            const double weight = (right - left) * (1 - std::abs(share - 0.5));
            if (weight <= bestWeight) continue;
            bestWeight = weight;
            best = {(left + right) / 2, y};
        }
    }
    return best;
}

std::vector<std::pair<double, double>> chords(const PlaneRing& ring, double y)
{
    std::vector<double> crossings;
    for (std::size_t i = 0; i < ring.size(); ++i) {
        const QPointF& a = ring[i];
        const QPointF& b = ring[(i + 1) % ring.size()];
        if ((a.y() <= y) == (b.y() <= y)) continue;
        crossings.push_back(a.x() + (y - a.y()) / (b.y() - a.y()) * (b.x() - a.x()));
    }
    std::sort(crossings.begin(), crossings.end());
    std::vector<std::pair<double, double>> inside;
    for (std::size_t i = 0; i + 1 < crossings.size(); i += 2)
        inside.emplace_back(crossings[i], crossings[i + 1]);
    return inside;
}

StatesLayer::StatesLayer(const std::vector<ShapeRecord>& records)
    : m_fullExtent(MapProjection::contiguousStates())
{
    QRectF large;
    for (const ShapeRecord& record : records) {
        StateShape state{record.name, record.letters, {}, {}, 0, {}};
        double largestArea = -1;
        for (const auto& degrees : record.rings) {
            constexpr std::size_t fewest = 3;
            if (degrees.size() < fewest) continue;
            state.rings.push_back(toPlane(degrees));
            state.bounds |= boundsOf(state.rings.back());
            const double area = areaOf(state.rings.back());
            if (area <= largestArea) continue;
            largestArea = area;
            state.largest = state.rings.size() - 1;
        }
        if (state.rings.empty()) continue;
        state.label = widestPlace(state.rings[state.largest]);
        if (largestArea >= smallArea) large |= state.bounds;
        m_states.push_back(std::move(state));
    }
    if (large.isEmpty()) return;
    const double off = nearShare * std::max(large.width(), large.height());
    m_fullExtent = large;
    for (const StateShape& state : m_states) {
        if (large.adjusted(-off, -off, off, off).contains(state.bounds)) m_fullExtent |= state.bounds;
    }
}

const StateShape* StatesLayer::stateAt(QPointF plane) const
{
    const auto isWithin = [plane](const std::pair<double, double>& chord) {
        return chord.first <= plane.x() && plane.x() < chord.second;
    };
    for (const StateShape& state : m_states) {
        if (!state.bounds.contains(plane)) continue;
        // a ring within another one is a hole
        const auto around = std::ranges::count_if(state.rings, [&](const PlaneRing& ring) {
            return std::ranges::any_of(chords(ring, plane.y()), isWithin);
        });
        if (around % 2 == 1) return &state;
    }
    return nullptr;
}

std::vector<InsetState> StatesLayer::insets(const std::vector<QPointF>& places) const
{
    const auto isBeyond = [&](const StateShape& state) {
        return m_fullExtent.contains(state.bounds) && !insetOf(state) &&
               !MapProjection::contiguousStates().contains(state.bounds);
    };
    // a map without any of the 48 would show them empty
    const auto isBeside = [](const StateShape& state) {
        return !MapProjection::contiguousStates().intersects(state.bounds);
    };
    const bool isOnlyBeside = !m_states.empty() && std::ranges::all_of(m_states, isBeside);
    if (isOnlyBeside || std::ranges::any_of(m_states, isBeyond)) return {};
    std::vector<InsetState> found;
    for (const InsetState& inset : insetStates()) {
        const auto isShown = [&](const StateShape& state) { return insetOf(state) == &inset; };
        const auto isThere = [&](QPointF place) { return inset.bounds.contains(place); };
        if (std::ranges::any_of(m_states, isShown) || std::ranges::any_of(places, isThere))
            found.push_back(inset);
    }
    return found;
}

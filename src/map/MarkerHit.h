// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QPointF>

#include <cstddef>
#include <optional>
#include <span>

/// The distances from its middle at which a marker is hit, in pixels.
struct MarkerReach
{
    double drawn = 0; ///< the marker is drawn up to here; of several, the one drawn last is hit
    double near = 0;  ///< beyond that and up to here, the nearest marker is hit
};

/// Returns the index of the marker that a pointer hits, or `std::nullopt`. Markers and pointer are points of
/// the screen, the markers in the order in which they are drawn.
std::optional<std::size_t> markerAt(std::span<const QPointF> markers, QPointF pointer, MarkerReach reach);

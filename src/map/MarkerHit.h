#pragma once

#include <QPointF>

#include <cstddef>
#include <optional>
#include <span>

/// How far from its middle a marker can be hit, in pixels.
struct MarkerReach
{
    double drawn = 0; ///< as far as it is drawn; there the marker drawn last is the one that is seen
    double near = 0;  ///< beyond, where the nearest marker is meant
};

/// The marker that a pointer means: the last of those under it, else the nearest one. Markers are given by
/// their positions in the plane of the map, in the order in which they are drawn; `scale` is of the plane to
/// a pixel.
std::optional<std::size_t> markerAt(std::span<const QPointF> markers, QPointF pointer, double scale,
                                    MarkerReach reach);

#pragma once

#include <QPointF>

#include <cstddef>
#include <optional>
#include <span>

/// The marker that a pointer means: the nearest one within the radius, and of several at one place the one
/// drawn last. Markers are given by their positions in the plane of the map, `scale` is of the plane to a
/// pixel and `radius` in pixels.
std::optional<std::size_t> markerAt(std::span<const QPointF> markers, QPointF pointer, double scale,
                                    double radius);

// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "map/StatesLayer.h"

#include <QRectF>
#include <QSizeF>
#include <QString>

#include <optional>
#include <vector>

/// A picture of the map: the point of the plane in its upper left corner, and the units of the plane per
/// pixel.
struct MapPicture
{
    QPointF corner;
    double scale = 1;
    QSizeF size; ///< pixels

    [[nodiscard]] QPointF toPixels(QPointF plane) const { return (plane - corner) / scale; }
};

/// A marker that names of states keep clear of: a circle around a place.
struct MapObstacle
{
    QPointF place;     ///< in the plane, or in the pixels of a picture
    double radius = 0; ///< pixels

    friend bool operator==(const MapObstacle&, const MapObstacle&) = default;
};

/// Whether an obstacle, in the same pixels, reaches into a place.
[[nodiscard]] bool touches(const QRectF& place, const MapObstacle& obstacle);

/// How far beyond what is in sight outlines are cut, in pixels: the line along the cut is not seen then.
inline constexpr double outOfSight = 16;

/// Returns the rings of a state in the pixels of a picture: only what is in sight, and no more points than
/// the picture can resolve. Neighbours keep their common border. Rings are cut `beyond` pixels out of sight.
std::vector<std::vector<QPointF>> outlines(const StateShape& state, const MapPicture& picture,
                                           double beyond = outOfSight);

/// Returns the middle of a place in a state, in pixels, that is as large as the text and touches none of the
/// obstacles; `std::nullopt` if there is none. The obstacles are in pixels, too, ordered from top to bottom.
std::optional<QPointF> roomFor(const StateShape& state, const MapPicture& picture, QSizeF text,
                               const std::vector<MapObstacle>& obstacles = {});

/// Returns the part of a state's largest ring that lies within a rectangle of the plane, as a shape with a
/// place for the name of its own; nothing if none of it does.
std::optional<StateShape> partOf(const StateShape& state, const QRectF& plane);

/// Cuts a ring at the sides of a rectangle.
std::vector<QPointF> clipped(std::vector<QPointF> ring, const QRectF& to);

#pragma once

#include "map/StatesLayer.h"

#include <QRectF>
#include <QSizeF>
#include <QString>

#include <optional>
#include <vector>

/// A picture of the map: which point of the plane is in its upper left corner, and how much of the plane a
/// pixel of it is.
struct MapPicture
{
    QPointF corner;
    double scale = 1;
    QSizeF size; ///< pixels

    [[nodiscard]] QPointF toPixels(QPointF plane) const { return (plane - corner) / scale; }
};

/// The rings of a state as a picture shows them, in pixels: only what is in sight, and no more points than
/// the picture can tell apart. Neighbours keep their common border.
std::vector<std::vector<QPointF>> outlines(const StateShape& state, const MapPicture& picture);

/// Where a text of that size fits into a state without one of the points in it, as the text's middle in
/// pixels; `std::nullopt` if it does not. The points are in pixels too, from top to bottom.
std::optional<QPointF> roomFor(const StateShape& state, const MapPicture& picture, QSizeF text,
                               const std::vector<QPointF>& avoided = {});

/// Cuts a ring at the sides of a rectangle.
std::vector<QPointF> clipped(std::vector<QPointF> ring, const QRectF& to);

// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QPointF>
#include <QRectF>

/// The Mercator projection. In the plane of the map, x is the longitude in degrees, and y grows to the south
/// in units as long as a degree of longitude.
namespace MapProjection {

/// Returns a longitude of at most 84 degrees, so that Guam and the westernmost Aleutians lie in the west: 172
/// becomes -188.
double continuous(double lon);

/// Latitudes beyond 85 degrees are taken as 85.
QPointF toPlane(double lon, double lat);

/// The longitude and latitude of a point, as x and y.
QPointF toDegrees(QPointF plane);

/// The 48 contiguous states, in the plane.
QRectF contiguousStates();

} // namespace MapProjection

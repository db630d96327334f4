#pragma once

#include <QPointF>
#include <QRectF>

/// Degrees on the earth, and points of the plane that the map is drawn on. In the plane, x is the longitude
/// in degrees and y grows to the south, stretched at each latitude as much as x is there, so that no shape
/// looks squashed wherever the map is moved.
namespace MapProjection {

/// A longitude beyond the back of the map, such as that of Guam or of the westernmost Aleutians, continues
/// the map in the west: 172 becomes -188.
double continuous(double lon);

/// Latitudes beyond 85 degrees are taken as 85.
QPointF toPlane(double lon, double lat);

/// The longitude and latitude of a point, as x and y.
QPointF toDegrees(QPointF plane);

/// The 48 contiguous states, in the plane.
QRectF contiguousStates();

} // namespace MapProjection

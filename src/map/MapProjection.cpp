// SPDX-License-Identifier: GPL-3.0-or-later

#include "map/MapProjection.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace {

/// Halfway round the earth from the middle of the 48 states.
constexpr double backOfTheMap = 84;
constexpr double farthestLatitude = 85;
constexpr double degree = std::numbers::pi / 180;

} // namespace

double MapProjection::continuous(double lon)
{
    return lon > backOfTheMap ? lon - 360 : lon;
}

QPointF MapProjection::toPlane(double lon, double lat)
{
    const double held = std::clamp(lat, -farthestLatitude, farthestLatitude);
    return {continuous(lon), -std::asinh(std::tan(held * degree)) / degree};
}

QPointF MapProjection::toDegrees(QPointF plane)
{
    return {plane.x(), -std::atan(std::sinh(plane.y() * degree)) / degree};
}

QRectF MapProjection::contiguousStates()
{
    // Maine ends at 66.9 degrees; a little more, so that a high map shows all of Puerto Rico, too
    return {toPlane(-124.8, 49.4), toPlane(-65.2, 24.5)};
}

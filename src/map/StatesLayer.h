// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "map/MapInsets.h"
#include "map/ShapeFile.h"

#include <QPointF>
#include <QRectF>
#include <QString>

#include <vector>

using PlaneRing = std::vector<QPointF>;

/// The outline of a state in the plane of the map.
struct StateShape
{
    QString name;
    QString letters; ///< such as `TX`
    std::vector<PlaneRing> rings;
    QRectF bounds;
    std::size_t largest = 0; ///< the ring that the name is written in
    QPointF label;           ///< the best place for the middle of the name
};

/// The states as the map draws them, in the plane of MapProjection.
class StatesLayer
{
public:
    StatesLayer() = default;
    explicit StatesLayer(const std::vector<ShapeRecord>& records);

    [[nodiscard]] const std::vector<StateShape>& states() const { return m_states; }

    /// The bounds of all shapes but small ones far off, which would shrink the rest to a patch; those of the
    /// 48 contiguous states if the layer is empty.
    [[nodiscard]] const QRectF& fullExtent() const { return m_fullExtent; }

    /// Returns the state at a point of the plane, or null on water.
    [[nodiscard]] const StateShape* stateAt(QPointF plane) const;

    /// Returns the states for insets that have a shape here or one of the places, which are points of the
    /// plane; none if the full extent has more than these and the 48 contiguous states, or the layer none of
    /// the 48.
    [[nodiscard]] std::vector<InsetState> insets(const std::vector<QPointF>& places) const;

private:
    std::vector<StateShape> m_states;
    QRectF m_fullExtent;
};

/// Returns the rectangle around a ring.
QRectF boundsOf(const PlaneRing& ring);

/// Returns the middle of the widest horizontal line across a ring; lines near its middle are preferred.
QPointF widestPlace(const PlaneRing& ring);

/// Returns the parts of the horizontal line at `y` that lie within a ring, as pairs of x, from left to right.
std::vector<std::pair<double, double>> chords(const PlaneRing& ring, double y);

#pragma once

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
    QPointF label;           ///< the middle of where that ring is widest
};

/// The states as the map draws them. What a shape has beyond the back of the map is joined to it in the west.
class StatesLayer
{
public:
    StatesLayer() = default;
    explicit StatesLayer(const std::vector<ShapeRecord>& records);

    [[nodiscard]] const std::vector<StateShape>& states() const { return m_states; }

    /// What a look at the whole layer shows: all shapes but the small ones far off, which would shrink the
    /// rest to a patch. The 48 contiguous states where the layer is empty.
    [[nodiscard]] const QRectF& fullExtent() const { return m_fullExtent; }

private:
    std::vector<StateShape> m_states;
    QRectF m_fullExtent;
};

/// The parts of a horizontal line that lie within a ring, from the left to the right: pairs of x.
std::vector<std::pair<double, double>> chords(const PlaneRing& ring, double y);

#include "map/MarkerHit.h"

std::optional<std::size_t> markerAt(std::span<const QPointF> markers, QPointF pointer, double scale,
                                    double radius)
{
    std::optional<std::size_t> nearest;
    double least = radius * scale * radius * scale;
    for (std::size_t i = 0; i < markers.size(); ++i) {
        const QPointF apart = markers[i] - pointer;
        const double distance = QPointF::dotProduct(apart, apart);
        if (distance > least) continue;
        least = distance;
        nearest = i;
    }
    return nearest;
}

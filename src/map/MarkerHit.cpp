// SPDX-License-Identifier: GPL-3.0-or-later

#include "map/MarkerHit.h"

std::optional<std::size_t> markerAt(std::span<const QPointF> markers, QPointF pointer, MarkerReach reach)
{
    std::optional<std::size_t> found;
    double least = reach.near * reach.near;
    for (std::size_t i = 0; i < markers.size(); ++i) {
        const QPointF apart = markers[i] - pointer;
        const double distance = QPointF::dotProduct(apart, apart);
        const bool isUnderPointer = distance <= reach.drawn * reach.drawn;
        if (!isUnderPointer && distance > least) continue;
        found = i;
        // a marker that is only near does not replace one under the pointer
        least = isUnderPointer ? 0 : distance;
    }
    return found;
}

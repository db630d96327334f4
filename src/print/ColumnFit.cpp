// SPDX-License-Identifier: GPL-3.0-or-later

#include "print/ColumnFit.h"

#include <algorithm>
#include <numeric>

std::vector<double> fittedWidths(std::vector<double> needed, double room)
{
    const double all = std::accumulate(needed.begin(), needed.end(), 0.0);
    if (all <= room) {
        for (double& width : needed)
            width *= room / all;
        return needed;
    }
    std::vector<double> sorted = needed;
    std::ranges::sort(sorted);
    double left = room;
    double widest = 0;
    for (std::size_t i = 0; i < sorted.size(); ++i) {
        widest = left / static_cast<double>(sorted.size() - i);
        if (sorted[i] > widest) break;
        left -= sorted[i];
    }
    for (double& width : needed)
        width = std::min(width, widest);
    return needed;
}

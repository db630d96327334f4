// SPDX-License-Identifier: GPL-3.0-or-later

#include "chart/ChartScale.h"

#include <algorithm>
#include <cmath>

ChartScale ChartScale::forCounts(qint64 highest, int steps, double room)
{
    const qint64 most = std::max<qint64>(steps, 1);
    const auto needed = static_cast<double>(std::max<qint64>(highest, 1));
    const auto wanted = static_cast<qint64>(std::ceil(needed / (1 - room)));
    for (qint64 power = 1;; power *= 10) {
        for (const qint64 factor : {1, 2, 5}) {
            const qint64 step = power * factor;
            const qint64 top = (wanted + step - 1) / step;
            if (top <= most) return {top * step, step};
        }
    }
}

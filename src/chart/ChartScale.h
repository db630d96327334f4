// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QtGlobal>

/// An axis of whole numbers from 0 to at least the highest count.
struct ChartScale
{
    qint64 top = 0;  ///< a multiple of the step
    qint64 step = 0; ///< 1, 2 or 5 times a power of ten

    /// Returns a scale of at most `steps` steps. `room`, from 0 to below 1, is the share of the axis that
    /// stays free above the highest bar, for its number.
    static ChartScale forCounts(qint64 highest, int steps, double room);
};

// SPDX-License-Identifier: GPL-3.0-or-later

#include "chart/ChartScale.h"

#include "support/Testing.h"

namespace {

TEST(ChartScale, CountsInWholeNumbersWithRoomAboveTheHighestBar)
{
    const struct
    {
        qint64 highest;
        int steps;
        double room;
        qint64 top;
        qint64 step;
    } cases[] = {
        {0, 8, 0, 1, 1},
        {1, 8, 0, 1, 1},
        {1, 8, 0.1, 2, 1},
        {3, 8, 0.1, 4, 1},
        {8, 8, 0, 8, 1},
        {9, 8, 0, 10, 2},
        {29, 8, 0.05, 35, 5},
        {100, 5, 0.1, 150, 50},
        {32000, 8, 0.05, 35000, 5000},
        {1'000'000, 1, 0.5, 2'000'000, 2'000'000},
        {7, 0, 0, 10, 10},
    };
    for (const auto& [highest, steps, room, top, step] : cases) {
        const ChartScale scale = ChartScale::forCounts(highest, steps, room);
        EXPECT_EQ(scale.top, top) << highest;
        EXPECT_EQ(scale.step, step) << highest;
    }
}

} // namespace

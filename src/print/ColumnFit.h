// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <vector>

/// How wide the texts of a column are.
struct ColumnNeed
{
    double widest = 0;
    double usual = 0; ///< most are not wider
};

/// The widths of columns that are as wide as the room together. If there is room for all texts, all columns
/// become wider in proportion. Else narrow columns have what they need, and the others share what is left in
/// proportion to what is usual in them, so that their texts take about as many lines.
[[nodiscard]] std::vector<double> fittedWidths(const std::vector<ColumnNeed>& columns, double room);

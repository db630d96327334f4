// SPDX-License-Identifier: GPL-3.0-or-later

#include "print/ColumnFit.h"

#include <algorithm>

namespace {

double sumOf(const std::vector<ColumnNeed>& columns, double ColumnNeed::*part)
{
    double sum = 0;
    for (const ColumnNeed& column : columns)
        sum += column.*part;
    return sum;
}

} // namespace

std::vector<double> fittedWidths(const std::vector<ColumnNeed>& columns, double room)
{
    std::vector<double> widths;
    const double all = sumOf(columns, &ColumnNeed::widest);
    if (all <= room) {
        for (const ColumnNeed& column : columns)
            widths.push_back(column.widest * room / all);
        return widths;
    }
    std::vector<ColumnNeed> wide = columns;
    double share = 0;
    bool hasNarrow = true;
    // what a narrow column leaves makes the share of the others larger
    while (hasNarrow) {
        share = room / static_cast<double>(wide.size());
        const auto narrow = std::partition(
            wide.begin(), wide.end(), [share](const ColumnNeed& column) { return column.widest > share; });
        std::for_each(narrow, wide.end(), [&room](const ColumnNeed& column) { room -= column.widest; });
        hasNarrow = narrow != wide.end();
        wide.erase(narrow, wide.end());
    }
    const double scale = room / sumOf(wide, &ColumnNeed::usual);
    for (const ColumnNeed& column : columns)
        widths.push_back(column.widest > share ? column.usual * scale : column.widest);
    return widths;
}

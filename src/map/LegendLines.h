// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "views/clsCities.h"

#include <QString>
#include <QStringList>

#include <vector>

/// A function with the number of its organizations on the map.
struct LegendFunction
{
    QString name;
    int organizations = 0;
};

/// A line of the map's legend: a colour and the functions that it stands for.
struct LegendLine
{
    int colour = 0; ///< index into the palette
    std::vector<LegendFunction> functions;

    [[nodiscard]] int organizations() const;

    /// The functions on one line, such as `Law (12), Relief (3)`. Of more than twenty, the rest is only
    /// counted.
    [[nodiscard]] QString text() const;

    /// The same of a line whose markers are not shown.
    [[nodiscard]] QString hiddenText() const;
};

/// The name of a place's function, such as `Function 7` if it has none, or `None` if the place has no
/// function.
QString functionName(const clsCities& place);

/// The legend of places: a line for each colour in use, in the order of the palette, with its names in
/// alphabetical order.
std::vector<LegendLine> legendLines(const std::vector<clsCities>& places);

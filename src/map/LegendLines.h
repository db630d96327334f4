#pragma once

#include "views/clsCities.h"

#include <QString>
#include <QStringList>

#include <vector>

/// A line of the map's legend: a colour and the functions that it stands for.
struct LegendLine
{
    int colour = 0; ///< index into the palette
    QStringList names;

    /// The names on one line, as many as can be read; how many more there are, for the rest.
    [[nodiscard]] QString text() const;
};

/// What a function is called on the map; a function without a name by its number.
QString functionName(const clsCities& place);

/// The legend of places: a line for each colour in use, in the palette's order, names in order of the
/// alphabet.
std::vector<LegendLine> legendLines(const std::vector<clsCities>& places);

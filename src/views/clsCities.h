// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>

#include <optional>

/// A place at which organizations of one function are: one marker on the map.
struct clsCities
{
    std::optional<qint64> functionId; ///< absent for organizations without a function
    QString functionName;
    std::optional<qint64> LocationID; ///< of the known city, if there is one
    double lat = 0;                   ///< degrees, north positive
    double lon = 0;                   ///< degrees, east positive
    QString city;
    QString State;
    int colour = 0;        ///< index into the palette
    int organizations = 0; ///< how many of the view are there

    /// Returns `City, State`, or only the one that is known; the position if neither is.
    [[nodiscard]] QString placeText() const;

    /// A state named "None" does not count.
    [[nodiscard]] bool hasState() const;

    /// Returns the colour of a function: its identifier less one, modulo 16; 0 without a function.
    static int colourOf(std::optional<qint64> functionId);
};

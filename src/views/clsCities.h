#pragma once

#include <QString>

#include <optional>

/// A place at which organizations of one function are: one marker on the map.
struct clsCities
{
    std::optional<qint64> functionId; ///< nothing for organizations without a function
    QString functionName;
    std::optional<qint64> LocationID; ///< of the known city, where there is one
    double lat = 0;                   ///< degrees, north positive
    double lon = 0;                   ///< degrees, east positive
    QString city;
    QString State;
    int colour = 0; ///< index into the palette

    /// `City, State`, or whichever of the two there is; the position where there is neither.
    [[nodiscard]] QString placeText() const;

    /// A state of the name "None" is none.
    [[nodiscard]] bool hasState() const;

    /// The colour of a function: its number less one, beginning anew after every sixteen; 0 without one.
    static int colourOf(std::optional<qint64> functionId);
};

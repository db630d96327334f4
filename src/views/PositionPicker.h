// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <optional>

class QWidget;

/// A position on earth.
struct MapPosition
{
    double lat = 0; ///< degrees, north positive
    double lon = 0; ///< degrees, east positive

    friend bool operator==(const MapPosition&, const MapPosition&) = default;
};

/// Lets the user point at a position; a window with the map does.
class PositionPicker
{
public:
    virtual ~PositionPicker() = default;

    /// Opens over `window`, with a marker at `position` if there is one. Returns what was pointed at, or
    /// `std::nullopt` if the user changed their mind. Failures show their own message.
    virtual std::optional<MapPosition> pick(std::optional<MapPosition> position, QWidget* window) = 0;

protected:
    PositionPicker() = default;
    PositionPicker(const PositionPicker&) = default;
    PositionPicker& operator=(const PositionPicker&) = default;
};

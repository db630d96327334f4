// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "timeline/Moment.h"

#include <QString>

#include <array>
#include <cstdint>
#include <optional>

/// The scale of the timeline: the length of a step at each zoom level, and the strip of steps behind a
/// window.
namespace TimelineScale {

/// One step of the scale, in units of the timeline (logical pixels).
inline constexpr int stepWidth = 385;

/// The steps on one strip, at the levels below that of days.
inline constexpr int stepsOnStrip = 12;

/// One step a day: the coarsest level that has a strip.
inline constexpr int dayLevel = 7;

/// One step in minutes, by zoom level. A jump is the step two levels further, so there are two more steps
/// than names; the last of them is meant to be longer than three weeks.
inline constexpr std::array<std::int32_t, 16> stepMinutes{5,    10,   30,    60,    120,   240,   480, 1440,
                                                          2880, 5760, 10080, 20160, 20160, 30320, 0,   0};

/// The levels that have a name.
inline constexpr int namedLevels = 12;

/// How long one step is at a level with a name, in words.
[[nodiscard]] QString zoomName(int zoomFactor);

/// Returns the step of a level in minutes. Throws Error if the table has no such level.
[[nodiscard]] std::int32_t stepAt(int zoomFactor);

/// The remainder of a divided by b, with the sign of a.
[[nodiscard]] double floatMod(double a, double b);

/// Returns 28 to 31, or `std::nullopt` for an invalid day.
[[nodiscard]] std::optional<int> DaysInMonth(QDate day);

/// The position of the strip behind a window.
struct Strip
{
    double left = 0;   ///< units from the left edge of the window, 0 or less
    Moment origin = 0; ///< the moment at the strip's left end
};

/// Returns the strip for a window that begins at `currentTime`, on a timeline that begins at `timelineStart`;
/// `std::nullopt` for levels beyond `dayLevel`.
[[nodiscard]] std::optional<Strip> positionScale(int zoomFactor, Moment timelineStart, Moment currentTime);

} // namespace TimelineScale

// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace accessimport {

/// A calendar date with a time of day, from year 100 to 9999, to the second.
struct DateTime
{
    int year = 0;
    unsigned month = 0;
    unsigned day = 0;
    unsigned hour = 0;
    unsigned minute = 0;
    unsigned second = 0;

    bool operator==(const DateTime&) const = default;
    bool hasTime() const { return hour != 0 || minute != 0 || second != 0; }
    /// A time without a date is held on the day zero of the calendar, 1899-12-30.
    bool isDayZero() const { return year == 1899 && month == 12 && day == 30; }
};

/// The date of a stored number: days since 1899-12-30, whose fraction is the time of day also when the day is
/// negative. Rounded to the nearest second. std::nullopt outside the years 100 to 9999.
std::optional<DateTime> dateFromSerial(double serial);

/// Reads a date, a time or both from a text: year-month-day or month/day/year, and hours:minutes with or
/// without seconds, AM or PM. A missing date is the day zero. std::nullopt if it is anything else or no day
/// of the calendar.
std::optional<DateTime> dateFromText(std::string_view text);

std::string dateText(const DateTime& value);         ///< YYYY-MM-DD
std::string timeText(const DateTime& value);         ///< HH:MM, or HH:MM:SS if there are seconds
std::string dateTimeText(const DateTime& value);     ///< YYYY-MM-DD HH:MM:SS
std::string monthDayYearText(const DateTime& value); ///< MM/DD/YYYY, and HH:MM:SS if there is a time of day

} // namespace accessimport

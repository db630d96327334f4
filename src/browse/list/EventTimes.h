// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>

#include <string_view>

/// How many digits of a year are shown.
enum class Years
{
    TwoDigits,
    FourDigits
};

/// Start and end of an event, as the file holds them: `YYYY-MM-DD` and `HH:MM`, each empty if it is missing.
struct EventTimes
{
    std::string_view startDate;
    std::string_view startTime;
    std::string_view endDate;
    std::string_view endTime;

    /// Returns `mm/dd/yy hh:mm - mm/dd/yy hh:mm`; within a day `mm/dd/yy hh:mm-hh:mm`; for an instant only
    /// its start. Missing dates and times are left out. With four digits, `yyyy` takes the place of `yy`.
    [[nodiscard]] QString text(Years years) const;
};

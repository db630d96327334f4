#pragma once

#include <QString>

#include <string_view>

/// When an event was, as the file holds it: `YYYY-MM-DD` and `HH:MM`, each empty where missing.
struct EventTimes
{
    std::string_view startDate;
    std::string_view startTime;
    std::string_view endDate;
    std::string_view endTime;

    /// `mm/dd/yy hh:mm - mm/dd/yy hh:mm`; within one day `mm/dd/yy hh:mm-hh:mm`; for an instant only the
    /// start; without times only the dates. What is missing is left out.
    [[nodiscard]] QString shortText() const;

    /// The same with the whole year, for where there is room.
    [[nodiscard]] QString longText() const;

private:
    [[nodiscard]] QString text(bool wholeYear) const;
};

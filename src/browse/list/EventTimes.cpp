// SPDX-License-Identifier: GPL-3.0-or-later

#include "browse/list/EventTimes.h"

#include <string>

namespace {

constexpr std::size_t heldDateLength = 10;
constexpr std::size_t heldTimeLength = 5;

/// Returns a text that is not a date unchanged.
std::string dateText(std::string_view held, Years years)
{
    if (held.size() != heldDateLength || held[4] != '-' || held[7] != '-') return std::string(held);
    std::string text;
    text.append(held.substr(5, 2)).append("/").append(held.substr(8, 2)).append("/");
    return text.append(years == Years::FourDigits ? held.substr(0, 4) : held.substr(2, 2));
}

std::string moment(std::string_view date, std::string_view time, Years years)
{
    std::string text = dateText(date, years);
    if (!text.empty() && !time.empty()) text += ' ';
    return text.append(time.substr(0, heldTimeLength));
}

} // namespace

QString EventTimes::text(Years years) const
{
    std::string text = moment(startDate, startTime, years);
    const bool sameDay = startDate == endDate;
    const bool sameTime = startTime.substr(0, heldTimeLength) == endTime.substr(0, heldTimeLength);
    if (sameDay && !startTime.empty() && !endTime.empty() && !sameTime) {
        text.append("-").append(endTime.substr(0, heldTimeLength));
    } else if (!(sameDay && (sameTime || endTime.empty()))) {
        const std::string end = moment(endDate, endTime, years);
        if (!text.empty() && !end.empty()) text += " - ";
        text += end;
    }
    return QString::fromStdString(text);
}

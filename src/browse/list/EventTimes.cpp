// SPDX-License-Identifier: GPL-3.0-or-later

#include "browse/list/EventTimes.h"

#include <string>

namespace {

constexpr std::size_t heldDateLength = 10;
constexpr std::size_t heldTimeLength = 5;

/// Returns a text that is not a date unchanged.
std::string dateText(std::string_view held, bool wholeYear)
{
    if (held.size() != heldDateLength || held[4] != '-' || held[7] != '-') return std::string(held);
    std::string text;
    text.append(held.substr(5, 2)).append("/").append(held.substr(8, 2)).append("/");
    return text.append(wholeYear ? held.substr(0, 4) : held.substr(2, 2));
}

std::string moment(std::string_view date, std::string_view time, bool wholeYear)
{
    std::string text = dateText(date, wholeYear);
    if (!text.empty() && !time.empty()) text += ' ';
    return text.append(time.substr(0, heldTimeLength));
}

} // namespace

QString EventTimes::shortText() const
{
    return text(false);
}

QString EventTimes::longText() const
{
    return text(true);
}

QString EventTimes::text(bool wholeYear) const
{
    std::string text = moment(startDate, startTime, wholeYear);
    const bool sameDay = startDate == endDate;
    const bool sameTime = startTime.substr(0, heldTimeLength) == endTime.substr(0, heldTimeLength);
    if (sameDay && !startTime.empty() && !endTime.empty() && !sameTime) {
        text.append("-").append(endTime.substr(0, heldTimeLength));
    } else if (!(sameDay && (sameTime || endTime.empty()))) {
        const std::string end = moment(endDate, endTime, wholeYear);
        if (!text.empty() && !end.empty()) text += " - ";
        text += end;
    }
    return QString::fromStdString(text);
}

// SPDX-License-Identifier: GPL-3.0-or-later

#include "timeline/Moment.h"

#include "util/DateTimeText.h"

#include <charconv>

namespace {

constexpr int earliestYear = 100;
constexpr int latestYear = 9999;

/// Returns the number that `length` digits of a text make from a position on; -1 if they are not all digits.
int numberAt(std::string_view text, std::size_t at, std::size_t length)
{
    if (text.size() < at + length) return -1;
    const std::string_view digits = text.substr(at, length);
    int number = -1;
    const auto result = std::from_chars(digits.data(), digits.data() + digits.size(), number);
    return result.ptr == digits.data() + digits.size() ? number : -1;
}

} // namespace

Moment momentOf(QDate day, QTime time)
{
    return day.toJulianDay() * minutesOfDay + Minutes{time.hour()} * 60 + time.minute();
}

QDate dayOf(Moment moment)
{
    return QDate::fromJulianDay(moment / minutesOfDay);
}

int minuteOfDay(Moment moment)
{
    return static_cast<int>(moment % minutesOfDay);
}

Moment earliestMoment()
{
    return momentOf(QDate(earliestYear, 1, 1));
}

Moment latestMoment()
{
    return momentOf(QDate(latestYear, 12, 31), QTime(23, 59));
}

std::optional<Moment> momentOfHeld(std::string_view date, std::string_view time)
{
    constexpr std::size_t dateLength = 10;
    if (date.size() != dateLength || date[4] != '-' || date[7] != '-') return std::nullopt;
    const QDate day(numberAt(date, 0, 4), numberAt(date, 5, 2), numberAt(date, 8, 2));
    if (!day.isValid()) return std::nullopt;
    if (time.empty()) return momentOf(day);
    if (time.size() < 5 || time[2] != ':') return std::nullopt;
    const QTime clock(numberAt(time, 0, 2), numberAt(time, 3, 2));
    if (!clock.isValid()) return std::nullopt;
    return momentOf(day, clock);
}

QString dateText(Moment moment)
{
    return DateTimeText::programDate(dayOf(moment));
}

QString timeText(Moment moment)
{
    const int minutes = minuteOfDay(moment);
    return DateTimeText::programTime(QTime(minutes / 60, minutes % 60));
}

QString dateTimeText(Moment moment)
{
    return dateText(moment) + u' ' + timeText(moment);
}

// SPDX-License-Identifier: GPL-3.0-or-later

#include "JetDate.h"

#include <chrono>
#include <cmath>
#include <regex>

namespace accessimport {

namespace {

constexpr long secondsPerDay = 86400;
constexpr std::chrono::sys_days dayZero = std::chrono::year{1899} / std::chrono::December / 30;
constexpr std::chrono::sys_days firstDay = std::chrono::year{100} / std::chrono::January / 1;
constexpr std::chrono::sys_days lastDay = std::chrono::year{9999} / std::chrono::December / 31;

void appendDigits(unsigned value, int digits, std::string& text)
{
    std::size_t at = text.size() + static_cast<std::size_t>(digits);
    text.resize(at);
    for (; digits > 0; --digits, value /= 10)
        text[--at] = static_cast<char>('0' + value % 10);
}

void appendTime(const DateTime& value, bool withSeconds, std::string& text)
{
    appendDigits(value.hour, 2, text);
    text += ':';
    appendDigits(value.minute, 2, text);
    if (!withSeconds) return;
    text += ':';
    appendDigits(value.second, 2, text);
}

unsigned numberIn(const std::ssub_match& digits)
{
    return digits.matched ? static_cast<unsigned>(std::stoul(digits.str())) : 0;
}

/// The hour of a 12-hour clock; std::nullopt if it is none.
std::optional<unsigned> hourOf(unsigned hour, bool isAfternoon)
{
    if (hour < 1 || hour > 12) return std::nullopt;
    return hour % 12 + (isAfternoon ? 12 : 0);
}

} // namespace

std::optional<DateTime> dateFromSerial(double serial)
{
    if (!(std::abs(serial) < 4e6)) return std::nullopt;
    const double whole = std::trunc(serial);
    std::chrono::sys_days day = dayZero + std::chrono::days(static_cast<int>(whole));
    long seconds = std::lround(std::abs(serial - whole) * static_cast<double>(secondsPerDay));
    if (seconds == secondsPerDay) {
        seconds = 0;
        day += std::chrono::days(1);
    }
    if (day < firstDay || day > lastDay) return std::nullopt;

    const std::chrono::year_month_day date(day);
    const auto ofDay = static_cast<unsigned>(seconds);
    return DateTime{static_cast<int>(date.year()),
                    static_cast<unsigned>(date.month()),
                    static_cast<unsigned>(date.day()),
                    ofDay / 3600,
                    ofDay / 60 % 60,
                    ofDay % 60};
}

std::optional<DateTime> dateFromText(std::string_view text)
{
    static const std::regex form(R"(\s*(?:(\d{4})-(\d{1,2})-(\d{1,2})|(\d{1,2})/(\d{1,2})/(\d{4}))?)"
                                 R"([\sT]*(?:(\d{1,2}):(\d{2})(?::(\d{2}))?\s*([AaPp][Mm])?)?\s*)");
    // Matching a regular expression takes stack for each character.
    constexpr std::size_t longestDate = 64;
    if (text.size() > longestDate) return std::nullopt;
    const std::string copy(text);
    std::smatch found;
    if (!std::regex_match(copy, found, form)) return std::nullopt;
    const bool isYearFirst = found[1].matched;
    const bool hasDate = isYearFirst || found[6].matched;
    if (!hasDate && !found[7].matched) return std::nullopt;

    DateTime value{1899, 12, 30};
    if (hasDate) {
        value.year = static_cast<int>(numberIn(found[isYearFirst ? 1 : 6]));
        value.month = numberIn(found[isYearFirst ? 2 : 4]);
        value.day = numberIn(found[isYearFirst ? 3 : 5]);
    }
    value.hour = numberIn(found[7]);
    value.minute = numberIn(found[8]);
    value.second = numberIn(found[9]);
    if (found[10].matched) {
        const char half = *found[10].first;
        const std::optional<unsigned> hour = hourOf(value.hour, half == 'P' || half == 'p');
        if (!hour) return std::nullopt;
        value.hour = *hour;
    }
    const std::chrono::year_month_day date(std::chrono::year(value.year), std::chrono::month(value.month),
                                           std::chrono::day(value.day));
    const bool isInRange = value.year >= 100 && value.hour < 24 && value.minute < 60 && value.second < 60;
    if (!date.ok() || !isInRange) return std::nullopt;
    return value;
}

std::string dateText(const DateTime& value)
{
    std::string text;
    appendDigits(static_cast<unsigned>(value.year), 4, text);
    text += '-';
    appendDigits(value.month, 2, text);
    text += '-';
    appendDigits(value.day, 2, text);
    return text;
}

std::string timeText(const DateTime& value)
{
    std::string text;
    appendTime(value, value.second != 0, text);
    return text;
}

std::string dateTimeText(const DateTime& value)
{
    std::string text = dateText(value) + ' ';
    appendTime(value, true, text);
    return text;
}

std::string monthDayYearText(const DateTime& value)
{
    std::string text;
    appendDigits(value.month, 2, text);
    text += '/';
    appendDigits(value.day, 2, text);
    text += '/';
    appendDigits(static_cast<unsigned>(value.year), 4, text);
    if (value.hasTime()) {
        text += ' ';
        appendTime(value, true, text);
    }
    return text;
}

} // namespace accessimport

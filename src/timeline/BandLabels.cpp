// SPDX-License-Identifier: GPL-3.0-or-later

#include "timeline/BandLabels.h"

#include <algorithm>
#include <array>
#include <optional>

namespace {

// units
constexpr int besideTick = 3;
constexpr int betweenLabels = 10;
constexpr double narrowestTicks = 6;

enum class Period
{
    Hour,
    Day,
    Month,
    Year
};

/// Every so many hours of a day, days of a month, months of a year or years.
struct CalendarDivision
{
    Period period = Period::Year;
    int every = 1;
    Minutes shortest = 0; ///< from one to the next
    int lastDay = 31;     ///< of a month; later ones are too close to the next month
};

constexpr CalendarDivision hours(int every)
{
    return {Period::Hour, every, Minutes{60} * every};
}

constexpr CalendarDivision days(int every, int lastDay, int fewest)
{
    return {Period::Day, every, minutesOfDay * fewest, lastDay};
}

constexpr CalendarDivision months(int every)
{
    return {Period::Month, every, minutesOfDay * 28 * every};
}

constexpr CalendarDivision years(int every)
{
    return {Period::Year, every, minutesOfDay * 365 * every};
}

/// From the finest to the coarsest.
constexpr std::array calendarDivisions{
    hours(1),        hours(3),  hours(6),  hours(12),  days(1, 31, 1), days(2, 27, 2), days(5, 21, 5),
    days(10, 21, 8), months(1), months(3), months(6),  years(1),       years(2),       years(5),
    years(10),       years(20), years(50), years(100), years(200),     years(500),     years(1000)};

Moment beginOf(Period period, Moment moment)
{
    if (period == Period::Hour) return moment - moment % 60;
    const QDate day = dayOf(moment);
    if (period == Period::Day) return momentOf(day);
    return momentOf(QDate(day.year(), period == Period::Month ? day.month() : 1, 1));
}

Moment after(Period period, Moment begin)
{
    if (period == Period::Hour) return begin + 60;
    const QDate day = dayOf(begin);
    if (period == Period::Day) return begin + minutesOfDay;
    return momentOf(period == Period::Month ? day.addMonths(1) : day.addYears(1));
}

/// Whether a division begins with a period.
bool begins(const CalendarDivision& division, Moment moment)
{
    const QDate day = dayOf(moment);
    switch (division.period) {
    case Period::Hour:
        return minuteOfDay(moment) / 60 % division.every == 0;
    case Period::Day:
        return (day.day() - 1) % division.every == 0 && day.day() <= division.lastDay;
    case Period::Month:
        return (day.month() - 1) % division.every == 0;
    case Period::Year:
        return day.year() % division.every == 0;
    }
    return false;
}

QString textOf(Period period, Moment moment)
{
    const QDate day = dayOf(moment);
    if (period == Period::Hour && minuteOfDay(moment) != 0) return timeText(moment);
    if (period <= Period::Day) return dateText(moment);
    QString year = QStringLiteral("%1").arg(day.year(), 4, 10, QLatin1Char('0'));
    if (period == Period::Year || day.month() == 1) return year;
    return QStringLiteral("%1/").arg(day.month(), 2, 10, QLatin1Char('0')) + year;
}

bool isStrong(const CalendarDivision& division, Moment moment)
{
    const QDate day = dayOf(moment);
    switch (division.period) {
    case Period::Hour:
        return minuteOfDay(moment) == 0;
    case Period::Day:
        return day.day() == 1;
    case Period::Month:
        return day.month() == 1;
    case Period::Year:
        return day.year() % (division.every < 10 ? 10 : division.every < 100 ? 100 : 1000) == 0;
    }
    return false;
}

std::vector<Moment> momentsOf(const CalendarDivision& division, const TimelineLimits& limits)
{
    std::vector<Moment> moments;
    for (Moment moment = beginOf(division.period, limits.timelineStart); moment < limits.timelineEnd;
         moment = after(division.period, moment))
        if (moment >= limits.timelineStart && begins(division, moment)) moments.push_back(moment);
    return moments;
}

/// The finest division whose labels have room; the coarsest if none has.
CalendarDivision labelledOf(const BandScale& scale, const LabelMeasure& labelWidth)
{
    const Moment last = scale.limits().timelineEnd - 1;
    // one of them is not in January, whose label is a year alone
    const Moment monthBefore = last - 31 * minutesOfDay;
    for (const CalendarDivision& division : calendarDivisions) {
        const int width = std::max(labelWidth(textOf(division.period, last)),
                                   labelWidth(textOf(division.period, monthBefore)));
        const int room = width + besideTick + betweenLabels;
        if (static_cast<double>(division.shortest) >= room * scale.minutesPerUnit()) return division;
    }
    return calendarDivisions.back();
}

/// The finest division whose ticks have room. Labels need so much more of it that theirs is a multiple of
/// that.
CalendarDivision tickedOf(const BandScale& scale)
{
    for (const CalendarDivision& division : calendarDivisions) {
        if (static_cast<double>(division.shortest) >= narrowestTicks * scale.minutesPerUnit())
            return division;
    }
    return calendarDivisions.back();
}

} // namespace

BandLabels bandLabelsOf(const BandScale& scale, const LabelMeasure& labelWidth)
{
    BandLabels result;
    const TimelineLimits& limits = scale.limits();
    if (scale.width() <= 0 || limits.timelineEnd <= limits.timelineStart) return result;
    const CalendarDivision labelled = labelledOf(scale, labelWidth);
    for (const Moment moment : momentsOf(tickedOf(scale), limits))
        result.ticks.push_back(scale.positionOf(moment));
    double room = 0;
    for (const Moment moment : momentsOf(labelled, limits)) {
        const QString text = textOf(labelled.period, moment);
        const int width = labelWidth(text);
        const double at = scale.positionOf(moment);
        // a label that does not fit to the right of its tick stands to the left of it
        const bool fits = at + besideTick + width <= scale.width();
        const double left = fits ? at + besideTick : at - besideTick - width;
        if (left < room) continue;
        result.labels.push_back({left, at, moment, text, isStrong(labelled, moment)});
        room = left + width + betweenLabels;
    }
    return result;
}

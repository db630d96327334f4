// SPDX-License-Identifier: GPL-3.0-or-later

#include "timeline/TimelineScale.h"

#include "timeline/TimelineTexts.h"
#include "util/Error.h"

#include <cmath>

namespace TimelineScale {

namespace {

constexpr int outOfRangeNumber = 9;

Strip stripOfSteps(int zoomFactor, Moment timelineStart, Moment currentTime)
{
    const Moment firstMidnight = timelineStart - minuteOfDay(timelineStart);
    const Minutes step = stepAt(zoomFactor);
    const auto steps = static_cast<double>(currentTime - firstMidnight) / static_cast<double>(step);
    const double passed = floatMod(steps, stepsOnStrip);
    const auto wholeStrips = static_cast<Minutes>(std::llround((steps - passed) / stepsOnStrip));
    return {-stepWidth * passed, firstMidnight + wholeStrips * stepsOnStrip * step};
}

/// A strip spans a month, a step a day.
Strip stripOfDays(Moment currentTime)
{
    const QDate day = dayOf(currentTime);
    const double days = floatMod(day.day() - 1, DaysInMonth(day).value_or(31));
    const double left =
        -stepWidth * days - static_cast<double>(stepWidth) / minutesOfDay * minuteOfDay(currentTime);
    return {left, momentOf(QDate(day.year(), day.month(), 1))};
}

} // namespace

QString zoomName(int zoomFactor)
{
    static constexpr std::array<const char*, namedLevels> names{
        QT_TRANSLATE_NOOP("Timeline", "5 minutes"),  QT_TRANSLATE_NOOP("Timeline", "10 minutes"),
        QT_TRANSLATE_NOOP("Timeline", "30 minutes"), QT_TRANSLATE_NOOP("Timeline", "1 hour"),
        QT_TRANSLATE_NOOP("Timeline", "2 hours"),    QT_TRANSLATE_NOOP("Timeline", "4 hours"),
        QT_TRANSLATE_NOOP("Timeline", "8 hours"),    QT_TRANSLATE_NOOP("Timeline", "1 day"),
        QT_TRANSLATE_NOOP("Timeline", "2 days"),     QT_TRANSLATE_NOOP("Timeline", "4 days"),
        QT_TRANSLATE_NOOP("Timeline", "1 week"),     QT_TRANSLATE_NOOP("Timeline", "2 weeks")};
    return TimelineTexts::tr(names.at(static_cast<std::size_t>(zoomFactor)));
}

std::int32_t stepAt(int zoomFactor)
{
    if (zoomFactor < 0 || zoomFactor >= static_cast<int>(stepMinutes.size())) {
        throw Error(outOfRangeNumber, TimelineTexts::tr("Subscript out of range"));
    }
    return stepMinutes[static_cast<std::size_t>(zoomFactor)];
}

double floatMod(double a, double b)
{
    return (a / b - std::trunc(a / b)) * b;
}

std::optional<int> DaysInMonth(QDate day)
{
    if (!day.isValid()) return std::nullopt;
    return day.daysInMonth();
}

std::optional<Strip> positionScale(int zoomFactor, Moment timelineStart, Moment currentTime)
{
    if (zoomFactor > dayLevel) return std::nullopt;
    if (zoomFactor == dayLevel) return stripOfDays(currentTime);
    return stripOfSteps(zoomFactor, timelineStart, currentTime);
}

} // namespace TimelineScale

// SPDX-License-Identifier: GPL-3.0-or-later

#include "timeline/TypedPeriod.h"

#include "timeline/TimelineTexts.h"

#include <QRegularExpression>
#include <QStringList>

#include <algorithm>

namespace {

constexpr int yearDigits = 4;

/// The days from the first to that before the last; invalid if the calendar has no such days.
struct Days
{
    QDate first;
    QDate last;
};

/// Returns the numbers of a year, of a month or of a day, the year first; none for another text.
QStringList partsOf(const QString& text)
{
    static const QRegularExpression form(QStringLiteral("^\\d{1,4}(\\s*[/.-]\\s*\\d{1,4}){0,2}$"));
    static const QRegularExpression separator(QStringLiteral("\\s*[/.-]\\s*"));
    if (!form.match(text).hasMatch()) return {};
    QStringList parts = text.split(separator);
    if (parts.first().size() != yearDigits) parts.prepend(parts.takeLast());
    const bool isYearFirst = parts.first().size() == yearDigits;
    const bool areOthersShort =
        std::all_of(parts.begin() + 1, parts.end(), [](const QString& part) { return part.size() <= 2; });
    return isYearFirst && areOthersShort ? parts : QStringList();
}

Days daysOf(const QStringList& parts)
{
    const int year = parts[0].toInt();
    if (parts.size() == 1) return {QDate(year, 1, 1), QDate(year, 1, 1).addYears(1)};
    const int month = parts[1].toInt();
    if (parts.size() == 2) return {QDate(year, month, 1), QDate(year, month, 1).addMonths(1)};
    const QDate day(year, month, parts[2].toInt());
    return {day, day.addDays(1)};
}

bool isNow(const QString& text)
{
    return text.compare(u"now", Qt::CaseInsensitive) == 0 ||
           text.compare(TimelineTexts::tr("now"), Qt::CaseInsensitive) == 0;
}

/// A period from a moment to another, or what is wrong with it.
TypedPeriod within(const TimelineLimits& limits, const QString& text, Moment start, Moment end)
{
    const QString first = dateText(limits.timelineStart);
    const QString last = dateText(limits.timelineEnd);
    if (end <= limits.timelineStart) {
        return {
            0,
            TimelineTexts::tr("%1 is before the timeline, which runs from %2 to %3.").arg(text, first, last)};
    }
    if (start > limits.timelineEnd) {
        return {
            0,
            TimelineTexts::tr("%1 is after the timeline, which runs from %2 to %3.").arg(text, first, last)};
    }
    return {start, {}};
}

} // namespace

TypedPeriod readTypedPeriod(const QString& text, const QDateTime& now, const TimelineLimits& limits)
{
    const QString typed = text.trimmed();
    if (isNow(typed)) {
        const Moment moment = momentOf(now.date(), now.time());
        return within(limits, dateTimeText(moment), moment, moment + 1);
    }
    const QStringList parts = partsOf(typed);
    if (parts.isEmpty()) {
        return {
            0,
            TimelineTexts::tr(
                "This is not a date. Type a year, a month or a day, such as 2005, 08/2005 or 08/29/2005.")};
    }
    const Days days = daysOf(parts);
    if (!days.first.isValid()) {
        return {0, TimelineTexts::tr("There is no date %1. The month stands before the day.").arg(typed)};
    }
    return within(limits, typed, momentOf(days.first), momentOf(days.last));
}

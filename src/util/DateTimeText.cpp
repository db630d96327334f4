// SPDX-License-Identifier: GPL-3.0-or-later

#include "util/DateTimeText.h"

#include "util/Error.h"
#include "util/UtilTexts.h"

#include <QStringList>

namespace {

constexpr int mismatchNumber = 20;
constexpr int earliestYear = 100;
constexpr int latestYear = 9999;

/// A number of at most `digits` decimal digits and nothing else.
std::optional<int> readNumber(QStringView text, int digits)
{
    if (text.isEmpty() || text.size() > digits) return std::nullopt;
    int number = 0;
    for (const QChar c : text) {
        if (c < u'0' || c > u'9') return std::nullopt;
        number = number * 10 + (c.unicode() - u'0');
    }
    return number;
}

bool isHeldDate(std::string_view held)
{
    return held.size() == 10 && held[4] == '-' && held[7] == '-';
}

bool isHeldTime(std::string_view held)
{
    return (held.size() == 5 || (held.size() == 8 && held[5] == ':')) && held[2] == ':';
}

QString fromUtf8(std::string_view text)
{
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

QString twoDigits(int number)
{
    return QStringLiteral("%1").arg(number, 2, 10, QLatin1Char('0'));
}

/// Ten times as fast as QDate and QTime format themselves; lists ask for tens of thousands of dates.
QString joined(std::string_view first, char separator, std::string_view second)
{
    return fromUtf8(first) + QLatin1Char(separator) + fromUtf8(second);
}

[[noreturn]] void refuse(QStringView literal)
{
    throw Error(mismatchNumber, UtilTexts::tr("#%1# is not a date or time").arg(literal));
}

} // namespace

namespace DateTimeText {

std::optional<QDate> readDate(QStringView text)
{
    const auto parts = text.trimmed().split(u'/');
    if (parts.size() != 3) return std::nullopt;
    const auto month = readNumber(parts[0], 2);
    const auto day = readNumber(parts[1], 2);
    const auto year = readNumber(parts[2], 4);
    if (!month || !day || !year || *year < earliestYear || *year > latestYear) return std::nullopt;
    const QDate date(*year, *month, *day);
    return date.isValid() ? std::optional(date) : std::nullopt;
}

std::optional<QTime> readTime(QStringView text)
{
    QStringView clock = text.trimmed();
    const bool afternoon = clock.endsWith(u"PM", Qt::CaseInsensitive);
    const bool morning = clock.endsWith(u"AM", Qt::CaseInsensitive);
    if (afternoon || morning) clock = clock.chopped(2).trimmed();

    const auto parts = clock.split(u':');
    if (parts.size() < 2 || parts.size() > 3) return std::nullopt;
    auto hour = readNumber(parts[0], 2);
    const auto minute = readNumber(parts[1], 2);
    const auto second = parts.size() == 3 ? readNumber(parts[2], 2) : std::optional(0);
    if (!hour || !minute || !second) return std::nullopt;
    if (afternoon || morning) {
        if (*hour < 1 || *hour > 12) return std::nullopt;
        hour = *hour % 12 + (afternoon ? 12 : 0);
    }
    const QTime time(*hour, *minute, *second);
    return time.isValid() ? std::optional(time) : std::nullopt;
}

QString programDate(QDate date)
{
    return QStringLiteral("%1/%2/%3")
        .arg(twoDigits(date.month()), twoDigits(date.day()))
        .arg(date.year(), 4, 10, QLatin1Char('0'));
}

QString programTime(QTime time)
{
    return twoDigits(time.hour()) + u':' + twoDigits(time.minute());
}

QString heldDate(QDate date)
{
    return QStringLiteral("%1-%2-%3")
        .arg(date.year(), 4, 10, QLatin1Char('0'))
        .arg(twoDigits(date.month()), twoDigits(date.day()));
}

QString heldTime(QTime time)
{
    const QString minutes = programTime(time);
    return time.second() == 0 ? minutes : minutes + u':' + twoDigits(time.second());
}

std::optional<QDate> dateFromHeld(std::string_view held)
{
    const QDate date = isHeldDate(held) ? QDate::fromString(fromUtf8(held), Qt::ISODate) : QDate();
    return date.isValid() ? std::optional(date) : std::nullopt;
}

std::optional<QTime> timeFromHeld(std::string_view held)
{
    return isHeldTime(held) ? readTime(fromUtf8(held)) : std::nullopt;
}

QString programFromHeldDate(std::string_view held)
{
    if (!isHeldDate(held)) return fromUtf8(held);
    return joined(held.substr(5, 2), '/', held.substr(8, 2)) + u'/' + fromUtf8(held.substr(0, 4));
}

QString programFromHeldTime(std::string_view held)
{
    return isHeldTime(held) ? fromUtf8(held.substr(0, 5)) : fromUtf8(held);
}

QString programFromHeldDateTime(std::string_view held)
{
    if (held.size() != 19 || !isHeldDate(held.substr(0, 10))) return fromUtf8(held);
    return programFromHeldDate(held.substr(0, 10)) + u' ' + fromUtf8(held.substr(11));
}

QString heldFromLiteral(QStringView literal)
{
    const QStringView text = literal.trimmed();
    const auto blank = text.indexOf(u' ');
    if (const auto date = readDate(blank < 0 ? text : text.left(blank))) {
        if (blank < 0) return heldDate(*date);
        const auto time = readTime(text.mid(blank + 1));
        if (!time) refuse(literal);
        return heldDate(*date) + u' ' + programTime(*time) + u':' + twoDigits(time->second());
    }
    const auto time = readTime(text);
    if (!time) refuse(literal);
    return heldTime(*time);
}

} // namespace DateTimeText

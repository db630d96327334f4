// SPDX-License-Identifier: GPL-3.0-or-later

#include "util/TypedDate.h"

#include <QDate>
#include <QRegularExpression>
#include <QStringList>

#include <array>

namespace {

constexpr std::array monthNames{u"jan", u"feb", u"mar", u"apr", u"may", u"jun",
                                u"jul", u"aug", u"sep", u"oct", u"nov", u"dec"};

int monthOf(const QString& word)
{
    for (std::size_t i = 0; i < monthNames.size(); ++i) {
        if (word.size() >= 3 && word.startsWith(QStringView(monthNames[i]), Qt::CaseInsensitive)) {
            return static_cast<int>(i) + 1;
        }
    }
    return 0;
}

std::optional<int> order(int year, int month, int day)
{
    const bool inRange = year >= 100 && year <= 9999 && month >= 0 && month <= 12 && day >= 0;
    if (!inRange || (day > 0 && !QDate::isValid(year, month, day))) return std::nullopt;
    return year * 10000 + month * 100 + day;
}

} // namespace

std::optional<int> typedDateOrder(const QString& text)
{
    static const QRegularExpression separators(QStringLiteral("[\\s,./-]+"));
    const QStringList parts = text.split(separators, Qt::SkipEmptyParts);
    if (parts.isEmpty() || parts.size() > 3) return std::nullopt;

    std::array<int, 3> numbers{};
    int month = 0;
    std::size_t count = 0;
    for (const QString& part : parts) {
        bool isNumber = false;
        const int number = part.toInt(&isNumber);
        if (isNumber) {
            numbers[count++] = number;
        } else if (month == 0 && (month = monthOf(part)) != 0) {
            continue;
        } else {
            return std::nullopt;
        }
    }
    if (month != 0) {
        if (count == 1) return order(numbers[0], month, 0);
        return count == 2 ? order(numbers[1], month, numbers[0]) : std::nullopt;
    }
    if (count == 1) return order(numbers[0], 0, 0);
    if (count == 2) return order(numbers[1], numbers[0], 0);
    return parts.front().size() == 4 ? order(numbers[0], numbers[1], numbers[2])
                                     : order(numbers[2], numbers[0], numbers[1]);
}

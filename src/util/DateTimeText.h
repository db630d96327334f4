// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QDate>
#include <QString>
#include <QTime>

#include <optional>
#include <string_view>

/// Dates and times as text, in the two forms that the program knows.
///
/// Program form: `mm/dd/yyyy` and `hh:mm` (24 hours), month first whatever the locale.
/// Held form:    `YYYY-MM-DD` and `HH:MM`, which sort and compare as text.
///
/// Years run from 100 to 9999. Reading accepts one or two digits for month, day and hour.
namespace DateTimeText {

/// A date in program form, such as `9/11/2001`; std::nullopt if there is no such day.
std::optional<QDate> readDate(QStringView text);

/// A time in program form, with or without seconds, with or without `AM` or `PM`.
std::optional<QTime> readTime(QStringView text);

QString programDate(QDate date);
QString programTime(QTime time);

QString heldDate(QDate date);
QString heldTime(QTime time);

/// What heldDate() and heldTime() write; std::nullopt if it is another text, or if there is no such day or
/// time.
std::optional<QDate> dateFromHeld(std::string_view held);
std::optional<QTime> timeFromHeld(std::string_view held);

/// A held value of a column of dates, of times or of both, in program form. A text that is not in held form
/// is returned as it is, so that nothing in the file is hidden.
QString programFromHeldDate(std::string_view held);
QString programFromHeldTime(std::string_view held);
QString programFromHeldDateTime(std::string_view held);

/// The held form of what stands between two `#`: a date, a time, or both with a blank between them.
/// Throws Error if it is neither, or if there is no such day or time.
QString heldFromLiteral(QStringView literal);

} // namespace DateTimeText

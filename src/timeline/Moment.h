#pragma once

#include <QDate>
#include <QString>
#include <QTime>

#include <cstdint>
#include <optional>
#include <string_view>

/// A moment to the minute, in the Gregorian calendar as it reaches back before its own beginning: the minutes
/// since the midnight that begins Julian day 0.
using Moment = std::int64_t;

using Minutes = std::int64_t;

inline constexpr Minutes minutesOfDay = Minutes{24} * 60;

/// Both must be valid.
[[nodiscard]] Moment momentOf(QDate day, QTime time = QTime(0, 0));

[[nodiscard]] QDate dayOf(Moment moment);

/// Minutes since midnight, 0 to 1439.
[[nodiscard]] int minuteOfDay(Moment moment);

/// The first and the last moment that the data can hold: years 100 to 9999.
[[nodiscard]] Moment earliestMoment();
[[nodiscard]] Moment latestMoment();

/// What the file holds as `YYYY-MM-DD` and `HH:MM` (seconds are dropped). A missing time is midnight; nothing
/// where the date is missing or where there is no such day or time.
[[nodiscard]] std::optional<Moment> momentOfHeld(std::string_view date, std::string_view time);

/// `mm/dd/yyyy`, `hh:mm`, and both with a blank between them, whatever the locale.
[[nodiscard]] QString dateText(Moment moment);
[[nodiscard]] QString timeText(Moment moment);
[[nodiscard]] QString dateTimeText(Moment moment);

// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QDate>
#include <QString>
#include <QTime>

#include <cstdint>
#include <optional>
#include <string_view>

/// A moment to the minute: the minutes since the midnight that begins Julian day 0, in the proleptic
/// Gregorian calendar.
using Moment = std::int64_t;

using Minutes = std::int64_t;

inline constexpr Minutes minutesOfDay = Minutes{24} * 60;

/// The day and the time must be valid.
[[nodiscard]] Moment momentOf(QDate day, QTime time = QTime(0, 0));

[[nodiscard]] QDate dayOf(Moment moment);

/// Minutes since midnight, 0 to 1439.
[[nodiscard]] int minuteOfDay(Moment moment);

/// The first and the last moment that the data can hold: years 100 to 9999.
[[nodiscard]] Moment earliestMoment();
[[nodiscard]] Moment latestMoment();

/// Returns the moment that the file holds as `YYYY-MM-DD` and `HH:MM` (seconds are dropped). An empty time is
/// midnight. Returns `std::nullopt` if the date is empty or there is no such day or time.
[[nodiscard]] std::optional<Moment> momentOfHeld(std::string_view date, std::string_view time);

/// `mm/dd/yyyy`, `hh:mm`, and both with a blank between them, in every locale.
[[nodiscard]] QString dateText(Moment moment);
[[nodiscard]] QString timeText(Moment moment);
[[nodiscard]] QString dateTimeText(Moment moment);

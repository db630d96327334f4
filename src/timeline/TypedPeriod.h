// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "timeline/TimelineLimits.h"

#include <QString>

/// What a user typed to go to on the timeline: a year, a month, a day or "now".
struct TypedPeriod
{
    Moment start = 0;
    QString problem; ///< a sentence that says why there is no such place to go to; empty if there is one
};

/// Reads `2005`, `08/2005`, `08/29/2005`, also as `2005-08` and `2005-08-29`, and `now` in English or in the
/// user's language. A period of which no part lies on the timeline is a problem.
[[nodiscard]] TypedPeriod readTypedPeriod(const QString& text, const QDateTime& now,
                                          const TimelineLimits& limits);

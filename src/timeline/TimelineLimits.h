// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "timeline/Moment.h"

#include <QDateTime>

class DatabaseSession;

/// The span of the timeline.
struct TimelineLimits
{
    Moment timelineStart = 0; ///< the start of the earliest event
    Moment timelineEnd = 0;   ///< a day after the end of the latest event

    friend bool operator==(const TimelineLimits& a, const TimelineLimits& b) = default;
};

/// Reads the limits from the events that are not deleted, without the reserved one; missing dates are
/// skipped. Without events they are the midnight before `now` and a day after it. Throws Error; then a limit
/// that was not read stays as it was.
void setTimelineLimits(DatabaseSession& session, const QDateTime& now, TimelineLimits& limits);

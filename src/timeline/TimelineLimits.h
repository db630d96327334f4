#pragma once

#include "timeline/Moment.h"

#include <QDateTime>

class DatabaseSession;

/// The span of the timeline.
struct TimelineLimits
{
    Moment timelineStart = 0; ///< the start of the earliest event
    Moment timelineEnd = 0;   ///< a day after the end of the latest event
};

/// Reads the limits from the events that are not deleted, the reserved one left out; missing dates are
/// skipped. Without events they are today's midnight and a day after `now`. Throws Error; the limits keep
/// what they had reached.
void setTimelineLimits(DatabaseSession& session, const QDateTime& now, TimelineLimits& limits);

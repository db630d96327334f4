// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "timeline/Moment.h"

#include <QString>

#include <vector>

class DatabaseSession;
struct SQLObject;

/// How the events of a view are spread over the days: how many begin on each, and where events run that last
/// longer than a day. Each event counts once, whatever it is linked to; events without a day to begin on are
/// left out.
class EventDensity
{
public:
    struct Day
    {
        Moment midnight = 0; ///< at its beginning
        qint64 events = 0;   ///< that begin on it
        qint64 keyEvents = 0;
    };

    /// Days on which events run that began before them or go on after them.
    struct Run
    {
        Moment begin = 0; ///< the midnight before the first day
        Moment end = 0;   ///< the midnight after the last
    };

    /// Reads them with one statement. Throws Error.
    [[nodiscard]] static EventDensity read(DatabaseSession& session, const SQLObject& view);

    /// That statement. The where clause of the view must hold a complete condition.
    [[nodiscard]] static QString statement(const SQLObject& view);

    /// The days on which events begin, in their order.
    [[nodiscard]] const std::vector<Day>& days() const { return m_days; }

    /// In their order; none touches another.
    [[nodiscard]] const std::vector<Run>& runs() const { return m_runs; }

private:
    void add(const Day& day, Moment lastMidnight);

    std::vector<Day> m_days;
    std::vector<Run> m_runs;
};

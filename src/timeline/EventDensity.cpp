// SPDX-License-Identifier: GPL-3.0-or-later

#include "timeline/EventDensity.h"

#include "data/DatabaseSession.h"
#include "data/SQLObject.h"

#include <algorithm>
#include <optional>

QString EventDensity::statement(const SQLObject& view)
{
    // what runs on a day began on it or on an earlier one: the latest end of each day tells of all of them
    return QStringLiteral("SELECT StartDate, max(EndDate) AS LastDate, count(Event.EventID) AS eventCount, "
                          "count(DISTINCT CASE WHEN KeyEvent <> 0 THEN Event.EventID END) AS keyCount ") +
           view.FromClause + u' ' + view.WhereClause +
           QStringLiteral(" GROUP BY StartDate ORDER BY StartDate");
}

EventDensity EventDensity::read(DatabaseSession& session, const SQLObject& view)
{
    RecordSet rows = session.read(statement(view));
    const int startDate = rows.column(u"StartDate");
    const int lastDate = rows.column(u"LastDate");
    const int eventCount = rows.column(u"eventCount");
    const int keyCount = rows.column(u"keyCount");
    EventDensity density;
    while (rows.next()) {
        const std::optional<Moment> midnight = momentOfHeld(rows.held(startDate), {});
        if (!midnight) continue;
        density.add({*midnight, rows.integer(eventCount), rows.integer(keyCount)},
                    momentOfHeld(rows.held(lastDate), {}).value_or(*midnight));
    }
    return density;
}

void EventDensity::add(const Day& day, Moment lastMidnight)
{
    m_days.push_back(day);
    if (lastMidnight <= day.midnight) return;
    const Moment end = lastMidnight + minutesOfDay;
    if (m_runs.empty() || m_runs.back().end < day.midnight) {
        m_runs.push_back({day.midnight, end});
    } else {
        m_runs.back().end = std::max(m_runs.back().end, end);
    }
}

// SPDX-License-Identifier: GPL-3.0-or-later

#include "timeline/TimeWindowQuery.h"

#include <algorithm>

namespace {

/// A moment as date and time of a statement, kept between the first and the last moment that the data can
/// hold.
struct Literals
{
    explicit Literals(Moment moment)
        : date(dateText(std::clamp(moment, earliestMoment(), latestMoment()))),
          time(timeText(std::clamp(moment, earliestMoment(), latestMoment())))
    {
    }

    QString date;
    QString time;
};

QString viewClauses(const SQLObject& view)
{
    return view.SelectClause + u' ' + view.FromClause + u' ' + view.WhereClause + u' ';
}

} // namespace

namespace TimeWindowQuery {

QString inWindow(const SQLObject& view, Moment currentTime, Moment windowEnd)
{
    const Literals from(currentTime);
    const Literals to(windowEnd);
    return viewClauses(view) +
           QStringLiteral("AND ((((StartDate > #%1#) OR (StartDate = #%1# AND StartTime >= #%2#)) "
                          "AND ((StartDate < #%3#) OR (StartDate = #%3# AND StartTime <= #%4#))) "
                          "OR (((StartDate < #%1#) OR (StartDate = #%1# AND StartTime < #%2#)) "
                          "AND ((EndDate > #%1#) OR (EndDate = #%1# AND EndTime > #%2#)))) "
                          "ORDER BY StartDate, StartTime, EndDate, EndTime, EventName")
               .arg(from.date, from.time, to.date, to.time);
}

QString before(const SQLObject& view, Moment moment)
{
    const Literals at(moment);
    return viewClauses(view) +
           QStringLiteral("AND ((StartDate < #%1#) OR (StartDate = #%1# AND StartTime < #%2#)) "
                          "ORDER BY StartDate DESC, StartTime DESC")
               .arg(at.date, at.time);
}

QString after(const SQLObject& view, Moment moment)
{
    const Literals at(moment);
    return viewClauses(view) +
           QStringLiteral("AND ((StartDate > #%1#) OR (StartDate = #%1# AND StartTime > #%2#)) "
                          "ORDER BY StartDate, StartTime")
               .arg(at.date, at.time);
}

} // namespace TimeWindowQuery

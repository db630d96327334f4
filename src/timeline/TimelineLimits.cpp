// SPDX-License-Identifier: GPL-3.0-or-later

#include "timeline/TimelineLimits.h"

#include "data/DatabaseSession.h"
#include "timeline/TimelineTexts.h"
#include "util/Error.h"

namespace {

constexpr int mismatchNumber = 13;

/// Returns the first moment among the rows of a statement, or `std::nullopt`; a missing time is midnight.
std::optional<Moment> firstMoment(DatabaseSession& session, const QString& statement, QStringView dateColumn,
                                  QStringView timeColumn)
{
    RecordSet rows = session.read(statement);
    const int date = rows.column(dateColumn);
    const int time = rows.column(timeColumn);
    while (rows.next()) {
        if (rows.isNull(date) || rows.held(date).empty()) continue;
        const auto moment = momentOfHeld(rows.held(date), rows.held(time));
        if (moment) return moment;
        throw Error(mismatchNumber,
                    TimelineTexts::tr("%1 %2 is not a date and time").arg(rows.text(date), rows.text(time)));
    }
    return std::nullopt;
}

} // namespace

void setTimelineLimits(DatabaseSession& session, const QDateTime& now, TimelineLimits& limits)
{
    const auto start = firstMoment(
        session,
        QStringLiteral("SELECT DISTINCT StartDate, StartTime FROM Event WHERE Status <> 'DELETED' "
                       "AND EventID > 1 ORDER BY StartDate, StartTime"),
        u"StartDate", u"StartTime");
    limits.timelineStart = start ? *start : momentOf(now.date());
    const auto end =
        firstMoment(session,
                    QStringLiteral("SELECT DISTINCT EndDate, EndTime FROM Event WHERE Status <> 'DELETED' "
                                   "AND EventID > 1 ORDER BY EndDate DESC, EndTime DESC"),
                    u"EndDate", u"EndTime");
    limits.timelineEnd = (end ? *end : momentOf(now.date(), now.time())) + minutesOfDay;
}

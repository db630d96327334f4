// SPDX-License-Identifier: GPL-3.0-or-later

#include "timeline/WindowEvents.h"

#include "data/DatabaseSession.h"
#include "timeline/TimelineTexts.h"
#include "util/Error.h"

#include <algorithm>

namespace {

constexpr int mismatchNumber = 13;

Moment momentAt(const std::string& date, const std::string& time, const QString& eventName)
{
    const auto moment = momentOfHeld(date, time);
    if (moment) return *moment;
    throw Error(mismatchNumber,
                TimelineTexts::tr("%1 %2 is not a date and time (%3)")
                    .arg(QString::fromStdString(date), QString::fromStdString(time), eventName));
}

} // namespace

Moment WindowEvent::start() const
{
    return momentAt(startDate, startTime, eventName);
}

Moment WindowEvent::end() const
{
    const Moment begin = start();
    return endDate.empty() ? begin : std::max(momentAt(endDate, endTime, eventName), begin);
}

std::vector<WindowEvent> readWindowEvents(RecordSet rows, std::optional<std::size_t> atMost)
{
    const int eventId = rows.column(u"EventID");
    const int eventName = rows.column(u"EventName");
    const int keyEvent = rows.column(u"KeyEvent");
    const int startDate = rows.column(u"StartDate");
    const int startTime = rows.column(u"StartTime");
    const int endDate = rows.column(u"EndDate");
    const int endTime = rows.column(u"EndTime");
    std::vector<WindowEvent> events;
    while ((!atMost || events.size() < *atMost) && rows.next()) {
        events.push_back({rows.integer(eventId), rows.text(eventName), rows.integer(keyEvent) != 0,
                          std::string(rows.held(startDate)), std::string(rows.held(startTime)),
                          std::string(rows.held(endDate)), std::string(rows.held(endTime))});
    }
    return events;
}

std::optional<WindowEvent> readEvent(DatabaseSession& session, qint64 eventId)
{
    auto events = readWindowEvents(
        session.read(
            QStringLiteral("SELECT EventID, EventName, KeyEvent, StartDate, StartTime, EndDate, EndTime "
                           "FROM Event WHERE EventID = ") +
            QString::number(eventId)),
        1);
    if (events.empty()) return std::nullopt;
    return std::move(events.front());
}

// SPDX-License-Identifier: GPL-3.0-or-later

#include "timeline/VisibleEvents.h"

#include "data/DatabaseSession.h"
#include "timeline/TimeWindowQuery.h"

#include <algorithm>

std::vector<WindowEvent> VisibleEvents::read(const SQLObject& view, const TimeWindow& window) const
{
    return readWindowEvents(
        m_session.read(TimeWindowQuery::inWindow(view, window.currentTime(), window.windowEnd())));
}

void VisibleEvents::take(std::vector<WindowEvent> events, const SQLObject& view, const TimeWindow& window)
{
    std::optional<NearestEvent> before;
    std::optional<NearestEvent> after;
    if (events.empty()) {
        before = firstOf(TimeWindowQuery::before(view, window.currentTime()));
        after = firstOf(TimeWindowQuery::after(view, window.windowEnd()));
    }
    m_events = std::move(events);
    m_before = std::move(before);
    m_after = std::move(after);
    if (!m_events.empty()) m_hitCount = m_events.size();
}

std::optional<NearestEvent> VisibleEvents::firstFrom(const SQLObject& view, Moment moment) const
{
    return firstOf(TimeWindowQuery::after(view, moment - 1));
}

void VisibleEvents::clear()
{
    m_events.clear();
    m_hitCount = 0;
    m_before.reset();
    m_after.reset();
}

std::optional<std::size_t> VisibleEvents::positionOf(qint64 eventId) const
{
    const auto found = std::ranges::find(m_events, eventId, &WindowEvent::eventId);
    if (found == m_events.end()) return std::nullopt;
    return static_cast<std::size_t>(found - m_events.begin());
}

std::optional<NearestEvent> VisibleEvents::firstOf(const QString& statement) const
{
    const auto events = readWindowEvents(m_session.read(statement), 1);
    if (events.empty()) return std::nullopt;
    return NearestEvent{events.front().eventId, events.front().eventName, events.front().start()};
}

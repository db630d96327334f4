// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "timeline/TimeWindow.h"
#include "timeline/WindowEvents.h"

#include <QString>

#include <optional>
#include <vector>

class DatabaseSession;
struct SQLObject;

/// An event to go to from a window that shows none.
struct NearestEvent
{
    qint64 eventId = 0;
    QString eventName;
    Moment start = 0;
};

/// The events of a view that a time window shows and, if there are none, those nearest to it. If they cannot
/// be read, those read before stay.
class VisibleEvents
{
public:
    /// The session must outlive this object.
    explicit VisibleEvents(DatabaseSession& session) : m_session(session) {}

    /// Returns the events of a view of events that lie in a window. Throws Error.
    [[nodiscard]] std::vector<WindowEvent> read(const SQLObject& view, const TimeWindow& window) const;

    /// Takes the events that were read of a view and a window, and finds the nearest if there are none.
    /// Throws Error; then all stays as it was.
    void take(std::vector<WindowEvent> events, const SQLObject& view, const TimeWindow& window);

    /// The first event of a view that starts at a moment or later. Throws Error.
    [[nodiscard]] std::optional<NearestEvent> firstFrom(const SQLObject& view, Moment moment) const;

    void clear();

    [[nodiscard]] const std::vector<WindowEvent>& events() const { return m_events; }

    /// The position of an event among those of the window.
    [[nodiscard]] std::optional<std::size_t> positionOf(qint64 eventId) const;

    /// How many events the last window that was not empty had.
    [[nodiscard]] std::size_t hitCount() const { return m_hitCount; }

    /// The events to go to from an empty window; `std::nullopt` if the window has events.
    [[nodiscard]] const std::optional<NearestEvent>& nearestBefore() const { return m_before; }
    [[nodiscard]] const std::optional<NearestEvent>& nearestAfter() const { return m_after; }

private:
    [[nodiscard]] std::optional<NearestEvent> firstOf(const QString& statement) const;

    DatabaseSession& m_session;
    std::vector<WindowEvent> m_events;
    std::size_t m_hitCount = 0;
    std::optional<NearestEvent> m_before;
    std::optional<NearestEvent> m_after;
};

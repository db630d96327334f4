// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "data/RecordSet.h"
#include "timeline/Moment.h"

#include <QString>

#include <optional>
#include <string>
#include <vector>

class DatabaseSession;

/// An event as the timeline draws it, its dates and times as the file holds them.
struct WindowEvent
{
    qint64 eventId = 0;
    QString eventName;
    bool keyEvent = false;
    std::string startDate;
    std::string startTime;
    std::string endDate;
    std::string endTime;

    /// Throws Error if there is no such moment, as for a missing date.
    [[nodiscard]] Moment start() const;

    /// The start if the end is missing or comes before it. Throws Error if there is no such moment.
    [[nodiscard]] Moment end() const;
};

/// Reads the events of a record set from its current position to its end, at most so many. Throws Error.
[[nodiscard]] std::vector<WindowEvent> readWindowEvents(RecordSet rows,
                                                        std::optional<std::size_t> atMost = std::nullopt);

/// Reads one event; `std::nullopt` if there is none of that identifier. Throws
/// Error.
[[nodiscard]] std::optional<WindowEvent> readEvent(DatabaseSession& session, qint64 eventId);

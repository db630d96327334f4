// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "timeline/BandScale.h"
#include "timeline/EventDensity.h"

#include <QString>

#include <vector>

/// A part of the band: whole days, as few as can be told apart on it, and the events that begin on them.
struct BandPart
{
    double left = 0; ///< units from the band's left edge, not beyond it
    double right = 0;
    Moment from = 0; ///< the midnight before the first day
    Moment to = 0;   ///< the midnight after the last
    qint64 events = 0;
    qint64 keyEvents = 0;

    /// Its days and their events in words.
    [[nodiscard]] QString text() const;
};

/// The parts of a band, each as many days long as the others. Together they are the whole timeline, and their
/// events are all those between its limits.
class BandParts
{
public:
    BandParts() = default;
    BandParts(const BandScale& scale, const EventDensity& density);

    [[nodiscard]] const std::vector<BandPart>& all() const { return m_parts; }

    /// The events of all parts.
    [[nodiscard]] qint64 events() const { return m_events; }

    /// The most events of a part; 0 without events.
    [[nodiscard]] qint64 most() const { return m_most; }

    /// The part of a moment, or the nearest; null if there are no parts.
    [[nodiscard]] const BandPart* partOf(Moment moment) const;

    /// The nearest part with events after or before the part of a moment; null if there is none.
    [[nodiscard]] const BandPart* nextWithEvents(Moment moment) const;
    [[nodiscard]] const BandPart* previousWithEvents(Moment moment) const;

private:
    [[nodiscard]] std::size_t indexOf(Moment moment) const;

    std::vector<BandPart> m_parts;
    Minutes m_length = minutesOfDay;
    qint64 m_events = 0;
    qint64 m_most = 0;
};

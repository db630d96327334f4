// SPDX-License-Identifier: GPL-3.0-or-later

#include "timeline/BandParts.h"

#include "timeline/TimelineTexts.h"

#include <algorithm>
#include <cmath>

namespace {

/// Units; narrower parts could hardly be told apart and pointed at.
constexpr double narrowestPart = 4;

Moment midnightOf(Moment moment)
{
    return moment - minuteOfDay(moment);
}

} // namespace

QString BandPart::text() const
{
    const QString days = to - from > minutesOfDay
                             ? TimelineTexts::tr("%1 to %2").arg(dateText(from), dateText(to - minutesOfDay))
                             : dateText(from);
    const auto count = static_cast<int>(events);
    const auto keys = static_cast<int>(keyEvents);
    if (events == 0) return TimelineTexts::tr("%1: no events").arg(days);
    const QString plain = count == 1 ? TimelineTexts::tr("%1: 1 event").arg(days)
                                     : TimelineTexts::tr("%1: %n events", nullptr, count).arg(days);
    if (keys == 0) return plain;
    if (count == 1) return TimelineTexts::tr("%1: 1 key event").arg(days);
    return keys == 1 ? TimelineTexts::tr("%1, 1 of them a key event").arg(plain)
                     : TimelineTexts::tr("%1, %n of them key events", nullptr, keys).arg(plain);
}

BandParts::BandParts(const BandScale& scale, const EventDensity& density)
{
    const auto [begin, end] = scale.limits();
    if (scale.width() <= 0 || end <= begin) return;
    const double days = narrowestPart * scale.minutesPerUnit() / minutesOfDay;
    m_length = std::max<Minutes>(static_cast<Minutes>(std::ceil(days)), 1) * minutesOfDay;
    const double whole = scale.width();
    for (Moment from = midnightOf(begin); from < end; from += m_length) {
        m_parts.push_back({std::clamp(scale.positionOf(from), 0.0, whole),
                           std::clamp(scale.positionOf(from + m_length), 0.0, whole), from,
                           std::min(from + m_length, midnightOf(end - 1) + minutesOfDay)});
    }
    for (const EventDensity::Day& day : density.days()) {
        if (day.midnight < m_parts.front().from || day.midnight >= m_parts.back().to) continue;
        BandPart& part = m_parts[indexOf(day.midnight)];
        part.events += day.events;
        part.keyEvents += day.keyEvents;
        m_events += day.events;
        m_most = std::max(m_most, part.events);
    }
}

/// There must be parts.
std::size_t BandParts::indexOf(Moment moment) const
{
    const Minutes after =
        std::clamp(moment, m_parts.front().from, m_parts.back().from) - m_parts.front().from;
    return static_cast<std::size_t>(after / m_length);
}

const BandPart* BandParts::partOf(Moment moment) const
{
    return m_parts.empty() ? nullptr : &m_parts[indexOf(moment)];
}

const BandPart* BandParts::nextWithEvents(Moment moment) const
{
    if (m_parts.empty()) return nullptr;
    for (std::size_t i = indexOf(moment) + 1; i < m_parts.size(); ++i)
        if (m_parts[i].events > 0) return &m_parts[i];
    return nullptr;
}

const BandPart* BandParts::previousWithEvents(Moment moment) const
{
    if (m_parts.empty()) return nullptr;
    for (std::size_t i = indexOf(moment); i-- > 0;)
        if (m_parts[i].events > 0) return &m_parts[i];
    return nullptr;
}

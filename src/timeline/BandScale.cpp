// SPDX-License-Identifier: GPL-3.0-or-later

#include "timeline/BandScale.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

namespace {

// units; the box of each level is at least so much wider than that of the level before
constexpr double narrowestBox = 12;
constexpr double widerPerLevel = 5;

} // namespace

BandScale::BandScale(const TimelineLimits& limits, int width)
    : m_limits(limits),
      m_width(width),
      // ends that lie before the start leave no time between the limits
      m_minutesPerUnit(static_cast<double>(std::max<Minutes>(limits.timelineEnd - limits.timelineStart, 1)) /
                       std::max(width, 1))
{
}

double BandScale::positionOf(Moment moment) const
{
    return static_cast<double>(moment - m_limits.timelineStart) / m_minutesPerUnit;
}

Moment BandScale::momentAt(double position) const
{
    return m_limits.timelineStart + std::llround(position * m_minutesPerUnit);
}

BandBox BandScale::boxOf(const TimeWindow& window) const
{
    const double whole = m_width;
    BandBox box;
    box.windowLeft = std::clamp(positionOf(window.currentTime()), 0.0, whole);
    box.windowRight = std::clamp(positionOf(window.windowEnd()), 0.0, whole);
    const double least = std::min(narrowestBox + widerPerLevel * window.zoomFactor(), whole);
    const double width = std::max(box.windowRight - box.windowLeft, least);
    box.left = std::clamp((box.windowLeft + box.windowRight - width) / 2, 0.0, whole - width);
    box.right = box.left + width;
    return box;
}

TimeWindow BandScale::withEdgeAt(const TimeWindow& window, BandEdge edge, double position) const
{
    TimeWindow nearest = window;
    double least = -1;
    // if several come as near, as at the end of the band, the level stays
    for (int step = 0; step <= 2 * TimelineScale::dayLevel; ++step) {
        const int level = window.zoomFactor() + (step % 2 == 0 ? step / 2 : -(step + 1) / 2);
        if (level < 0 || level > TimelineScale::dayLevel) continue;
        TimeWindow moved = window;
        moved.setLevel(level);
        moved.moveWithin(edge == BandEdge::Right
                             ? window.currentTime()
                             : window.windowEnd() - (moved.windowEnd() - moved.currentTime()));
        const BandBox box = boxOf(moved);
        const double distance = std::abs((edge == BandEdge::Right ? box.right : box.left) - position);
        if (least >= 0 && distance >= least) continue;
        least = distance;
        nearest = moved;
    }
    return nearest;
}

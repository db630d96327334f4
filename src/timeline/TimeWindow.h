// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "timeline/Moment.h"
#include "timeline/TimelineLimits.h"
#include "timeline/TimelineScale.h"

/// The visible window on the timeline: the position of its left edge, the zoom level, and how it moves
/// between the limits. The left edge never lies before the start of the timeline.
class TimeWindow
{
public:
    /// Goes to the start of a timeline, at the finest level.
    void begin(const TimelineLimits& limits);

    /// Takes new limits; the window stays where it is.
    void setLimits(const TimelineLimits& limits);

    /// The width of the picture, in units; one step is 385 units wide.
    void setWidth(int width);

    [[nodiscard]] const TimelineLimits& limits() const { return m_limits; }
    [[nodiscard]] Moment currentTime() const { return m_currentTime; } ///< at the left edge
    [[nodiscard]] Moment windowEnd() const { return m_currentTime + length(); }
    [[nodiscard]] int zoomFactor() const { return m_zoomFactor; }
    [[nodiscard]] int width() const { return m_width; }
    [[nodiscard]] Minutes step() const { return TimelineScale::stepAt(m_zoomFactor); }

    void NavBeginning();
    void NavStepBack();
    void NavJumpBack();
    void NavStepForward();
    void NavJumpForward();
    void NavEnd();

    [[nodiscard]] bool canZoomIn() const { return m_canZoomIn; }
    [[nodiscard]] bool canZoomOut() const { return m_canZoomOut; }

    /// Have no effect if the direction is disabled.
    void ZoomIn();
    void ZoomOut();

    /// Moves to an event unless it is in the window already. Then the window does not reach beyond the end of
    /// the timeline, unless the event itself lies there.
    void showEvent(Moment start, Moment end);

    /// Puts the left edge at a moment, but not before the start of the timeline. The window may reach beyond
    /// the end.
    void moveTo(Moment moment);

    /// Puts the left edge at a moment, or as near as the limits allow.
    void moveWithin(Moment leftEdge);

    /// Goes to where a window whose left edge was at a moment is dragged by so many units, to the right if
    /// they are positive; or as near as the limits allow. The left edge stands at a whole minute.
    void drag(Moment leftEdge, int units);

    /// Goes to a level, or as near as zooming in and out comes to it.
    void setLevel(int zoomFactor);

private:
    [[nodiscard]] Minutes length() const;
    [[nodiscard]] Moment latestLeftEdge() const { return m_limits.timelineEnd - length(); }
    [[nodiscard]] Minutes jump() const { return TimelineScale::stepAt(m_zoomFactor + 2); }
    [[nodiscard]] bool showsAll() const { return latestLeftEdge() < m_limits.timelineStart; }
    void back(Minutes minutes);
    void forward(Minutes minutes);
    void enableZoomOut();

    TimelineLimits m_limits;
    Moment m_currentTime = 0;
    int m_zoomFactor = 0;
    int m_width = 0;
    bool m_canZoomIn = false;
    bool m_canZoomOut = true;
};

#pragma once

#include "timeline/Moment.h"
#include "timeline/TimelineLimits.h"
#include "timeline/TimelineScale.h"

/// The visible window on the timeline: where its left edge is, how coarse its scale is, and how it moves
/// between the limits. Its left edge never lies before the timeline's start.
class TimeWindow
{
public:
    /// Begins at the start of the timeline, at the finest level.
    void begin(const TimelineLimits& limits);

    /// Takes new limits; the window stays where it is.
    void setLimits(const TimelineLimits& limits);

    /// The width of the picture, in units; 385 are one step.
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

    /// Nothing happens where the direction is disabled.
    void ZoomIn();
    void ZoomOut();

    /// Moves to an event unless it is in the window already; the window then ends with the timeline at the
    /// latest.
    void showEvent(Moment start, Moment end);

    /// Puts the left edge at a moment, or at the start of the timeline where it lies before that. The window
    /// may reach beyond the end.
    void moveTo(Moment moment);

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

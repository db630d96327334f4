// SPDX-License-Identifier: GPL-3.0-or-later

#include "timeline/TimeWindow.h"

#include <algorithm>
#include <cmath>

void TimeWindow::begin(const TimelineLimits& limits)
{
    m_limits = limits;
    m_currentTime = limits.timelineStart;
    m_zoomFactor = 0;
    m_canZoomIn = false;
    m_canZoomOut = true;
}

void TimeWindow::setLimits(const TimelineLimits& limits)
{
    m_limits = limits;
    enableZoomOut();
}

void TimeWindow::setWidth(int width)
{
    m_width = width;
    enableZoomOut();
}

/// A window that showed the whole timeline may no longer do so, and the other way round.
void TimeWindow::enableZoomOut()
{
    m_canZoomOut = m_zoomFactor < TimelineScale::dayLevel && (m_zoomFactor == 0 || !showsAll());
}

/// Rounded down: a minute that the right edge cuts is not in the window.
Minutes TimeWindow::length() const
{
    return m_width * step() / TimelineScale::stepWidth;
}

void TimeWindow::NavBeginning()
{
    m_currentTime = m_limits.timelineStart;
}

void TimeWindow::NavStepBack()
{
    back(step());
}

void TimeWindow::NavJumpBack()
{
    back(jump());
}

void TimeWindow::NavStepForward()
{
    forward(step());
}

void TimeWindow::NavJumpForward()
{
    forward(jump());
}

void TimeWindow::NavEnd()
{
    m_currentTime = std::max(latestLeftEdge(), m_limits.timelineStart);
}

void TimeWindow::back(Minutes minutes)
{
    m_currentTime = std::max(m_currentTime - minutes, m_limits.timelineStart);
}

void TimeWindow::forward(Minutes minutes)
{
    m_currentTime = std::min(m_currentTime + minutes, latestLeftEdge());
    m_currentTime = std::max(m_currentTime, m_limits.timelineStart);
}

void TimeWindow::ZoomIn()
{
    if (!m_canZoomIn) return;
    --m_zoomFactor;
    m_canZoomOut = true;
    m_canZoomIn = m_zoomFactor > 0;
}

void TimeWindow::ZoomOut()
{
    if (!m_canZoomOut) return;
    ++m_zoomFactor;
    m_canZoomIn = true;
    m_canZoomOut = m_zoomFactor < TimelineScale::dayLevel;
    if (windowEnd() <= m_limits.timelineEnd) return;
    if (showsAll()) m_canZoomOut = false;
    NavEnd();
}

void TimeWindow::showEvent(Moment start, Moment end)
{
    const bool isVisible = (start < windowEnd() && end > m_currentTime) || start == m_currentTime;
    if (isVisible) return;
    moveTo(start);
    // an event without a valid end may start after the end of the timeline; it is shown all the same
    const bool isWithin = start <= m_limits.timelineEnd;
    if (isWithin && windowEnd() > m_limits.timelineEnd) NavEnd();
}

void TimeWindow::moveTo(Moment moment)
{
    m_currentTime = std::max(moment, m_limits.timelineStart);
}

void TimeWindow::moveWithin(Moment leftEdge)
{
    m_currentTime = std::max(std::min(leftEdge, latestLeftEdge()), m_limits.timelineStart);
}

void TimeWindow::drag(Moment leftEdge, int units)
{
    const double steps = static_cast<double>(units) / TimelineScale::stepWidth;
    moveWithin(leftEdge - std::llround(steps * static_cast<double>(step())));
}

void TimeWindow::setLevel(int zoomFactor)
{
    while (m_zoomFactor < zoomFactor && m_canZoomOut)
        ZoomOut();
    while (m_zoomFactor > zoomFactor && m_canZoomIn)
        ZoomIn();
}

// SPDX-License-Identifier: GPL-3.0-or-later

#include "timeline/Timeline.h"

#include "data/DatabaseSession.h"
#include "platform/Clock.h"
#include "platform/Messages.h"
#include "platform/Procedure.h"
#include "timeline/TimelineTexts.h"
#include "views/ViewHistory.h"

#include <algorithm>

namespace {

TimelineLimits today(const QDateTime& now)
{
    return {momentOf(now.date()), momentOf(now.date(), now.time()) + minutesOfDay};
}

} // namespace

Timeline::Timeline(DatabaseSession& session, ViewHistory& history, const Clock& clock, Messages& messages,
                   TextWidth captionWidth, LabelWidth labelWidth)
    : m_session(session),
      m_history(history),
      m_clock(clock),
      m_messages(messages),
      m_captionWidth(std::move(captionWidth)),
      m_labelWidth(std::move(labelWidth)),
      m_events(session)
{
    m_window.begin(today(clock.now()));
}

void Timeline::mainLoad()
{
    m_events.clear();
    m_density = std::make_shared<EventDensity>();
    m_scroll = {};
    TimelineLimits limits = today(m_clock.now());
    if (m_session.isOpen()) {
        runProcedure(m_messages, QStringLiteral("setTimelineLimits"),
                     [&] { setTimelineLimits(m_session, m_clock.now(), limits); });
    }
    m_window.begin(limits);
    refresh(m_window);
}

void Timeline::drawTimeline()
{
    if (!showsEvents()) return;
    std::vector<WindowEvent> events;
    try {
        events = m_events.read(*m_history.graphicQuery(), m_window);
    } catch (const std::exception&) {
        m_density = std::make_shared<EventDensity>();
        return;
    }
    const bool done =
        runProcedure(m_messages, QStringLiteral("searchByTimeConstraint"), [&] { take(std::move(events)); });
    if (done) DisplayRecords();
    readDensity();
}

/// A failure leaves none: the list reads the same view and reports it.
void Timeline::readDensity()
{
    try {
        m_density = std::make_shared<EventDensity>(EventDensity::read(m_session, *m_history.graphicQuery()));
    } catch (const std::exception&) {
        m_density = std::make_shared<EventDensity>();
    }
}

void Timeline::updateTimeline(std::optional<Moment> savedStart)
{
    TimelineLimits limits = m_window.limits();
    runProcedure(m_messages, QStringLiteral("setTimelineLimits"),
                 [&] { setTimelineLimits(m_session, m_clock.now(), limits); });
    m_window.setLimits(limits);
    const TimeWindow before = m_window;
    m_window.moveTo(savedStart.value_or(m_window.currentTime()));
    refresh(before);
}

void Timeline::resize(int width, int height)
{
    const bool isWindowNew = width != m_window.width();
    m_window.setWidth(width);
    m_laneCount = TimelineLanes::laneCount(height);
    positionScale();
    // a resize is no user action: errors are not reported, and the events read before are drawn
    try {
        if (isWindowNew) search();
    } catch (const std::exception&) {
    }
    showSelected();
}

void Timeline::navigate(void (TimeWindow::*move)())
{
    const TimeWindow before = m_window;
    (m_window.*move)();
    refresh(before);
}

void Timeline::NavBeginning()
{
    navigate(&TimeWindow::NavBeginning);
}

void Timeline::NavStepBack()
{
    navigate(&TimeWindow::NavStepBack);
}

void Timeline::NavJumpBack()
{
    navigate(&TimeWindow::NavJumpBack);
}

void Timeline::NavStepForward()
{
    navigate(&TimeWindow::NavStepForward);
}

void Timeline::NavJumpForward()
{
    navigate(&TimeWindow::NavJumpForward);
}

void Timeline::NavEnd()
{
    navigate(&TimeWindow::NavEnd);
}

void Timeline::ZoomIn()
{
    if (m_window.canZoomIn()) navigate(&TimeWindow::ZoomIn);
}

void Timeline::ZoomOut()
{
    if (m_window.canZoomOut()) navigate(&TimeWindow::ZoomOut);
}

void Timeline::showPeriod(Moment leftEdge, int zoomFactor)
{
    const TimeWindow before = m_window;
    m_window.setLevel(zoomFactor);
    m_window.moveWithin(leftEdge);
    refresh(before);
}

void Timeline::VScroll1_Change(int value)
{
    const bool done = runProcedure(m_messages, QStringLiteral("searchByTimeConstraint"), [this, value] {
        search();
        m_scroll.value = value;
    });
    if (done) DisplayRecords();
}

void Timeline::chooseEvent(qint64 eventId)
{
    if (!showsEvents()) return;
    m_history.select(eventId);
    const TimeWindow before = m_window;
    const bool done = runProcedure(m_messages, QStringLiteral("searchByTimeConstraint"), [this, eventId] {
        showInWindow(eventId);
        positionScale();
        search();
        if (const auto position = m_events.positionOf(eventId)) m_scroll.value = static_cast<int>(*position);
    });
    if (done) {
        DisplayRecords();
    } else {
        goBackTo(before);
        showSelected();
    }
}

/// An event without a start has no place: the window stays where it is. Throws Error.
void Timeline::showInWindow(qint64 eventId)
{
    const auto event = readEvent(m_session, eventId);
    if (event && !event->startDate.empty()) m_window.showEvent(event->start(), event->end());
}

void Timeline::selectEvent(qint64 eventId)
{
    if (showsEvents()) m_history.select(eventId);
    DisplayRecords();
}

void Timeline::showSelected()
{
    // what cannot be drawn was reported when its window was first drawn
    try {
        drawLanes();
    } catch (const std::exception&) {
    }
}

std::optional<Moment> Timeline::firstStartFrom(Moment moment) const
{
    if (!showsEvents()) return std::nullopt;
    try {
        const auto event = m_events.firstFrom(*m_history.graphicQuery(), moment);
        return event ? std::optional(event->start) : std::nullopt;
    } catch (const std::exception&) {
        return std::nullopt;
    }
}

std::array<QString, Timeline::captionCount> Timeline::captions() const
{
    std::array<QString, captionCount> texts;
    for (std::size_t i = 0; i < captionCount; ++i) {
        texts[i] = dateTimeText(m_window.currentTime() + m_window.step() * static_cast<Minutes>(i));
    }
    return texts;
}

/// Shows the events of the window after a move; if they cannot be read, moves back.
void Timeline::refresh(const TimeWindow& before)
{
    positionScale();
    if (!searchByTimeConstraint()) goBackTo(before);
}

void Timeline::goBackTo(const TimeWindow& before)
{
    m_window = before;
    positionScale();
}

/// Lays the ruler out for the window. At a level that has none, the ruler stays as it is.
void Timeline::positionScale()
{
    const int level = m_window.zoomFactor();
    const auto strip =
        TimelineScale::positionScale(level, m_window.limits().timelineStart, m_window.currentTime());
    if (strip) {
        m_ruler = rulerOf(m_window, *strip, m_labelWidth);
    } else {
        m_messages.show(TimelineTexts::tr("zoomFactor %1 not yet handled.").arg(level));
    }
}

bool Timeline::showsEvents() const
{
    return m_history.current() > 0 && m_history.currentKind() == ViewKind::Events;
}

/// True if the events could be read.
bool Timeline::searchByTimeConstraint()
{
    const bool done =
        runProcedure(m_messages, QStringLiteral("searchByTimeConstraint"), [this] { search(); });
    if (done) DisplayRecords();
    return done;
}

/// Reads the events of the window. Throws Error; then those read before stay.
void Timeline::search()
{
    if (showsEvents()) take(m_events.read(*m_history.graphicQuery(), m_window));
}

/// Throws Error; then those before stay.
void Timeline::take(std::vector<WindowEvent> events)
{
    m_events.take(std::move(events), *m_history.graphicQuery(), m_window);
    m_scroll.value = 0;
}

void Timeline::DisplayRecords()
{
    runProcedure(m_messages, QStringLiteral("DisplayRecords"), [this] { drawLanes(); });
}

/// Draws the lanes from the event at the scroll bar's position on. Throws Error; the lanes drawn so far stay.
void Timeline::drawLanes()
{
    const std::vector<WindowEvent>& events = m_events.events();
    const auto lanes = static_cast<std::size_t>(m_laneCount);
    m_scroll.isShown = lanes < events.size();
    m_scroll.max = m_scroll.isShown ? static_cast<int>(events.size() - lanes) : 0;
    m_scroll.value = std::clamp(m_scroll.value, 0, m_scroll.max);
    m_lanes.clear();
    const std::optional<qint64> selected = showsEvents() ? m_history.selected() : std::nullopt;
    TimelineLanes::draw(m_window, events, static_cast<std::size_t>(m_scroll.value), m_laneCount, selected,
                        m_captionWidth, m_lanes);
}

// SPDX-License-Identifier: GPL-3.0-or-later

#include "timeline/Timeline.h"

#include "data/DatabaseSession.h"
#include "platform/Clock.h"
#include "platform/Messages.h"
#include "platform/Procedure.h"
#include "timeline/TimelineTexts.h"
#include "timeline/TypedPeriod.h"
#include "views/ViewHistory.h"

#include <QLocale>

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
    m_isFirst = true;
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
        events = m_isFirst ? readFirst() : m_events.read(*m_history.graphicQuery(), m_window);
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

/// Reads the events of the first view. If it shows none of them where the timeline begins, zooms out until it
/// does; if it shows none at the coarsest scale either, the window stays as it is. Throws Error.
std::vector<WindowEvent> Timeline::readFirst()
{
    TimeWindow window = m_window;
    std::vector<WindowEvent> events = m_events.read(*m_history.graphicQuery(), window);
    while (events.empty() && window.canZoomOut()) {
        window.ZoomOut();
        events = m_events.read(*m_history.graphicQuery(), window);
    }
    m_isFirst = false;
    if (!events.empty()) m_window = window;
    positionScale();
    return events;
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
    const bool wasInSight = std::ranges::any_of(m_lanes, &Lane::isSelected);
    m_window.setWidth(width);
    m_laneCount = TimelineLanes::laneCount(height);
    positionScale();
    // a resize is no user action: errors are not reported, and the events read before are drawn
    try {
        if (isWindowNew) search();
    } catch (const std::exception&) {
    }
    const auto selected = selectedPosition();
    if (wasInSight && selected) bringIntoSight(*selected);
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

void Timeline::drag(Moment leftEdge, int units)
{
    const TimeWindow before = m_window;
    m_window.drag(leftEdge, units);
    if (m_window.currentTime() != before.currentTime()) refresh(before);
}

QString Timeline::goToDate(const QString& text)
{
    const TypedPeriod period = readTypedPeriod(text, m_clock.now(), m_window.limits());
    if (period.problem.isEmpty()) showPeriod(period.start, m_window.zoomFactor());
    return period.problem;
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

std::optional<qint64> Timeline::selectBeside(int lanes)
{
    const std::vector<WindowEvent>& events = m_events.events();
    if (!showsEvents() || events.empty()) return std::nullopt;
    const int last = static_cast<int>(events.size()) - 1;
    int goal = m_scroll.value + (lanes > 0 ? 0 : std::max(m_laneCount, 1) - 1);
    if (const auto selected = selectedPosition()) goal = static_cast<int>(*selected) + lanes;
    const auto position = static_cast<std::size_t>(std::clamp(goal, 0, last));
    bringIntoSight(position);
    const qint64 eventId = events[position].eventId;
    selectEvent(eventId);
    return eventId;
}

/// Scrolls the lanes no further than the event at a position needs.
void Timeline::bringIntoSight(std::size_t position)
{
    const int lane = static_cast<int>(position);
    m_scroll.value = std::clamp(m_scroll.value, lane - std::max(m_laneCount, 1) + 1, lane);
}

/// The position in the window of the event that is selected in the view, if it lies there.
std::optional<std::size_t> Timeline::selectedPosition() const
{
    const std::optional<qint64> selected = showsEvents() ? m_history.selected() : std::nullopt;
    return selected ? m_events.positionOf(*selected) : std::nullopt;
}

QString Timeline::description() const
{
    const std::size_t count = m_events.events().size();
    const QString number = QLocale(QLocale::English).toString(count);
    const QString events = count == 1
                               ? TimelineTexts::tr("1 event")
                               : TimelineTexts::tr("%1 events", nullptr, static_cast<int>(count)).arg(number);
    return TimelineTexts::tr("%1 to %2: %3")
        .arg(dateTimeText(m_window.currentTime()), dateTimeText(m_window.windowEnd()), events);
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
    // the selected event would have no lane in sight
    const auto selected = selectedPosition();
    if (selected && *selected >= static_cast<std::size_t>(m_laneCount)) {
        m_scroll.value = static_cast<int>(*selected);
    }
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

#include "timeline/Timeline.h"

#include "platform/Clock.h"
#include "platform/Messages.h"
#include "platform/Procedure.h"
#include "state/ProgramState.h"
#include "timeline/TimeWindowQuery.h"

#include <QCoreApplication>

#include <algorithm>

namespace {

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(Timeline)
};

TimelineLimits today(const QDateTime& now)
{
    return {momentOf(now.date()), momentOf(now.date(), now.time()) + minutesOfDay};
}

} // namespace

Timeline::Timeline(const Platform& platform, ProgramState& state, TextWidth captionWidth,
                   LabelWidth labelWidth)
    : m_platform(platform),
      m_state(state),
      m_captionWidth(std::move(captionWidth)),
      m_labelWidth(std::move(labelWidth))
{
    m_window.begin(today(platform.clock.now()));
}

void Timeline::mainLoad()
{
    m_events.clear();
    m_hitCount = 0;
    m_scroll = {};
    m_before.reset();
    m_after.reset();
    TimelineLimits limits = today(m_platform.clock.now());
    if (m_state.session.isOpen()) {
        runProcedure(m_platform.messages, QStringLiteral("setTimelineLimits"),
                     [&] { setTimelineLimits(m_state.session, m_platform.clock.now(), limits); });
    }
    m_window.begin(limits);
    refresh(m_window);
}

void Timeline::drawTimeline()
{
    if (!showsEvents()) return;
    std::vector<WindowEvent> events;
    try {
        events = readWindow();
    } catch (const std::exception&) {
        // the list is about to read the same view, and says what is wrong with it
        return;
    }
    const bool done = runProcedure(m_platform.messages, QStringLiteral("searchByTimeConstraint"),
                                   [&] { take(std::move(events)); });
    if (done) DisplayRecords();
}

void Timeline::updateTimeline(std::optional<Moment> savedStart)
{
    TimelineLimits limits = m_window.limits();
    runProcedure(m_platform.messages, QStringLiteral("setTimelineLimits"),
                 [&] { setTimelineLimits(m_state.session, m_platform.clock.now(), limits); });
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
    // nobody asked for anything, so nobody is told what goes wrong
    try {
        if (isWindowNew) search();
    } catch (const std::exception&) {
        // those read before are drawn at their new places
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

void Timeline::VScroll1_Change(int value)
{
    const bool done =
        runProcedure(m_platform.messages, QStringLiteral("searchByTimeConstraint"), [this, value] {
            search();
            m_scroll.value = value;
        });
    if (done) DisplayRecords();
}

void Timeline::chooseEvent(qint64 eventId)
{
    if (!showsEvents()) return;
    m_state.history.select(eventId);
    const TimeWindow before = m_window;
    const bool done =
        runProcedure(m_platform.messages, QStringLiteral("searchByTimeConstraint"), [this, eventId] {
            showInWindow(eventId);
            positionScale();
            search();
            const auto found =
                std::find_if(m_events.begin(), m_events.end(),
                             [eventId](const WindowEvent& row) { return row.eventId == eventId; });
            if (found != m_events.end()) m_scroll.value = static_cast<int>(found - m_events.begin());
        });
    if (done) {
        DisplayRecords();
    } else {
        goBackTo(before);
        showSelected();
    }
}

void Timeline::showInWindow(qint64 eventId)
{
    RecordSet rows = m_state.session.read(
        QStringLiteral(
            "SELECT EventName, StartDate, EndDate, StartTime, EndTime FROM Event WHERE EventID = ") +
        QString::number(eventId));
    if (!rows.next()) return;
    const auto held = [&rows](QStringView column) { return std::string(rows.held(rows.column(column))); };
    const WindowEvent event{eventId,
                            rows.text(rows.column(u"EventName")),
                            false,
                            held(u"StartDate"),
                            held(u"StartTime"),
                            held(u"EndDate"),
                            held(u"EndTime")};
    // an event without a date has no place to go to
    if (!event.startDate.empty()) m_window.showEvent(event.start(), event.end());
}

void Timeline::selectEvent(qint64 eventId)
{
    if (showsEvents()) m_state.history.select(eventId);
    DisplayRecords();
}

void Timeline::showSelected()
{
    // what cannot be drawn was reported when it was to be seen first
    try {
        drawLanes();
    } catch (const std::exception&) {
        return;
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

/// Shows the events of a window that was moved. If they cannot be read, the window goes back.
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

/// Lays the ruler behind the window; at a level that has none, it stays where it is.
void Timeline::positionScale()
{
    const int level = m_window.zoomFactor();
    const auto strip =
        TimelineScale::positionScale(level, m_window.limits().timelineStart, m_window.currentTime());
    if (strip) {
        m_ruler = rulerOf(m_window, *strip, m_labelWidth);
    } else {
        m_platform.messages.show(Texts::tr("zoomFactor %1 not yet handled.").arg(level));
    }
}

bool Timeline::showsEvents() const
{
    const ViewHistory& history = m_state.history;
    return history.current() > 0 && history.currentKind() == ViewKind::Events;
}

/// True if the events could be read.
bool Timeline::searchByTimeConstraint()
{
    const bool done =
        runProcedure(m_platform.messages, QStringLiteral("searchByTimeConstraint"), [this] { search(); });
    if (done) DisplayRecords();
    return done;
}

/// Reads the events of the window. Throws Error; then those read before stay.
void Timeline::search()
{
    if (showsEvents()) take(readWindow());
}

/// The view must be one of events.
std::vector<WindowEvent> Timeline::readWindow()
{
    return readWindowEvents(m_state.session.read(TimeWindowQuery::inWindow(
        *m_state.history.currentQuery(), m_window.currentTime(), m_window.windowEnd())));
}

/// Takes the events of the window and, if there are none, finds the nearest. Throws Error; then all stays as
/// it was.
void Timeline::take(std::vector<WindowEvent> events)
{
    std::optional<NearestEvent> before;
    std::optional<NearestEvent> after;
    if (events.empty()) {
        const SharedQuery view = m_state.history.currentQuery();
        before = firstOf(TimeWindowQuery::before(*view, m_window.currentTime()));
        after = firstOf(TimeWindowQuery::after(*view, m_window.windowEnd()));
    }
    m_events = std::move(events);
    m_before = std::move(before);
    m_after = std::move(after);
    m_scroll.value = 0;
    if (!m_events.empty()) m_hitCount = m_events.size();
}

std::optional<NearestEvent> Timeline::firstOf(const QString& statement)
{
    const auto events = readWindowEvents(m_state.session.read(statement), 1);
    if (events.empty()) return std::nullopt;
    return NearestEvent{events.front().eventId, events.front().eventName, events.front().start()};
}

void Timeline::DisplayRecords()
{
    runProcedure(m_platform.messages, QStringLiteral("DisplayRecords"), [this] { drawLanes(); });
}

/// Draws the lanes from the event that the scroll bar names. Throws Error; the lanes drawn so far stay.
void Timeline::drawLanes()
{
    const auto lanes = static_cast<std::size_t>(m_laneCount);
    m_scroll.isShown = lanes < m_events.size();
    m_scroll.max = m_scroll.isShown ? static_cast<int>(m_events.size() - lanes) : 0;
    m_scroll.value = std::clamp(m_scroll.value, 0, m_scroll.max);
    m_lanes.clear();
    const std::optional<qint64> selected = showsEvents() ? m_state.history.selected() : std::nullopt;
    TimelineLanes::draw(m_window, m_events, static_cast<std::size_t>(m_scroll.value), m_laneCount, selected,
                        m_captionWidth, m_lanes);
}

#pragma once

#include "timeline/TimeWindow.h"
#include "timeline/TimelineLanes.h"
#include "timeline/TimelineRuler.h"
#include "timeline/WindowEvents.h"

#include <QString>

#include <array>
#include <optional>
#include <vector>

class Clock;
class DatabaseSession;
class Messages;
class ViewHistory;

/// An event to go to from a window that shows none.
struct NearestEvent
{
    qint64 eventId = 0;
    QString eventName;
    Moment start = 0;
};

/// The lane scroll bar: hidden while all events of the window have a lane.
struct LaneScroll
{
    int value = 0; ///< the position of the event in the first lane
    int max = 0;
    bool isShown = false;
};

/// The timeline of the events in the current view: its state, what each of its handlers does to it, and what
/// there is to see afterwards. Lives as long as the main window, which shows it.
class Timeline
{
public:
    static constexpr std::size_t captionCount = 4;

    /// The four references must outlive the timeline. `captionWidth` measures the captions of the lanes,
    /// `labelWidth` the labels of the ruler.
    Timeline(DatabaseSession& session, ViewHistory& history, const Clock& clock, Messages& messages,
             TextWidth captionWidth, LabelWidth labelWidth);

    /// Begins anew on the database that is open.
    void mainLoad();

    /// Shows the events of the current view; failures are the list's to report, which reads the same view.
    void drawTimeline();

    /// After an event was saved: reads the limits again and moves to the event's start. Where it has none,
    /// the window stays where it is, or as near as the limits allow.
    void updateTimeline(std::optional<Moment> savedStart);

    /// The picture has another size, in units.
    void resize(int width, int height);

    void NavBeginning();
    void NavStepBack();
    void NavJumpBack();
    void NavStepForward();
    void NavJumpForward();
    void NavEnd();
    void ZoomIn();
    void ZoomOut();

    /// The lane scroll bar was moved to a value.
    void VScroll1_Change(int value);

    /// An event was chosen in the list: moves to it and selects it.
    void chooseEvent(qint64 eventId);

    /// An event was clicked on the timeline: selects it.
    void selectEvent(qint64 eventId);

    /// Another event is selected in the view: marks it, or none.
    void showSelected();

    [[nodiscard]] const TimeWindow& window() const { return m_window; }
    [[nodiscard]] int laneCount() const { return m_laneCount; }
    [[nodiscard]] const std::vector<Lane>& lanes() const { return m_lanes; }
    [[nodiscard]] const TimelineRuler& ruler() const { return m_ruler; }
    [[nodiscard]] const LaneScroll& scroll() const { return m_scroll; }

    /// The moments at the left edge and one, two and three steps after it.
    [[nodiscard]] std::array<QString, captionCount> captions() const;

    /// How many events the last window that was not empty had.
    [[nodiscard]] std::size_t hitCount() const { return m_hitCount; }

    [[nodiscard]] bool isEmpty() const { return m_events.empty(); }

    /// The events to go to from an empty window; both are nothing while it is not.
    [[nodiscard]] const std::optional<NearestEvent>& nearestBefore() const { return m_before; }
    [[nodiscard]] const std::optional<NearestEvent>& nearestAfter() const { return m_after; }

private:
    void navigate(void (TimeWindow::*move)());
    void refresh(const TimeWindow& before);
    void goBackTo(const TimeWindow& before);
    void positionScale();
    bool searchByTimeConstraint();
    void search();
    [[nodiscard]] std::vector<WindowEvent> readWindow();
    void take(std::vector<WindowEvent> events);
    void DisplayRecords();
    void drawLanes();
    void showInWindow(qint64 eventId);
    [[nodiscard]] std::optional<NearestEvent> firstOf(const QString& statement);
    [[nodiscard]] bool showsEvents() const;

    DatabaseSession& m_session;
    ViewHistory& m_history;
    const Clock& m_clock;
    Messages& m_messages;
    TextWidth m_captionWidth;
    LabelWidth m_labelWidth;
    TimeWindow m_window;
    int m_laneCount = 0;
    std::vector<WindowEvent> m_events;
    std::vector<Lane> m_lanes;
    TimelineRuler m_ruler;
    LaneScroll m_scroll;
    std::size_t m_hitCount = 0;
    std::optional<NearestEvent> m_before;
    std::optional<NearestEvent> m_after;
};

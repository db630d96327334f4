// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "timeline/EventDensity.h"
#include "timeline/TimeWindow.h"
#include "timeline/TimelineLanes.h"
#include "timeline/TimelineRuler.h"
#include "timeline/VisibleEvents.h"

#include <QString>

#include <array>
#include <memory>
#include <optional>
#include <vector>

class Clock;
class DatabaseSession;
class Messages;
class ViewHistory;

/// The lane scroll bar, hidden if all events of the window have a lane.
struct LaneScroll
{
    int value = 0; ///< the position of the event in the first lane
    int max = 0;
    bool isShown = false;
};

/// The timeline of the events in the current view: its state, what each of its handlers does to it, and what
/// it then shows. Lives as long as the main window.
class Timeline
{
public:
    static constexpr std::size_t captionCount = 4;

    /// The four references must outlive the timeline. `captionWidth` measures the captions of the lanes,
    /// `labelWidth` the labels of the ruler.
    Timeline(DatabaseSession& session, ViewHistory& history, const Clock& clock, Messages& messages,
             TextWidth captionWidth, LabelWidth labelWidth);

    /// Starts afresh on the database that is open.
    void mainLoad();

    /// Shows the events of the current view. A failure to read them is not reported: the list reads the same
    /// view and reports it.
    void drawTimeline();

    /// Reads the limits again after an event was saved, and moves to its start. If it has none, the window
    /// stays where it is, or as near as the limits allow.
    void updateTimeline(std::optional<Moment> savedStart);

    /// Takes the new size of the picture, in units.
    void resize(int width, int height);

    void NavBeginning();
    void NavStepBack();
    void NavJumpBack();
    void NavStepForward();
    void NavJumpForward();
    void NavEnd();
    void ZoomIn();
    void ZoomOut();

    /// Shows the window that begins at a moment, at a level; or the nearest to it that the limits allow.
    void showPeriod(Moment leftEdge, int zoomFactor);

    /// Shows the window that `TimeWindow::drag` goes to.
    void drag(Moment leftEdge, int units);

    /// Shows the window that begins with what a user typed, at the level as it is; or the nearest to it that
    /// the limits allow. Returns what is wrong with it, or an empty text.
    [[nodiscard]] QString goToDate(const QString& text);

    /// Shows the lanes from the event at a position on.
    void VScroll1_Change(int value);

    /// Selects an event that was chosen in the list, and moves to it.
    void chooseEvent(qint64 eventId);

    /// Selects an event that was clicked on the timeline.
    void selectEvent(qint64 eventId);

    /// Selects the event so many lanes below the selected one, above it if negative, or the nearest to that
    /// which the window has, and scrolls to its lane. If none of the window is selected, begins with the
    /// first lane in sight or, upwards, with the last. Returns the event, std::nullopt if the window has
    /// none.
    std::optional<qint64> selectBeside(int lanes);

    /// Marks the event that is selected in the view, or none.
    void showSelected();

    [[nodiscard]] const TimeWindow& window() const { return m_window; }
    [[nodiscard]] int laneCount() const { return m_laneCount; }
    [[nodiscard]] const std::vector<Lane>& lanes() const { return m_lanes; }
    [[nodiscard]] const TimelineRuler& ruler() const { return m_ruler; }
    [[nodiscard]] const LaneScroll& scroll() const { return m_scroll; }

    /// The moments at the left edge and one, two and three steps after it.
    [[nodiscard]] std::array<QString, captionCount> captions() const;

    /// How the events of the view last drawn are spread over the days; none if they could not be read.
    [[nodiscard]] const std::shared_ptr<const EventDensity>& density() const { return m_density; }

    /// The start of the first event of the view that starts at a moment or later, if there is one and it can
    /// be read.
    [[nodiscard]] std::optional<Moment> firstStartFrom(Moment moment) const;

    /// How many events the last window that was not empty had.
    [[nodiscard]] std::size_t hitCount() const { return m_events.hitCount(); }

    /// The period of the window and how many events it has, in words.
    [[nodiscard]] QString description() const;

    [[nodiscard]] bool isEmpty() const { return m_events.events().empty(); }

    /// The events to go to from an empty window; `std::nullopt` if the window has events.
    [[nodiscard]] const std::optional<NearestEvent>& nearestBefore() const
    {
        return m_events.nearestBefore();
    }
    [[nodiscard]] const std::optional<NearestEvent>& nearestAfter() const { return m_events.nearestAfter(); }

private:
    void navigate(void (TimeWindow::*move)());
    void refresh(const TimeWindow& before);
    void goBackTo(const TimeWindow& before);
    void positionScale();
    bool searchByTimeConstraint();
    void search();
    void readDensity();
    void take(std::vector<WindowEvent> events);
    [[nodiscard]] std::vector<WindowEvent> readFirst();
    [[nodiscard]] std::optional<std::size_t> selectedPosition() const;
    void bringIntoSight(std::size_t position);
    void DisplayRecords();
    void drawLanes();
    void showInWindow(qint64 eventId);
    [[nodiscard]] bool showsEvents() const;

    DatabaseSession& m_session;
    ViewHistory& m_history;
    const Clock& m_clock;
    Messages& m_messages;
    TextWidth m_captionWidth;
    LabelWidth m_labelWidth;
    TimeWindow m_window;
    int m_laneCount = 0;
    VisibleEvents m_events;
    std::shared_ptr<const EventDensity> m_density = std::make_shared<EventDensity>();
    std::vector<Lane> m_lanes;
    TimelineRuler m_ruler;
    LaneScroll m_scroll;
    bool m_isFirst = true; ///< until a view of events was shown
};

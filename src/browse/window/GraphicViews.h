// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "data/RecordKind.h"
#include "timeline/Moment.h"
#include "widgets/GraphicPicture.h"

#include <QObject>
#include <QTimer>

#include <optional>

class BrowsePage;
class ChartPane;
class Clock;
class DatabaseSession;
class ListPane;
class MapPane;
class Messages;
class ProgramFolder;
class SettingsStore;
class TimelinePanel;
class QWidget;
class ViewHistory;
struct StandardQueries;

/// The graphics beside the list: the chart of documents, the timeline of events and the map of organizations.
/// Keeps the selections of the list and of its graphic the same, and the records of both: while the user
/// types a filter, the graphic follows when typing pauses. A hidden graphic reads nothing; it is drawn when
/// it is shown again. Lives as long as the window.
class GraphicViews final : public QObject
{
    Q_OBJECT

public:
    /// What the graphics read, and where their messages go. All must outlive them.
    struct Surroundings
    {
        DatabaseSession& session;
        ViewHistory& history;
        const StandardQueries& queries;
        const ProgramFolder& folder;
        const Clock& clock;
        SettingsStore& settings;
        Messages& messages;
    };

    /// Becomes a child of the window. List and page must outlive it.
    GraphicViews(const Surroundings& surroundings, ListPane& list, BrowsePage& page, QWidget& window);

    [[nodiscard]] TimelinePanel& timeline() { return *m_timeline; }

    /// Starts over with the database that is open.
    void mainLoad();

    /// Draws the chart or the timeline for the current view, which come before the list is read, unless a
    /// filter narrows the view: the list tells which records that leaves. The page must show the kind.
    void drawBeforeList(RecordKind kind);

    /// Draws what was not drawn before the list; empties the map if the list could not be read. Then selects
    /// the same record in the graphic as in the list.
    void drawAfterList(RecordKind kind, bool isListed);

    /// Has the timeline read its limits again after an event was saved, and move to its start, if it has one.
    void updateTimeline(std::optional<Moment> savedStart);

    /// Whether the user has hidden the graphic of the kind shown.
    [[nodiscard]] bool isHidden() const;

    /// The graphic of the kind shown, for the records that the list shows; std::nullopt if it shows nothing
    /// or is hidden.
    [[nodiscard]] std::optional<GraphicPicture> picture();

private:
    QWidget* makeChart(QWidget* parent);
    QWidget* makeMap(QWidget* parent);
    void drawAgain();
    void draw(RecordKind kind);
    void explainEmpty();
    void narrow();
    void followFilter();
    void goToRecord(qint64 identifier);
    void showSelected();

    Surroundings m_at;
    ListPane& m_list;
    BrowsePage& m_page;
    TimelinePanel* m_timeline;
    ChartPane* m_chart = nullptr;       ///< null until documents are shown
    MapPane* m_map = nullptr;           ///< null until organizations are shown
    QTimer m_pause;                     ///< runs until typing has paused, if the filter has changed
    bool m_isDrawn = false;             ///< whether the graphic was drawn before the list
    bool m_isListed = false;            ///< whether the list could be read
    bool m_isOutdated = false;          ///< whether events have changed while the timeline was hidden
    std::optional<Moment> m_savedStart; ///< of the event that was saved last meanwhile
};

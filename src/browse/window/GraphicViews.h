#pragma once

#include "platform/Platform.h"
#include "views/clsView.h"

#include <QObject>

class BrowsePage;
class ChartPane;
class ListPane;
class MapPane;
class TimelinePanel;
class QWidget;
struct ProgramState;

/// The graphic views beside the lists: the chart of documents, the timeline of events and the map of
/// organizations. What is chosen in a list is shown in its graphic, and the other way round. Lives as long as
/// the window.
class GraphicViews final : public QObject
{
    Q_OBJECT

public:
    /// All must outlive the views, which become a child of the window.
    GraphicViews(const Platform& platform, ProgramState& state, ListPane& list, BrowsePage& page,
                 QWidget& window);

    [[nodiscard]] TimelinePanel& timeline() { return *m_timeline; }

    /// Begins anew on the database that is open.
    void mainLoad();

    /// Draws the graphic of the current view where that comes before its list is read: the chart and the
    /// timeline. The page must show the kind.
    void drawBeforeList(ViewKind kind);

    /// Draws the graphic that comes after the list: the map, empty where the list could not be read. Then
    /// list and graphic show the same record as selected.
    void drawAfterList(ViewKind kind, bool isListed);

private:
    QWidget* makeChart(QWidget* parent);
    QWidget* makeMap(QWidget* parent);
    void goToRecord(qint64 identifier);
    void showSelected();

    Platform m_platform;
    ProgramState& m_state;
    ListPane& m_list;
    TimelinePanel* m_timeline;
    ChartPane* m_chart = nullptr; ///< null until documents are shown
    MapPane* m_map = nullptr;     ///< null until organizations are shown
};

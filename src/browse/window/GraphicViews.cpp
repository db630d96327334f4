#include "browse/window/GraphicViews.h"

#include "browse/list/ListPane.h"
#include "browse/window/BrowsePage.h"
#include "chart/ChartPane.h"
#include "map/MapPane.h"
#include "state/ProgramState.h"
#include "timeline/TimelinePanel.h"

GraphicViews::GraphicViews(const Platform& platform, ProgramState& state, ListPane& list, BrowsePage& page,
                           QWidget& window)
    : QObject(&window),
      m_platform(platform),
      m_state(state),
      m_list(list),
      m_timeline(new TimelinePanel(state.session, state.history, platform.clock, platform.messages, &window))
{
    m_timeline->hide();
    page.setGraphic(
        ViewKind::Documents, [this](QWidget* parent) { return makeChart(parent); }, Qt::Horizontal);
    // the timeline is set up at start-up, whatever is shown first
    page.setGraphic(
        ViewKind::Events, [this](QWidget*) { return m_timeline; }, Qt::Vertical);
    page.setGraphic(
        ViewKind::Organizations, [this](QWidget* parent) { return makeMap(parent); }, Qt::Horizontal);
    // what is done next must not be done to another record
    connect(m_timeline, &TimelinePanel::eventSelected, &m_list, &ListPane::showSelected);
    connect(&m_list, &ListPane::selectionChanged, this, [this] {
        // once it is read, all of it is shown
        if (!m_list.isFilling()) showSelected();
    });
    connect(&m_list, &ListPane::chosen, this, &GraphicViews::goToRecord);
}

QWidget* GraphicViews::makeChart(QWidget* parent)
{
    m_chart = new ChartPane(m_state.session, m_state.history, m_state.queries, m_platform.messages, parent);
    return m_chart;
}

QWidget* GraphicViews::makeMap(QWidget* parent)
{
    m_map = new MapPane(m_state.session, m_state.history, m_state.queries, m_state.folder,
                        m_platform.messages, parent);
    connect(m_map, &MapPane::organizationsChosen, this,
            [this](const std::vector<qint64>& identifiers) { m_list.select(identifiers); });
    return m_map;
}

void GraphicViews::mainLoad()
{
    m_timeline->mainLoad();
    if (m_map != nullptr) m_map->forget();
}

void GraphicViews::drawBeforeList(ViewKind kind)
{
    if (kind == ViewKind::Documents) m_chart->drawCharts();
    if (kind == ViewKind::Events) m_timeline->drawTimeline();
}

void GraphicViews::drawAfterList(ViewKind kind, bool isListed)
{
    if (kind == ViewKind::Organizations) {
        // if it could not be read, the list has said what is wrong
        isListed ? m_map->drawMap() : m_map->clearMap();
    } else {
        showSelected();
    }
}

void GraphicViews::showSelected()
{
    if (m_list.kind() == ViewKind::Events) m_timeline->showSelected();
    if (m_list.kind() == ViewKind::Organizations) m_map->showSelected();
}

/// The user went to a record of the list; its graphic goes there too.
void GraphicViews::goToRecord(qint64 identifier)
{
    if (m_list.kind() == ViewKind::Events) m_timeline->chooseEvent(identifier);
    if (m_list.kind() == ViewKind::Organizations) m_map->goToSelected();
}

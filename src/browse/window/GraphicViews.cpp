// SPDX-License-Identifier: GPL-3.0-or-later

#include "browse/window/GraphicViews.h"

#include "browse/list/ListPane.h"
#include "browse/window/BrowsePage.h"
#include "chart/ChartPane.h"
#include "map/MapPane.h"
#include "timeline/TimelinePanel.h"

GraphicViews::GraphicViews(const Surroundings& surroundings, ListPane& list, BrowsePage& page,
                           QWidget& window)
    : QObject(&window),
      m_at(surroundings),
      m_list(list),
      m_timeline(new TimelinePanel(m_at.session, m_at.history, m_at.clock, m_at.messages, &window))
{
    m_timeline->hide();
    page.setGraphic(
        RecordKind::Document, [this](QWidget* parent) { return makeChart(parent); }, Qt::Horizontal);
    // made at start-up, whatever is shown first
    page.setGraphic(
        RecordKind::Event, [this](QWidget*) { return m_timeline; }, Qt::Vertical);
    page.setGraphic(
        RecordKind::Organization, [this](QWidget* parent) { return makeMap(parent); }, Qt::Horizontal);
    // the list has to follow: its commands must not act on another record
    connect(m_timeline, &TimelinePanel::eventSelected, &m_list, &ListPane::showSelected);
    connect(&m_list, &ListPane::selectionChanged, this, [this] {
        // drawAfterList() does it once the list is read
        if (!m_list.isFilling()) showSelected();
    });
    connect(&m_list, &ListPane::chosen, this, &GraphicViews::goToRecord);
}

QWidget* GraphicViews::makeChart(QWidget* parent)
{
    m_chart = new ChartPane(m_at.session, m_at.history, m_at.queries, m_at.messages, parent);
    return m_chart;
}

QWidget* GraphicViews::makeMap(QWidget* parent)
{
    m_map = new MapPane(m_at.session, m_at.history, m_at.queries, m_at.folder, m_at.messages, parent);
    connect(m_map, &MapPane::organizationsChosen, this,
            [this](const std::vector<qint64>& identifiers) { m_list.select(identifiers); });
    return m_map;
}

void GraphicViews::mainLoad()
{
    m_timeline->mainLoad();
    if (m_map != nullptr) m_map->forget();
}

void GraphicViews::drawBeforeList(RecordKind kind)
{
    if (kind == RecordKind::Document) m_chart->drawCharts();
    if (kind == RecordKind::Event) m_timeline->drawTimeline();
}

void GraphicViews::drawAfterList(RecordKind kind, bool isListed)
{
    if (kind == RecordKind::Organization) {
        // if it could not be read, the list has reported why
        isListed ? m_map->drawMap() : m_map->clearMap();
        if (isListed) m_map->explainEmpty(m_list.count());
    } else {
        showSelected();
    }
    if (kind == RecordKind::Document && isListed) m_chart->explainEmpty(m_list.count());
}

std::optional<GraphicPicture> GraphicViews::picture() const
{
    switch (m_list.kind()) {
    case RecordKind::Document:
        return m_chart == nullptr ? std::nullopt : m_chart->picture();
    case RecordKind::Event:
        return m_timeline->picture();
    case RecordKind::Organization:
        return m_map == nullptr ? std::nullopt : m_map->picture();
    }
    return std::nullopt;
}

void GraphicViews::showSelected()
{
    if (m_list.kind() == RecordKind::Event) m_timeline->showSelected();
    if (m_list.kind() == RecordKind::Organization) m_map->showSelected();
}

/// Moves the graphic to a record that the user went to in the list.
void GraphicViews::goToRecord(qint64 identifier)
{
    if (m_list.kind() == RecordKind::Event) m_timeline->chooseEvent(identifier);
    if (m_list.kind() == RecordKind::Organization) m_map->goToSelected();
}

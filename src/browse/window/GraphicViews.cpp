// SPDX-License-Identifier: GPL-3.0-or-later

#include "browse/window/GraphicViews.h"

#include "browse/list/ListPane.h"
#include "browse/window/BrowsePage.h"
#include "chart/ChartPane.h"
#include "map/MapPane.h"
#include "timeline/TimelinePanel.h"
#include "views/NarrowedQuery.h"
#include "views/ViewHistory.h"

#include <utility>

using namespace std::chrono_literals;

namespace {

/// Longer than most pauses between two keys, and short enough for the graphic to be drawn 200 ms after a key.
constexpr auto pauseOfTyping = 100ms;

} // namespace

GraphicViews::GraphicViews(const Surroundings& surroundings, ListPane& list, BrowsePage& page,
                           QWidget& window)
    : QObject(&window),
      m_at(surroundings),
      m_list(list),
      m_page(page),
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
    connect(&page, &BrowsePage::graphicShown, this, &GraphicViews::drawAgain);
    m_pause.setSingleShot(true);
    // without words there is no more typing to wait for
    connect(&m_list, &ListPane::filtered, this,
            [this] { m_pause.start(m_at.history.filter().isEmpty() ? 0ms : pauseOfTyping); });
    connect(&m_pause, &QTimer::timeout, this, &GraphicViews::followFilter);
}

QWidget* GraphicViews::makeChart(QWidget* parent)
{
    m_chart = new ChartPane(m_at.session, m_at.history, m_at.queries, m_at.settings, m_at.messages, parent);
    return m_chart;
}

QWidget* GraphicViews::makeMap(QWidget* parent)
{
    m_map = new MapPane(m_at.session, m_at.history, m_at.queries, m_at.folder, m_at.settings, m_at.messages,
                        parent);
    connect(m_map, &MapPane::organizationsChosen, this,
            [this](const std::vector<qint64>& identifiers) { m_list.select(identifiers); });
    return m_map;
}

void GraphicViews::mainLoad()
{
    m_timeline->mainLoad();
    m_isOutdated = false;
    m_savedStart.reset();
    if (m_map != nullptr) m_map->forget();
}

void GraphicViews::draw(RecordKind kind)
{
    switch (kind) {
    case RecordKind::Document:
        m_chart->drawCharts();
        break;
    case RecordKind::Event:
        if (std::exchange(m_isOutdated, false))
            m_timeline->updateTimeline(std::exchange(m_savedStart, std::nullopt));
        m_timeline->drawTimeline();
        break;
    case RecordKind::Organization:
        m_map->drawMap();
        break;
    }
}

/// Says to screen readers what a graphic shows, and in one that shows nothing why it does not. The list must
/// have been read.
void GraphicViews::explainEmpty()
{
    if (m_list.kind() == RecordKind::Document) m_chart->describe(m_list.count());
    if (m_list.kind() == RecordKind::Organization) m_map->explainEmpty(m_list.count());
}

void GraphicViews::drawBeforeList(RecordKind kind)
{
    m_pause.stop();
    m_isDrawn = kind != RecordKind::Organization && !m_page.hidesGraphic() && m_at.history.filter().isEmpty();
    if (m_isDrawn) draw(kind);
}

void GraphicViews::drawAfterList(RecordKind kind, bool isListed)
{
    m_pause.stop();
    m_isListed = isListed;
    if (m_page.hidesGraphic()) return;
    // the user may have typed a filter while the list was read
    const bool isNarrowed = !m_at.history.filter().isEmpty();
    if (isNarrowed) narrow();
    if (kind == RecordKind::Organization && !isListed) {
        // the list has reported why
        m_map->clearMap();
    } else if (isNarrowed || !m_isDrawn) {
        draw(kind);
    }
    if (isListed) explainEmpty();
    if (kind != RecordKind::Organization) showSelected();
}

/// Draws the graphic that was hidden. A list that is being read does so at its end.
void GraphicViews::drawAgain()
{
    m_isDrawn = false;
    if (m_list.isFilling()) return;
    if (m_isListed) narrow();
    drawAfterList(m_list.kind(), m_isListed);
}

/// Lets the graphic read the records that the list shows.
void GraphicViews::narrow()
{
    const RecordListModel& model = m_list.model();
    std::vector<qint64> shown;
    for (int row = 0; row < model.rowCount(); ++row)
        shown.push_back(model.identifier(row));
    std::vector<qint64> all;
    for (std::size_t row = 0; row < model.list().count(); ++row)
        all.push_back(model.list().identifier(row));
    m_at.history.setNarrowedQuery(
        narrowedTo(m_list.kind(), m_at.history.currentQuery(), std::move(shown), std::move(all)));
}

/// Draws the graphic for the records that the filter has left. A list that is being read does so at its end;
/// one that could not be read, and a page in the list's place, have none.
void GraphicViews::followFilter()
{
    m_pause.stop();
    if (m_page.hidesGraphic()) return;
    if (!m_isListed || m_list.isFilling() || m_at.history.currentKind() != viewOf(m_list.kind())) return;
    narrow();
    m_list.kind() == RecordKind::Organization ? m_map->followFilter() : draw(m_list.kind());
    explainEmpty();
}

void GraphicViews::updateTimeline(std::optional<Moment> savedStart)
{
    if (m_page.showsGraphic(RecordKind::Event)) return m_timeline->updateTimeline(savedStart);
    m_isOutdated = true;
    if (savedStart) m_savedStart = savedStart;
}

bool GraphicViews::isHidden() const
{
    return m_page.hidesGraphic();
}

std::optional<GraphicPicture> GraphicViews::picture()
{
    if (m_page.hidesGraphic()) return std::nullopt;
    if (m_pause.isActive()) followFilter();
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
    if (m_page.hidesGraphic()) return;
    if (m_list.kind() == RecordKind::Event) m_timeline->showSelected();
    if (m_list.kind() == RecordKind::Organization) m_map->showSelected();
}

/// Moves the graphic to a record that the user went to in the list.
void GraphicViews::goToRecord(qint64 identifier)
{
    if (m_page.hidesGraphic()) return;
    if (m_list.kind() == RecordKind::Event) m_timeline->chooseEvent(identifier);
    if (m_list.kind() == RecordKind::Organization) m_map->goToSelected();
}

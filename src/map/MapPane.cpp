// SPDX-License-Identifier: GPL-3.0-or-later

#include "map/MapPane.h"

#include "files/ProgramFolder.h"
#include "map/MapLegend.h"
#include "map/MapNotices.h"
#include "map/MapTools.h"
#include "map/MapView.h"
#include "map/MarkerPictures.h"
#include "map/PlacesMenu.h"
#include "map/StatesFile.h"
#include "platform/Procedure.h"
#include "platform/StdREG.h"
#include "views/ViewHistory.h"
#include "widgets/LinkButton.h"
#include "widgets/PictureLegend.h"
#include "widgets/WaitCursor.h"

#include <QAction>
#include <QBoxLayout>
#include <QPainter>

#include <algorithm>
#include <span>

namespace {

constexpr std::size_t mostNamesInTip = 12;

QString section()
{
    return QStringLiteral("Window");
}

QString groupName()
{
    return QStringLiteral("MapGroup");
}

} // namespace

MapPane::MapPane(DatabaseSession& session, ViewHistory& history, const StandardQueries& queries,
                 const ProgramFolder& folder, SettingsStore& settings, Messages& messages, QWidget* parent)
    : QWidget(parent),
      m_history(history),
      m_folder(folder),
      m_settings(settings),
      m_messages(messages),
      m_places(session),
      m_showOnly(session, queries),
      m_layout(new QBoxLayout(QBoxLayout::TopToBottom)),
      m_map(new MapView(this)),
      m_tools(new MapTools(*m_map, this)),
      m_notices(new MapNotices(*m_map)),
      m_legend(new MapLegend(this)),
      m_withoutPlace(new LinkButton(this)),
      m_menu(new PlacesMenu(this))
{
    setObjectName(QStringLiteral("MapPane"));
    layOut();
    setFocusProxy(m_map);
    connect(m_map, &MapView::chosen, this, &MapPane::choose);
    m_map->describe = [this](std::size_t entry) { return description(entry); };
    connectMenu();
    connectLegend();
    connectGroups();
}

MapPane::~MapPane() = default;

void MapPane::layOut()
{
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(m_tools);
    layout->addLayout(m_layout, 1);
    m_layout->setSpacing(2);
    m_layout->addWidget(m_map, 1);
    auto* explanations = new QVBoxLayout;
    explanations->setSpacing(0);
    explanations->addWidget(m_legend);
    explanations->addWidget(m_withoutPlace);
    m_layout->addLayout(explanations);
    m_withoutPlace->setObjectName(QStringLiteral("cmdWithoutPlace"));
    m_withoutPlace->hide();
}

void MapPane::connectMenu()
{
    connect(m_map, &MapView::menuRequested, this, &MapPane::showMenu);
    connect(m_menu, &PlacesMenu::cityChosen, this, [this](const clsCities& place) {
        showOnly(QStringLiteral("popOrgTabShowOnlyCity"),
                 [&] { return m_showOnly.organizationsOfCity(place); });
    });
    connect(m_menu, &PlacesMenu::stateChosen, this, [this](const clsCities& place) {
        showOnly(QStringLiteral("popOrgTabShowOnlyState"),
                 [&] { return m_showOnly.organizationsOfState(place); });
    });
    connect(m_menu, &PlacesMenu::allChosen, this, [this] {
        showOnly(QStringLiteral("popOrgTabShowOnlyThese"), [this] {
            return m_showOnly.organizationsAt(m_places.identifiersOf(m_menuEntries), m_menuPlaces);
        });
    });
    connect(m_withoutPlace, &LinkButton::clicked, this, [this] {
        showOnly(QStringLiteral("cmdWithoutPlace_Click"),
                 [this] { return m_showOnly.organizationsWithoutPlace(m_places.queryWithoutPlace()); });
    });
}

void MapPane::connectLegend()
{
    connect(m_legend, &MapLegend::raised, m_map, &MapView::setRaised);
    connect(m_legend, &MapLegend::hiddenChanged, this, [this] {
        m_map->setHidden(m_legend->hiddenColours());
        summarize();
        sayIfHidden();
    });
}

void MapPane::connectGroups()
{
    QAction& group = m_tools->group();
    group.setChecked(StdREG(m_settings).GetRegString(section(), groupName()) == QStringLiteral("on"));
    connect(&group, &QAction::toggled, this, [this](bool isGrouped) {
        StdREG(m_settings)
            .WriteRegString(section(), groupName(), isGrouped ? QStringLiteral("on") : QStringLiteral("off"));
        m_isOfferOver = true;
        updateOffer();
    });
    connect(m_notices, &MapNotices::groupsWanted, &group, &QAction::trigger);
    connect(m_notices, &MapNotices::groupsRefused, this, [this] {
        m_isOfferOver = true;
        updateOffer();
    });
    connect(m_map, &MapView::arranged, this, &MapPane::updateOffer);
}

void MapPane::updateOffer()
{
    m_notices->offerGroups(!m_isOfferOver && !m_map->isGrouped() && m_map->areMostCovered());
}

void MapPane::explainEmpty(std::size_t organizations)
{
    if (!m_places.entries().empty()) return;
    m_notices->explainEmpty(organizations == 0 ? tr("No organizations to show.")
                                               : tr("None of these organizations has a place on the map."));
}

void MapPane::drawMap()
{
    const QString procedure = QStringLiteral("drawMap");
    const bool isRead = runProcedure(m_messages, procedure, [this] {
        const WaitCursor wait;
        m_places.read(m_history.currentQuery(), m_history.graphicQuery());
    });
    if (m_shownView != m_history.current()) m_legend->showAllColours();
    showPlaces();
    // the map of a view that is read again stays where the user moved it
    if (isRead && m_shownView != m_history.current()) {
        m_shownView = m_history.current();
        m_map->ringed() ? m_map->showEntry(*m_map->ringed()) : m_map->goToPlaces();
    }
    // last, so that the markers are drawn before the message about a missing layer
    runProcedure(m_messages, procedure, [this] { addStatesLayer(); });
}

void MapPane::followFilter()
{
    runProcedure(m_messages, QStringLiteral("drawMap"),
                 [this] { m_places.narrow(m_history.currentQuery(), m_history.graphicQuery()); });
    showPlaces();
}

void MapPane::clearMap()
{
    m_places.clear();
    showPlaces();
}

void MapPane::showPlaces()
{
    m_notices->explainEmpty({});
    m_legend->setLines(legendLines(m_places.entries()));
    m_map->setHidden(m_legend->hiddenColours());
    m_map->setPlaces(m_places.entries());
    const int without = m_places.withoutPlace();
    m_withoutPlace->setLink(without == 1 ? tr("1 without a place")
                                         : tr("%n without a place", nullptr, without));
    // a notice says it if none has a place: the list has them alone
    m_withoutPlace->setVisible(without > 0 && !m_places.entries().empty());
    summarize();
    showSelected();
}

/// Tells assistive tools what the map shows, and what it does not.
void MapPane::summarize()
{
    const auto counted = [](int number, const QString& one, const QString& several) {
        return number == 1 ? one : several;
    };
    QStringList hidden;
    int shown = static_cast<int>(m_places.placed());
    for (const LegendLine& line : m_legend->lines()) {
        if (!m_legend->hiddenColours().test(static_cast<std::size_t>(line.colour))) continue;
        hidden << line.text();
        shown -= line.organizations();
    }
    const auto places = static_cast<int>(m_map->markers().spotCount());
    QStringList sentences;
    sentences << tr("The map shows %1 at %2.")
                     .arg(counted(shown, tr("1 organization"), tr("%n organizations", nullptr, shown)),
                          counted(places, tr("1 place"), tr("%n places", nullptr, places)));
    if (!hidden.isEmpty()) sentences << tr("Hidden: %1.").arg(hidden.join(QStringLiteral(", ")));
    const int without = m_places.withoutPlace();
    if (without > 0) {
        sentences << counted(without, tr("1 organization has no place."),
                             tr("%n organizations have no place.", nullptr, without));
    }
    m_map->setSummary(sentences);
}

void MapPane::forget()
{
    m_shownView = 0;
    m_isLayerRead = false;
}

/// Reads the states once for each folder. Throws Error.
void MapPane::addStatesLayer()
{
    if (m_isLayerRead) return;
    m_map->setStates(readStates(m_folder));
    m_isLayerRead = true;
}

void MapPane::showSelected()
{
    const std::optional<qint64> selected = m_history.selected();
    m_map->setRinged(selected ? m_places.entryOf(*selected) : std::nullopt);
    sayIfHidden();
}

void MapPane::sayIfHidden()
{
    const bool isHidden = m_map->ringed() && m_map->markers().isHidden(*m_map->ringed());
    m_notices->sayHidden(isHidden ? tr("The selected organization is hidden on the map.") : QString());
}

void MapPane::goToSelected()
{
    showSelected();
    if (m_map->ringed()) m_map->showEntry(*m_map->ringed());
}

std::optional<GraphicPicture> MapPane::picture() const
{
    if (m_places.entries().empty()) return std::nullopt;
    PictureLegend legend(font(), m_map->width());
    for (const LegendLine& line : m_legend->lines()) {
        const auto marker = [colour = line.colour](QPainter& painter, QPointF middle) {
            constexpr double diameter = 12;
            MarkerPictures::draw(painter, colour, middle, diameter);
        };
        legend.add(marker, m_legend->textOf(line));
    }
    const QSize size = m_map->size() + QSize(0, legend.height());
    return GraphicPicture{tr("Map"), size, [this, legend](QPainter& painter) {
                              painter.save();
                              m_map->draw(painter);
                              painter.translate(0, m_map->height());
                              legend.draw(painter);
                              painter.restore();
                          }};
}

void MapPane::choose(std::size_t entry)
{
    runProcedure(m_messages, QStringLiteral("Map1_MouseDown"), [&] {
        std::vector<qint64> identifiers;
        for (const PlacedOrganization& organization : organizationsDrawnWith(entry, false))
            identifiers.push_back(organization.identifier);
        Q_EMIT organizationsChosen(identifiers);
    });
}

/// Returns the organizations of a disc, or of a marker those of its function or of all functions. Throws
/// Error.
std::vector<PlacedOrganization> MapPane::organizationsDrawnWith(std::size_t entry, bool everyFunction) const
{
    const std::span<const std::size_t> entries = m_map->drawnWith(entry);
    return entries.size() > 1 ? m_places.organizationsOf(entries)
                              : m_places.organizationsAt(entry, everyFunction);
}

void MapPane::showMenu(std::size_t entry, const QPoint& position)
{
    const std::span<const std::size_t> entries = m_map->drawnWith(entry);
    m_menuEntries.assign(entries.begin(), entries.end());
    m_menuPlaces = m_map->markers().placesText(m_map->markers().leadOf(entry));
    std::vector<clsCities> places;
    for (const std::size_t drawn : entries)
        places.push_back(m_places.entries().at(drawn));
    m_menu->offer(places, position);
}

void MapPane::showOnly(const QString& procedure, const std::function<clsView()>& view)
{
    runProcedure(m_messages, procedure, [&] { m_history.addView(view()); });
}

QString MapPane::description(std::size_t entry)
{
    const std::size_t lead = m_map->markers().leadOf(entry);
    const QString heading = m_map->markers().isDisc(lead) ? m_map->markers().name(lead)
                                                          : m_places.entries().at(entry).placeText();
    QString text = QStringLiteral("<b>") + heading.toHtmlEscaped() + QStringLiteral("</b>");
    try {
        const auto organizations = organizationsDrawnWith(entry, true);
        for (std::size_t i = 0; i < std::min(organizations.size(), mostNamesInTip); ++i)
            text += QStringLiteral("<br>") + organizations[i].name.toHtmlEscaped();
        if (organizations.size() > mostNamesInTip) {
            text += QStringLiteral("<br>") +
                    tr("and %n more", nullptr, static_cast<int>(organizations.size() - mostNamesInTip));
        }
    } catch (const Error&) {
        // a tool tip shows no message: it is left with the name of the place
    }
    return text;
}

/// Puts the legend where it takes the least room from the map.
void MapPane::resizeEvent(QResizeEvent* event)
{
    constexpr double widestBelow = 1.75;
    constexpr double heightOfStates = 1.6; // in their width
    const bool beside = width() > widestBelow * height();
    m_layout->setDirection(beside ? QBoxLayout::LeftToRight : QBoxLayout::TopToBottom);
    const int mapHeight = height() - m_tools->sizeHint().height();
    constexpr int leastBeside = 240;
    const int roomBeside = std::max(width() - static_cast<int>(mapHeight * heightOfStates), leastBeside);
    const int roomBelow = std::max(mapHeight - static_cast<int>(width() / heightOfStates), height() / 4);
    m_legend->setPlace(beside, beside ? roomBeside : roomBelow);
    QWidget::resizeEvent(event);
}

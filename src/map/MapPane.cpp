// SPDX-License-Identifier: GPL-3.0-or-later

#include "map/MapPane.h"

#include "files/ProgramFolder.h"
#include "map/MapLegend.h"
#include "map/MapView.h"
#include "map/MarkerPictures.h"
#include "map/StatesFile.h"
#include "platform/Procedure.h"
#include "views/ViewHistory.h"
#include "widgets/IconSet.h"
#include "widgets/PictureLegend.h"
#include "widgets/WaitCursor.h"

#include <QActionGroup>
#include <QBoxLayout>
#include <QLabel>
#include <QMenu>
#include <QPainter>
#include <QToolBar>

namespace {

constexpr std::size_t mostNamesInTip = 12;

/// A menu takes a single ampersand as the mark of a mnemonic.
QString menuText(QString text)
{
    return text.replace(u'&', QStringLiteral("&&"));
}

} // namespace

MapPane::MapPane(DatabaseSession& session, ViewHistory& history, const StandardQueries& queries,
                 const ProgramFolder& folder, Messages& messages, QWidget* parent)
    : QWidget(parent),
      m_history(history),
      m_folder(folder),
      m_messages(messages),
      m_places(session),
      m_showOnly(session, queries),
      m_layout(new QBoxLayout(QBoxLayout::TopToBottom)),
      m_tools(new QToolBar(this)),
      m_toolGroup(new QActionGroup(this)),
      m_map(new MapView(this)),
      m_empty(new QLabel(m_map)),
      m_legend(new MapLegend(this)),
      m_menu(new QMenu(this))
{
    setObjectName(QStringLiteral("MapPane"));
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(m_tools);
    layout->addLayout(m_layout, 1);
    m_layout->setSpacing(2);
    m_layout->addWidget(m_map, 1);
    m_layout->addWidget(m_legend);
    setFocusProxy(m_map);
    makeTools();
    makeMenu();
    makeNotice();
    connect(m_map, &MapView::chosen, this, &MapPane::choose);
    connect(m_map, &MapView::menuRequested, this, &MapPane::showMenu);
    m_map->describe = [this](std::size_t entry) { return description(entry); };
}

MapPane::~MapPane() = default;

void MapPane::makeTools()
{
    m_tools->setObjectName(QStringLiteral("tbMap"));
    m_tools->setIconSize(QSize(22, 22));
    addTool(QStringLiteral("mapPointer"), tr("Pointer: select places and drag the map"),
            QStringLiteral("pointer"), static_cast<int>(MapTool::Pointer));
    addTool(QStringLiteral("mapZoomIn"), tr("Zoom in at a click, or to a rectangle"),
            QStringLiteral("list-add"), static_cast<int>(MapTool::ZoomIn));
    addTool(QStringLiteral("mapZoomOut"), tr("Zoom out at a click"), QStringLiteral("list-remove"),
            static_cast<int>(MapTool::ZoomOut));
    addTool(QStringLiteral("mapPan"), tr("Pan: drag the map"), QStringLiteral("transform-move"),
            static_cast<int>(MapTool::Pan));
    m_tools->addSeparator();
    addCommand(QStringLiteral("mapFullExtent"), tr("All States"), tr("Full extent: show all states"),
               &MapView::showFullExtent);
    addCommand(QStringLiteral("mapContiguousStates"), tr("48 States"), tr("Show the 48 contiguous states"),
               &MapView::showContiguousStates);
    m_toolGroup->actions().constFirst()->setChecked(true);
    connect(m_map, &MapView::toolChanged, this,
            [this](MapTool tool) { m_toolGroup->actions().at(static_cast<int>(tool))->setChecked(true); });
}

void MapPane::addTool(const QString& name, const QString& text, const QString& icon, int tool)
{
    QAction* action = m_tools->addAction(IconSet::themeIcon(icon), text);
    action->setObjectName(name);
    action->setCheckable(true);
    m_toolGroup->addAction(action);
    connect(action, &QAction::triggered, m_map, [this, tool] { m_map->setTool(static_cast<MapTool>(tool)); });
}

void MapPane::addCommand(const QString& name, const QString& text, const QString& tip,
                         void (MapView::*command)())
{
    QAction* action = m_tools->addAction(text, m_map, command);
    action->setObjectName(name);
    action->setToolTip(tip);
}

void MapPane::makeMenu()
{
    m_menu->setObjectName(QStringLiteral("popOrgTab"));
    m_showOnlyCity = m_menu->addAction(QString(), this,
                                       [this] { showOnly(QStringLiteral("popOrgTabShowOnlyCity"), true); });
    m_showOnlyCity->setObjectName(QStringLiteral("popOrgTabShowOnlyCity"));
    m_showOnlyState = m_menu->addAction(
        QString(), this, [this] { showOnly(QStringLiteral("popOrgTabShowOnlyState"), false); });
    m_showOnlyState->setObjectName(QStringLiteral("popOrgTabShowOnlyState"));
}

/// The notice lies over the upper edge of the map, which is worked as if it were not there.
void MapPane::makeNotice()
{
    constexpr int margin = 6;
    m_empty->setObjectName(QStringLiteral("lblEmptyMap"));
    m_empty->setAttribute(Qt::WA_TransparentForMouseEvents);
    m_empty->setForegroundRole(QPalette::Text);
    m_empty->setBackgroundRole(QPalette::Base);
    m_empty->setAutoFillBackground(true);
    m_empty->setAlignment(Qt::AlignCenter);
    m_empty->setWordWrap(true);
    m_empty->setMargin(margin);
    m_empty->hide();
    auto* over = new QVBoxLayout(m_map);
    over->setContentsMargins({});
    over->addWidget(m_empty, 0, Qt::AlignTop);
}

void MapPane::explainEmpty(std::size_t organizations)
{
    if (!m_places.entries().empty()) return;
    m_empty->setText(organizations == 0 ? tr("No organizations to show.")
                                        : tr("None of these organizations has a place on the map."));
    m_empty->show();
}

void MapPane::drawMap()
{
    const QString procedure = QStringLiteral("drawMap");
    const bool isRead = runProcedure(m_messages, procedure, [this] {
        const WaitCursor wait;
        m_places.read(m_history.currentQuery(), m_history.graphicQuery());
    });
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
    m_empty->hide();
    m_map->setPlaces(m_places.entries());
    m_legend->setLines(legendLines(m_places.entries()));
    showSelected();
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
    std::optional<std::size_t> entry;
    runProcedure(m_messages, QStringLiteral("ringOrganization"), [&] {
        if (selected) entry = m_places.entryOf(*selected);
    });
    m_map->setRinged(entry);
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
    for (const LegendLine& line : legendLines(m_places.entries())) {
        const auto marker = [colour = line.colour](QPainter& painter, QPointF middle) {
            constexpr double diameter = 12;
            MarkerPictures::draw(painter, colour, middle, diameter);
        };
        legend.add(marker, line.text());
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
        for (const PlacedOrganization& organization : m_places.organizationsAt(entry, false))
            identifiers.push_back(organization.identifier);
        Q_EMIT organizationsChosen(identifiers);
    });
}

void MapPane::showMenu(std::size_t entry, const QPoint& position)
{
    m_menuPlace = m_places.entries().at(entry);
    const QString& state = m_menuPlace.State;
    m_showOnlyCity->setText(menuText(tr("Show Only %1, %2 Organizations").arg(m_menuPlace.city, state)));
    m_showOnlyState->setText(menuText(tr("Show Only %1 Organizations").arg(state)));
    // a place without a city cannot be narrowed to
    m_showOnlyCity->setEnabled(!m_menuPlace.city.isEmpty());
    m_showOnlyState->setVisible(m_menuPlace.hasState());
    m_menu->popup(position);
}

void MapPane::showOnly(const QString& procedure, bool city)
{
    runProcedure(m_messages, procedure, [&] {
        m_history.addView(city ? m_showOnly.organizationsOfCity(m_menuPlace)
                               : m_showOnly.organizationsOfState(m_menuPlace));
    });
}

QString MapPane::description(std::size_t entry)
{
    QString text = QStringLiteral("<b>") + m_places.entries().at(entry).placeText().toHtmlEscaped() +
                   QStringLiteral("</b>");
    try {
        const auto organizations = m_places.organizationsAt(entry, true);
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
    constexpr double heightOfStates = 1.6;
    const bool beside = width() > widestBelow * height();
    m_layout->setDirection(beside ? QBoxLayout::LeftToRight : QBoxLayout::TopToBottom);
    const int forStates = static_cast<int>(width() / heightOfStates);
    const int lowest = height() / 4;
    m_legend->setPlace(beside, std::max(height() - m_tools->sizeHint().height() - forStates, lowest));
    QWidget::resizeEvent(event);
}

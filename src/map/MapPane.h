// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "map/OrganizationPlaces.h"
#include "views/ShowOnlyViews.h"
#include "widgets/GraphicPicture.h"

#include <QWidget>

#include <optional>
#include <vector>

class MapLegend;
class MapView;
class QAction;
class QActionGroup;
class QBoxLayout;
class QLabel;
class QMenu;
class QToolBar;
class Messages;
class ProgramFolder;
class ViewHistory;

/// The map beside the list of organizations, with its tools, its legend and its pop-up menu.
class MapPane final : public QWidget
{
    Q_OBJECT

public:
    /// The references must outlive the pane. The states are read from `folder`.
    MapPane(DatabaseSession& session, ViewHistory& history, const StandardQueries& queries,
            const ProgramFolder& folder, Messages& messages, QWidget* parent);
    ~MapPane() override;

    /// Draws the places of the current view and rings that of its selected organization. For another view
    /// than before, goes to that place or, without one, to all of them. If the states or the places cannot be
    /// read, the message is shown; places that were read are drawn.
    void drawMap();

    /// Draws the places of the records that the filter of the view leaves, which was drawn before.
    void followFilter();

    /// Says on a map without markers why it has none. To be called after each drawing, with the number of
    /// organizations in the view.
    void explainEmpty(std::size_t organizations);

    /// Starts afresh after the history was cleared.
    void forget();

    /// Takes all markers off the map.
    void clearMap();

    /// Rings the marker of the organization that is selected in the view, or none.
    void showSelected();

    /// Rings that marker, and moves the map to it if it is out of sight.
    void goToSelected();

    [[nodiscard]] MapView& map() { return *m_map; }

    /// The part of the map in sight with the whole legend; std::nullopt if the map has no markers.
    [[nodiscard]] std::optional<GraphicPicture> picture() const;

Q_SIGNALS:
    /// The user chose a marker; these are its organizations.
    void organizationsChosen(const std::vector<qint64>& identifiers);

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    void makeTools();
    void makeMenu();
    void makeNotice();
    void addTool(const QString& name, const QString& text, const QString& icon, int tool);
    void addCommand(const QString& name, const QString& text, const QString& tip, void (MapView::*command)());
    void addStatesLayer();
    void showPlaces();
    void choose(std::size_t entry);
    void showMenu(std::size_t entry, const QPoint& position);
    void showOnly(const QString& procedure, bool city);
    [[nodiscard]] QString description(std::size_t entry);

    ViewHistory& m_history;
    const ProgramFolder& m_folder;
    bool m_isLayerRead = false; ///< the states of this folder
    Messages& m_messages;
    OrganizationPlaces m_places;
    ShowOnlyViews m_showOnly;
    std::size_t m_shownView = 0; ///< position in the history; 0 before the first view
    clsCities m_menuPlace;       ///< what the pop-up menu acts on
    QBoxLayout* m_layout;
    QToolBar* m_tools;
    QActionGroup* m_toolGroup;
    MapView* m_map;
    QLabel* m_empty;
    MapLegend* m_legend;
    QMenu* m_menu;
    QAction* m_showOnlyCity = nullptr;
    QAction* m_showOnlyState = nullptr;
};

// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "map/OrganizationPlaces.h"
#include "views/ShowOnlyViews.h"
#include "widgets/GraphicPicture.h"

#include <QWidget>

#include <functional>
#include <optional>
#include <vector>

class LinkButton;
class MapLegend;
class MapNotices;
class MapTools;
class MapView;
class PlacesMenu;
class QBoxLayout;
class Messages;
class ProgramFolder;
class SettingsStore;
class ViewHistory;

/// The map beside the list of organizations, with its tools, its legend and its pop-up menu.
class MapPane final : public QWidget
{
    Q_OBJECT

public:
    /// The references must outlive the pane. The states are read from `folder`; whether markers are grouped
    /// is kept in the settings.
    MapPane(DatabaseSession& session, ViewHistory& history, const StandardQueries& queries,
            const ProgramFolder& folder, SettingsStore& settings, Messages& messages, QWidget* parent);
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
    /// The user chose a marker or a disc; these are its organizations.
    void organizationsChosen(const std::vector<qint64>& identifiers);

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    void layOut();
    void connectMenu();
    void connectLegend();
    void connectGroups();
    void addStatesLayer();
    void showPlaces();
    void summarize();
    void updateOffer();
    void sayIfHidden();
    void choose(std::size_t entry);
    void showMenu(std::size_t entry, const QPoint& position);
    void showOnly(const QString& procedure, const std::function<clsView()>& view);
    [[nodiscard]] std::vector<PlacedOrganization> organizationsDrawnWith(std::size_t entry,
                                                                         bool everyFunction) const;
    [[nodiscard]] QString description(std::size_t entry);

    ViewHistory& m_history;
    const ProgramFolder& m_folder;
    bool m_isLayerRead = false; ///< the states of this folder
    SettingsStore& m_settings;
    Messages& m_messages;
    OrganizationPlaces m_places;
    ShowOnlyViews m_showOnly;
    std::size_t m_shownView = 0;            ///< position in the history; 0 before the first view
    std::vector<std::size_t> m_menuEntries; ///< what the pop-up menu acts on
    QString m_menuPlaces;                   ///< what the pop-up menu acts on, in words
    bool m_isOfferOver = false;             ///< groups were taken or refused in this run
    QBoxLayout* m_layout;
    MapView* m_map;
    MapTools* m_tools;
    MapNotices* m_notices;
    MapLegend* m_legend;
    LinkButton* m_withoutPlace;
    PlacesMenu* m_menu;
};

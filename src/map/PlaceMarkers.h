// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "map/DiscPicture.h"
#include "map/MapExtent.h"
#include "map/MarkerGroups.h"
#include "map/MarkerPictures.h"
#include "map/StatesPicture.h"
#include "views/clsCities.h"

#include <QColor>
#include <QFont>
#include <QPointF>
#include <QString>

#include <bitset>
#include <optional>
#include <span>
#include <vector>

class QPainter;

/// The colours of the palette that are not shown.
using HiddenColours = std::bitset<16>;

/// The markers of the places on the map: their positions, their pictures, which of them a pointer hits and in
/// which order the keyboard goes through them. Entries are numbered as they are drawn, from 0. If they are
/// grouped, entries that cover each other are drawn as one disc; one of them leads and stands for it.
class PlaceMarkers
{
public:
    /// Takes the places in place of those before.
    void set(const std::vector<clsCities>& places);

    /// Leaves the entries of some colours out.
    void setHidden(HiddenColours hidden);
    [[nodiscard]] HiddenColours hidden() const { return m_hidden; }

    /// Draws the entries of one colour over the others, or of none. Of discs, the others turn pale.
    void setRaised(std::optional<int> colour) { m_raised = colour; }

    void setGrouped(bool grouped) { m_isGrouped = grouped; }
    [[nodiscard]] bool isGrouped() const { return m_isGrouped; }

    /// Groups the entries anew if the extent or the font (of texts beside the map) demands it. To be called
    /// after every change. Returns whether other entries lead than before.
    bool arrange(const MapExtent& extent, const QFont& font);

    [[nodiscard]] std::size_t count() const { return m_positions.size(); }
    [[nodiscard]] bool isHidden(std::size_t entry) const;

    /// The number of positions at which markers are shown.
    [[nodiscard]] std::size_t spotCount() const { return m_topmost.size(); }

    /// The entries that lead, in the order in which they are drawn: each stands for a marker or a disc.
    [[nodiscard]] const std::vector<std::size_t>& leads() const { return m_groups.leads(); }

    /// Returns the entry that leads an entry; itself if it is drawn alone or hidden.
    [[nodiscard]] std::size_t leadOf(std::size_t entry) const { return m_groups.leadOf(entry); }

    /// Returns the entries that are drawn as one with the one that leads them.
    [[nodiscard]] std::span<const std::size_t> members(std::size_t lead) const
    {
        return m_groups.members(lead);
    }
    [[nodiscard]] bool isDisc(std::size_t lead) const { return m_groups.members(lead).size() > 1; }

    /// The name of a marker, such as `Austin, TX: Relief`, or of a disc, such as `Austin, TX and 3 more
    /// places: 34 organizations`.
    [[nodiscard]] QString name(std::size_t lead) const;

    /// The places of a marker or a disc, such as `Austin, TX and 3 more places`.
    [[nodiscard]] QString placesText(std::size_t lead) const;

    /// The positions of the markers in the plane of the map, by entry.
    [[nodiscard]] const std::vector<QPointF>& positions() const { return m_positions; }

    /// What names of states keep clear of.
    [[nodiscard]] std::vector<MapObstacle> obstacles() const;

    /// Returns whether more than half of the markers lie below others.
    [[nodiscard]] bool areMostCovered(const MapExtent& extent) const;

    /// The position of a marker or a disc.
    [[nodiscard]] QPointF position(std::size_t entry) const { return m_positions.at(leadOf(entry)); }

    /// Returns the lead of the marker or the disc that is at a pixel or near it, or `std::nullopt`.
    [[nodiscard]] std::optional<std::size_t> entryAt(QPointF screen, const MapExtent& extent) const;

    /// Returns the lead that comes next in the order of names (`step` 1) or before (-1), round and round;
    /// without an entry, the first or the last. There must be at least one.
    [[nodiscard]] std::size_t neighbour(std::optional<std::size_t> entry, int step) const;

    /// Draws the markers that are at least partly within `sight`, in pixels.
    void paint(QPainter& painter, const MapExtent& extent, const QRect& sight, double devicePixelRatio);

    /// Draws the markers whose middle is in sight, as areas and lines, and discs whole.
    void draw(QPainter& painter, const MapExtent& extent) const;

    /// Draws the marker or disc of an entry over the others, with a ring around it. Call after `paint`.
    void paintRinged(QPainter& painter, const MapExtent& extent, std::size_t entry,
                     const QColor& colour) const;

    /// Half the width of a marker or a disc as painted last, in logical pixels.
    [[nodiscard]] double radiusOf(std::size_t lead) const;

private:
    void regroup();
    void countOrganizations();
    [[nodiscard]] std::vector<QPointF> spotsOnScreen(const MapExtent& extent) const;
    void paintEntry(QPainter& painter, const MapExtent& extent, const QRectF& sight, std::size_t lead) const;
    void drawDisc(QPainter& painter, QPointF middle, std::size_t lead) const;
    [[nodiscard]] bool hasColour(std::size_t lead, int colour) const;
    [[nodiscard]] std::vector<ColourShare> sharesOf(std::size_t lead) const;

    MarkerPictures m_pictures;
    MarkerGroups m_groups;
    HiddenColours m_hidden;
    std::optional<int> m_raised;
    bool m_isGrouped = false;
    bool m_isArranged = false; ///< for the places and colours that there are
    QFont m_discFont;
    DiscMetrics m_metrics;
    std::vector<QPointF> m_pixels;             ///< of the spots, as they were grouped last
    std::vector<clsCities> m_places;           ///< by entry
    std::vector<QPointF> m_positions;          ///< in the plane, by entry
    std::vector<int> m_organizations;          ///< by lead
    std::vector<std::size_t> m_topmost;        ///< those that no later one covers, in the order of drawing
    mutable std::vector<std::size_t> m_byName; ///< the leads; empty until the keyboard goes through them
};

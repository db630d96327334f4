// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QPointF>
#include <QString>

#include <cstddef>
#include <span>
#include <vector>

/// A marker as far as it matters for grouping.
struct GroupedMarker
{
    QPointF place; ///< in the plane of the map
    int organizations = 0;
    bool isHidden = false;
};

/// How large markers and discs are drawn, in pixels.
struct DiscMetrics
{
    double markerRadius = 0;
    double digitWidth = 0; ///< of the numbers in discs
    double frameWidth = 0; ///< on both sides of a number together

    [[nodiscard]] double radiusOf(int organizations) const;

    friend bool operator==(const DiscMetrics&, const DiscMetrics&) = default;
};

/// The number in a disc; thousands are rounded down to `32k` if it has more than four digits.
QString discText(int organizations);

/// Which markers of a map are drawn as one disc: those that would cover each other. Markers at the same
/// position stand at one spot and are always one. Whatever covers another is joined with it at the spot that
/// has more organizations, until no disc and no marker covers another; so a disc stands where most of its
/// organizations are, and moves only when another scale puts it together anew. Hidden markers belong to none.
///
/// Markers are numbered from 0, in the order in which they are drawn.
class MarkerGroups
{
public:
    /// Takes the markers in place of those before. Each is a group of its own.
    void setMarkers(std::span<const GroupedMarker> markers);

    /// The positions of the spots in the plane, those with the most organizations first.
    [[nodiscard]] const std::vector<QPointF>& spots() const { return m_spots; }

    /// Makes each marker a group of its own.
    void separate();

    /// Joins what covers each other. `pixels` are the positions of the spots on a screen without edges.
    void join(std::span<const QPointF> pixels, const DiscMetrics& metrics);

    /// One marker of each group, in the order of drawing: the last of the spot at which the group stands.
    [[nodiscard]] const std::vector<std::size_t>& leads() const { return m_leads; }

    /// Returns the lead of the group that a marker belongs to; the marker itself if it is hidden.
    [[nodiscard]] std::size_t leadOf(std::size_t marker) const { return m_leadOf.at(marker); }

    /// Returns the markers of a lead's group, spot by spot.
    [[nodiscard]] std::span<const std::size_t> members(std::size_t lead) const;

    /// Returns the last marker of each spot, in the order of drawing: those that no later one at the same
    /// position covers.
    [[nodiscard]] std::vector<std::size_t> topmost() const;

    /// Returns the number of markers that are not hidden, but whose middle lies below a later one.
    [[nodiscard]] std::size_t countCovered(std::span<const QPointF> pixels, double markerRadius) const;

private:
    [[nodiscard]] std::span<const std::size_t> markersAt(std::size_t spot) const;
    void collect(std::span<const std::size_t> groupOf);

    std::vector<QPointF> m_spots;
    std::vector<std::size_t> m_atSpots;   ///< the markers, spot by spot
    std::vector<std::size_t> m_spotBegin; ///< by spot and one more, into `m_atSpots`
    std::vector<int> m_organizations;     ///< by spot
    std::vector<std::size_t> m_leads;
    std::vector<std::size_t> m_leadOf;  ///< by marker
    std::vector<std::size_t> m_members; ///< the markers, group by group
    std::vector<std::size_t> m_firstOf; ///< by marker that leads, into `m_members`
    std::vector<std::size_t> m_sizeOf;  ///< by marker that leads
};

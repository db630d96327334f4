// SPDX-License-Identifier: GPL-3.0-or-later

#include "map/MarkerGroups.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <numeric>
#include <tuple>
#include <utility>

namespace {

constexpr int largestWhole = 9999;
constexpr int thousand = 1000;

/// Finds spots near another: they lie in square cells that are as wide as the farthest that is asked for.
class SpotGrid
{
public:
    /// `pixels` must outlive the grid.
    SpotGrid(std::span<const QPointF> pixels, double farthest) : m_pixels(pixels), m_width(farthest)
    {
        std::size_t buckets = 1;
        while (buckets < pixels.size())
            buckets *= 2;
        m_first.assign(buckets, none);
        m_next.assign(pixels.size(), none);
        for (std::size_t spot = pixels.size(); spot-- > 0;)
            m_next[spot] = std::exchange(m_first[bucketOf(cellOf(spot))], spot);
    }

    /// Calls `visit` with each spot in the cells around a spot, itself too, until it returns false.
    template <typename Visit>
    void visitAround(std::size_t spot, const Visit& visit) const
    {
        const auto [column, row] = cellOf(spot);
        for (std::int64_t y = row - 1; y <= row + 1; ++y) {
            for (std::int64_t x = column - 1; x <= column + 1; ++x) {
                for (std::size_t other = m_first[bucketOf({x, y})]; other != none; other = m_next[other]) {
                    // a bucket also holds spots of cells far away
                    if (cellOf(other) == Cell(x, y) && !visit(other)) return;
                }
            }
        }
    }

private:
    using Cell = std::pair<std::int64_t, std::int64_t>;
    static constexpr auto none = static_cast<std::size_t>(-1);

    [[nodiscard]] Cell cellOf(std::size_t spot) const
    {
        return {static_cast<std::int64_t>(std::floor(m_pixels[spot].x() / m_width)),
                static_cast<std::int64_t>(std::floor(m_pixels[spot].y() / m_width))};
    }

    [[nodiscard]] std::size_t bucketOf(Cell cell) const
    {
        constexpr std::size_t columnFactor = 73856093;
        constexpr std::size_t rowFactor = 19349663;
        const auto mixed = static_cast<std::size_t>(cell.first) * columnFactor ^
                           static_cast<std::size_t>(cell.second) * rowFactor;
        return mixed & (m_first.size() - 1);
    }

    std::span<const QPointF> m_pixels;
    double m_width;
    std::vector<std::size_t> m_first; ///< by bucket
    std::vector<std::size_t> m_next;  ///< by spot
};

bool areWithin(QPointF a, QPointF b, double distance)
{
    const QPointF apart = a - b;
    return QPointF::dotProduct(apart, apart) < distance * distance;
}

/// Joins spots, of which the earlier number is always the one at which a group stands.
class Joining
{
public:
    Joining(std::span<const QPointF> pixels, std::vector<int> organizations, std::vector<double> radii,
            const DiscMetrics& metrics)
        : m_pixels(pixels),
          m_metrics(metrics),
          m_organizations(std::move(organizations)),
          m_radii(std::move(radii)),
          m_joinedTo(pixels.size()),
          m_grid(pixels, 2 * widest())
    {
        std::iota(m_joinedTo.begin(), m_joinedTo.end(), std::size_t{0});
        for (std::size_t spot = 0; spot < pixels.size(); ++spot)
            settle(spot);
    }

    /// Returns the spot at which the group of each spot stands.
    [[nodiscard]] std::vector<std::size_t> groups() const
    {
        std::vector<std::size_t> groups = m_joinedTo;
        // what a spot is joined to comes before it
        for (std::size_t& group : groups)
            group = groups[group];
        return groups;
    }

private:
    [[nodiscard]] double widest() const
    {
        const int all = std::accumulate(m_organizations.begin(), m_organizations.end(), 0);
        return std::max(m_metrics.radiusOf(std::min(all, largestWhole)), m_metrics.radiusOf(all));
    }

    [[nodiscard]] bool stands(std::size_t spot) const { return m_joinedTo[spot] == spot; }

    /// Returns the groups that cover a group or are covered by it, itself first.
    [[nodiscard]] std::vector<std::size_t> covering(std::size_t group) const
    {
        std::vector<std::size_t> found{group};
        m_grid.visitAround(group, [&](std::size_t other) {
            if (other != group && stands(other) &&
                areWithin(m_pixels[group], m_pixels[other], m_radii[group] + m_radii[other]))
                found.push_back(other);
            return true;
        });
        return found;
    }

    /// Joins a group with what covers it, at the greatest of them, until nothing does. Each round looks from
    /// one and the same disc, so that the cells of the grid make no difference.
    void settle(std::size_t group)
    {
        if (!stands(group)) return;
        for (auto found = covering(group); found.size() > 1; found = covering(group)) {
            group = std::ranges::min(found);
            for (const std::size_t other : found) {
                if (other == group) continue;
                m_joinedTo[other] = group;
                m_organizations[group] += m_organizations[other];
            }
            m_radii[group] = m_metrics.radiusOf(m_organizations[group]);
        }
    }

    std::span<const QPointF> m_pixels;
    const DiscMetrics& m_metrics;
    std::vector<int> m_organizations;
    std::vector<double> m_radii;
    std::vector<std::size_t> m_joinedTo;
    SpotGrid m_grid;
};

} // namespace

QString discText(int organizations)
{
    if (organizations <= largestWhole) return QString::number(organizations);
    return QString::number(organizations / thousand) + u'k';
}

double DiscMetrics::radiusOf(int organizations) const
{
    // a disc is never smaller than one with two digits
    const auto digits = std::max<qsizetype>(discText(organizations).size(), 2);
    return (static_cast<double>(digits) * digitWidth + frameWidth) / 2;
}

void MarkerGroups::setMarkers(std::span<const GroupedMarker> markers)
{
    const auto place = [&markers](std::size_t marker) {
        return std::pair(markers[marker].place.x(), markers[marker].place.y());
    };
    std::vector<std::size_t> byPlace;
    for (std::size_t marker = 0; marker < markers.size(); ++marker) {
        if (!markers[marker].isHidden) byPlace.push_back(marker);
    }
    std::ranges::stable_sort(byPlace, {}, place);

    struct Spot
    {
        std::span<const std::size_t> markers;
        int organizations = 0;
    };
    std::vector<Spot> spots;
    for (std::size_t begin = 0, end = 0; begin < byPlace.size(); begin = end) {
        Spot spot;
        for (; end < byPlace.size() && place(byPlace[end]) == place(byPlace[begin]); ++end)
            spot.organizations += markers[byPlace[end]].organizations;
        spot.markers = std::span(byPlace).subspan(begin, end - begin);
        spots.push_back(spot);
    }
    std::ranges::stable_sort(spots, std::ranges::greater(), &Spot::organizations);

    m_spots.clear();
    m_organizations.clear();
    m_atSpots.clear();
    m_spotBegin = {0};
    for (const Spot& spot : spots) {
        m_spots.push_back(markers[spot.markers.front()].place);
        m_organizations.push_back(spot.organizations);
        m_atSpots.insert(m_atSpots.end(), spot.markers.begin(), spot.markers.end());
        m_spotBegin.push_back(m_atSpots.size());
    }
    m_leadOf.resize(markers.size());
    separate();
}

void MarkerGroups::separate()
{
    std::iota(m_leadOf.begin(), m_leadOf.end(), std::size_t{0});
    m_firstOf = m_leadOf;
    m_members = m_leadOf;
    m_sizeOf.assign(m_leadOf.size(), 1);
    m_leads = m_atSpots;
    std::ranges::sort(m_leads);
}

std::span<const std::size_t> MarkerGroups::markersAt(std::size_t spot) const
{
    return std::span(m_atSpots).subspan(m_spotBegin[spot], m_spotBegin[spot + 1] - m_spotBegin[spot]);
}

std::vector<std::size_t> MarkerGroups::topmost() const
{
    std::vector<std::size_t> topmost;
    for (std::size_t spot = 0; spot < m_spots.size(); ++spot)
        topmost.push_back(markersAt(spot).back());
    std::ranges::sort(topmost);
    return topmost;
}

void MarkerGroups::join(std::span<const QPointF> pixels, const DiscMetrics& metrics)
{
    std::vector<double> radii;
    for (std::size_t spot = 0; spot < m_spots.size(); ++spot) {
        const bool isMarker = markersAt(spot).size() == 1;
        radii.push_back(isMarker ? metrics.markerRadius : metrics.radiusOf(m_organizations[spot]));
    }
    collect(Joining(pixels, m_organizations, std::move(radii), metrics).groups());
}

/// Takes the spot at which the group of each spot stands.
void MarkerGroups::collect(std::span<const std::size_t> groupOf)
{
    std::vector<std::size_t> bySpot(m_spots.size());
    std::iota(bySpot.begin(), bySpot.end(), std::size_t{0});
    std::ranges::stable_sort(bySpot, {}, [&groupOf](std::size_t spot) { return groupOf[spot]; });
    m_leads.clear();
    m_members.clear();
    for (const std::size_t spot : bySpot) {
        const std::size_t lead = markersAt(groupOf[spot]).back();
        // a group begins with the spot at which it stands
        if (groupOf[spot] == spot) {
            m_leads.push_back(lead);
            m_firstOf[lead] = m_members.size();
            m_sizeOf[lead] = 0;
        }
        for (const std::size_t marker : markersAt(spot)) {
            m_members.push_back(marker);
            m_leadOf[marker] = lead;
            ++m_sizeOf[lead];
        }
    }
    std::ranges::sort(m_leads);
}

std::span<const std::size_t> MarkerGroups::members(std::size_t lead) const
{
    return std::span(m_members).subspan(m_firstOf[lead], m_sizeOf[lead]);
}

std::size_t MarkerGroups::countCovered(std::span<const QPointF> pixels, double markerRadius) const
{
    if (pixels.empty()) return 0;
    const SpotGrid grid(pixels, markerRadius);
    std::size_t covered = 0;
    for (std::size_t spot = 0; spot < pixels.size(); ++spot) {
        const std::span<const std::size_t> markers = markersAt(spot);
        covered += markers.size() - 1;
        bool isCovered = false;
        grid.visitAround(spot, [&](std::size_t other) {
            isCovered = markersAt(other).back() > markers.back() &&
                        areWithin(pixels[spot], pixels[other], markerRadius);
            return !isCovered;
        });
        covered += isCovered ? 1 : 0;
    }
    return covered;
}

// SPDX-License-Identifier: GPL-3.0-or-later

#include "map/PlaceMarkers.h"

#include "map/ColourPalette.h"
#include "map/LegendLines.h"
#include "map/MapProjection.h"
#include "map/MapTexts.h"
#include "map/MarkerHit.h"

#include <QPainter>
#include <QSet>

#include <algorithm>
#include <array>
#include <cmath>
#include <set>
#include <utility>

namespace {

constexpr double smallestMarker = 9;
constexpr double largestMarker = 14;
constexpr double hitRadius = 14;
constexpr double ringWidth = 2.5;

double diameter(const MapExtent& extent)
{
    return std::round(std::clamp(extent.markerScale() / extent.scale(), smallestMarker, largestMarker));
}

/// Returns the middle nearest to one at which a disc is whole.
QPointF movedInto(const QRectF& sight, QPointF middle, double radius)
{
    return {std::max(radius, std::min(middle.x(), sight.right() - radius)),
            std::max(radius, std::min(middle.y(), sight.bottom() - radius))};
}

} // namespace

void PlaceMarkers::set(const std::vector<clsCities>& places)
{
    m_places = places;
    m_positions.clear();
    for (const clsCities& place : places)
        m_positions.push_back(MapProjection::toPlane(place.lon, place.lat));
    regroup();
}

void PlaceMarkers::setHidden(HiddenColours hidden)
{
    m_hidden = hidden;
    regroup();
}

bool PlaceMarkers::isHidden(std::size_t entry) const
{
    return m_hidden.test(static_cast<std::size_t>(m_places.at(entry).colour));
}

/// Takes the entries that are shown, each for itself until they are arranged.
void PlaceMarkers::regroup()
{
    std::vector<GroupedMarker> markers;
    for (std::size_t entry = 0; entry < m_places.size(); ++entry)
        markers.push_back({m_positions[entry], m_places[entry].organizations, isHidden(entry)});
    m_groups.setMarkers(markers);
    m_topmost = m_groups.topmost();
    m_pixels.clear();
    m_isArranged = false;
    countOrganizations();
}

/// Counts once what each redraw needs several times.
void PlaceMarkers::countOrganizations()
{
    m_organizations.assign(m_places.size(), 0);
    for (const std::size_t lead : leads()) {
        for (const std::size_t entry : members(lead))
            m_organizations[lead] += m_places[entry].organizations;
    }
}

bool PlaceMarkers::arrange(const MapExtent& extent, const QFont& font)
{
    const QFont discFont = DiscPicture::fontBeside(font);
    const DiscMetrics metrics = DiscPicture::metricsOf(discFont, diameter(extent) / 2);
    std::vector<QPointF> pixels = m_isGrouped ? spotsOnScreen(extent) : std::vector<QPointF>();
    if (m_isArranged && pixels == m_pixels && metrics == m_metrics) return false;
    m_isArranged = true;
    m_discFont = discFont;
    m_metrics = metrics;
    m_pixels = std::move(pixels);
    if (m_isGrouped)
        m_groups.join(m_pixels, m_metrics);
    else
        m_groups.separate();
    m_byName.clear();
    countOrganizations();
    return true;
}

/// Returns the pixels of the spots as if the screen had no edges, so that they stay the same to each other
/// while the map is moved. What lies in different insets, or below one, is far apart.
std::vector<QPointF> PlaceMarkers::spotsOnScreen(const MapExtent& extent) const
{
    constexpr double farApart = 1e6;
    std::vector<QPointF> pixels;
    pixels.reserve(m_groups.spots().size());
    for (const QPointF spot : m_groups.spots()) {
        if (extent.insets().empty()) {
            pixels.push_back(spot / extent.scale());
            continue;
        }
        const std::optional<std::size_t> inset = extent.insetOf(spot);
        const double part = inset ? 1 + static_cast<double>(*inset) : extent.isCovered(spot) ? -1 : 0;
        pixels.push_back(extent.toScreen(spot) + QPointF(part * farApart, 0));
    }
    return pixels;
}

bool PlaceMarkers::areMostCovered(const MapExtent& extent) const
{
    const std::size_t covered = m_groups.countCovered(spotsOnScreen(extent), diameter(extent) / 2);
    return 2 * covered > leads().size();
}

std::vector<ColourShare> PlaceMarkers::sharesOf(std::size_t lead) const
{
    std::array<int, colourPalette.size()> byColour{};
    for (const std::size_t entry : members(lead))
        byColour.at(static_cast<std::size_t>(m_places[entry].colour)) += m_places[entry].organizations;
    std::vector<ColourShare> shares;
    for (std::size_t colour = 0; colour < byColour.size(); ++colour) {
        if (byColour[colour] > 0) shares.push_back({static_cast<int>(colour), byColour[colour]});
    }
    return shares;
}

QString PlaceMarkers::placesText(std::size_t lead) const
{
    QString place = m_places[lead].placeText();
    QSet<QString> others;
    for (const std::size_t entry : members(lead))
        others.insert(m_places[entry].placeText());
    others.remove(place);
    if (others.isEmpty()) return place;
    if (others.size() == 1) return MapTexts::tr("%1 and 1 more place").arg(place);
    return MapTexts::tr("%1 and %n more places", nullptr, static_cast<int>(others.size())).arg(place);
}

QString PlaceMarkers::name(std::size_t lead) const
{
    if (!isDisc(lead))
        return m_places[lead].placeText() + QStringLiteral(": ") + functionName(m_places[lead]);
    return MapTexts::tr("%1: %n organizations", nullptr, m_organizations[lead]).arg(placesText(lead));
}

double PlaceMarkers::radiusOf(std::size_t lead) const
{
    return isDisc(lead) ? m_metrics.radiusOf(m_organizations[lead]) + 1 : m_pictures.extent() / 2;
}

std::vector<MapObstacle> PlaceMarkers::obstacles() const
{
    std::vector<MapObstacle> obstacles;
    for (const std::size_t entry : m_isGrouped ? leads() : m_topmost)
        obstacles.push_back({m_positions[entry], isDisc(entry) ? radiusOf(entry) : largestMarker / 2});
    return obstacles;
}

std::optional<std::size_t> PlaceMarkers::entryAt(QPointF screen, const MapExtent& extent) const
{
    std::vector<std::size_t> seen;
    std::vector<QPointF> middles;
    for (const std::size_t lead : leads()) {
        if (extent.isCovered(m_positions[lead])) continue;
        const QPointF middle = extent.toScreen(m_positions[lead]);
        const QPointF apart = middle - screen;
        if (isDisc(lead) && std::hypot(apart.x(), apart.y()) <= radiusOf(lead)) return lead;
        seen.push_back(lead);
        middles.push_back(middle);
    }
    const auto hit = markerAt(middles, screen, {m_pictures.extent() / 2, hitRadius});
    return hit ? std::optional(seen[*hit]) : std::nullopt;
}

std::size_t PlaceMarkers::neighbour(std::optional<std::size_t> entry, int step) const
{
    if (m_byName.empty()) {
        std::vector<std::pair<QString, std::size_t>> byName;
        for (const std::size_t lead : leads())
            byName.emplace_back(name(lead), lead);
        std::sort(byName.begin(), byName.end());
        for (const auto& [text, lead] : byName)
            m_byName.push_back(lead);
    }
    const auto total = static_cast<int>(m_byName.size());
    int place = step > 0 ? 0 : total - 1;
    const auto found = entry ? std::find(m_byName.begin(), m_byName.end(), leadOf(*entry)) : m_byName.end();
    if (found != m_byName.end()) place = (static_cast<int>(found - m_byName.begin()) + step + total) % total;
    return m_byName[static_cast<std::size_t>(place)];
}

void PlaceMarkers::paint(QPainter& painter, const MapExtent& extent, const QRect& sight,
                         double devicePixelRatio)
{
    m_pictures.prepare(diameter(extent), devicePixelRatio);
    for (const std::size_t entry : m_isGrouped ? leads() : m_topmost)
        paintEntry(painter, extent, sight, entry);
    if (m_isGrouped || !m_raised) return;
    for (const std::size_t entry : leads())
        if (m_places[entry].colour == *m_raised) paintEntry(painter, extent, sight, entry);
}

/// Paints a marker or a disc as far as it is in sight.
void PlaceMarkers::paintEntry(QPainter& painter, const MapExtent& extent, const QRectF& sight,
                              std::size_t lead) const
{
    const QPointF middle = extent.toScreen(m_positions[lead]);
    constexpr double farthest = 50; // half the widest disc
    if (!sight.adjusted(-farthest, -farthest, farthest, farthest).contains(middle) ||
        extent.isCovered(m_positions[lead]))
        return;
    const double half = radiusOf(lead);
    const bool isPale = m_isGrouped && m_raised && !hasColour(lead, *m_raised);
    constexpr double pale = 0.3;
    if (isPale) painter.setOpacity(pale);
    if (isDisc(lead)) {
        drawDisc(painter, middle, lead);
    } else {
        // on whole device pixels, a picture is copied without smoothing
        const double ratio = painter.device()->devicePixelRatioF();
        const QPointF corner(std::round((middle.x() - half) * ratio) / ratio,
                             std::round((middle.y() - half) * ratio) / ratio);
        painter.drawPixmap(corner, m_pictures.marker(m_places[lead].colour));
    }
    if (isPale) painter.setOpacity(1);
}

bool PlaceMarkers::hasColour(std::size_t lead, int colour) const
{
    return std::ranges::any_of(members(lead),
                               [&](std::size_t entry) { return m_places[entry].colour == colour; });
}

void PlaceMarkers::drawDisc(QPainter& painter, QPointF middle, std::size_t lead) const
{
    painter.setFont(m_discFont);
    DiscPicture::draw(painter, middle, m_metrics.radiusOf(m_organizations[lead]), sharesOf(lead));
}

void PlaceMarkers::draw(QPainter& painter, const MapExtent& extent) const
{
    const QRectF sight(QPointF(), extent.size());
    const std::vector<std::size_t>& drawn = m_isGrouped ? leads() : m_topmost;
    // at half a pixel from one another, the later of two markers covers the one before
    std::set<std::pair<int, int>> covered;
    std::vector<std::size_t> seen;
    for (auto entry = drawn.rbegin(); entry != drawn.rend(); ++entry) {
        const QPointF middle = extent.toScreen(m_positions[*entry]);
        const QPoint place = (middle * 2).toPoint();
        if (extent.isInSight(m_positions[*entry]) && covered.insert({place.x(), place.y()}).second)
            seen.push_back(*entry);
    }
    for (auto entry = seen.rbegin(); entry != seen.rend(); ++entry) {
        const QPointF middle = extent.toScreen(m_positions[*entry]);
        if (isDisc(*entry))
            drawDisc(painter, movedInto(sight, middle, radiusOf(*entry)), *entry);
        else
            MarkerPictures::draw(painter, m_places[*entry].colour, middle, diameter(extent));
    }
}

void PlaceMarkers::paintRinged(QPainter& painter, const MapExtent& extent, std::size_t entry,
                               const QColor& colour) const
{
    if (isHidden(entry)) return;
    const std::size_t lead = leadOf(entry);
    const QPointF middle = extent.toScreen(m_positions[lead]);
    const double radius = radiusOf(lead) + ringWidth;
    painter.setRenderHint(QPainter::Antialiasing);
    if (isDisc(lead))
        drawDisc(painter, middle, lead);
    else
        painter.drawPixmap(middle - QPointF(1, 1) * radiusOf(lead), m_pictures.marker(m_places[lead].colour));
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(Qt::white, ringWidth + 2));
    painter.drawEllipse(middle, radius, radius);
    painter.setPen(QPen(colour, ringWidth));
    painter.drawEllipse(middle, radius, radius);
    painter.setRenderHint(QPainter::Antialiasing, false);
}

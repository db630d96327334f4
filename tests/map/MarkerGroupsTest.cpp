// SPDX-License-Identifier: GPL-3.0-or-later

#include "map/MarkerGroups.h"

#include "support/Testing.h"

#include <cmath>

namespace {

constexpr DiscMetrics metrics{5, 7, 14};

/// Markers in heaps, some of them at one spot and some hidden.
std::vector<GroupedMarker> randomMarkers(unsigned seed)
{
    std::mt19937 random(seed);
    std::uniform_int_distribution<int> spot(0, 40);
    std::uniform_int_distribution<int> organizations(1, 400);
    std::vector<GroupedMarker> markers;
    for (int i = 0; i < 600; ++i) {
        const bool isInHeap = i % 3 == 0;
        const QPointF place(spot(random) * (isInHeap ? 0.01 : 1), spot(random) * (isInHeap ? 0.02 : 1));
        markers.push_back({place, organizations(random) / (i % 5 == 0 ? 1 : 100) + 1, i % 7 == 0});
    }
    return markers;
}

std::vector<QPointF> pixelsOf(const MarkerGroups& groups, double scale, QPointF corner = {})
{
    std::vector<QPointF> pixels;
    for (const QPointF spot : groups.spots())
        pixels.push_back(spot / scale + corner);
    return pixels;
}

double distance(QPointF a, QPointF b)
{
    return std::hypot(a.x() - b.x(), a.y() - b.y());
}

TEST(MarkerGroups, JoinWhatCoversEachOtherAndNothingElse)
{
    for (const unsigned seed : {1U, 2U, 3U}) {
        const std::vector<GroupedMarker> markers = randomMarkers(seed);
        std::map<std::pair<double, double>, int> spots;
        for (const GroupedMarker& marker : markers)
            if (!marker.isHidden) spots[{marker.place.x(), marker.place.y()}] += marker.organizations;
        const auto atSpot = [&](std::size_t marker) {
            return spots.at({markers[marker].place.x(), markers[marker].place.y()});
        };
        MarkerGroups groups;
        groups.setMarkers(markers);
        std::size_t before = 0;
        for (const double scale : {1.0, 0.1, 0.03, 0.01, 0.0001}) {
            groups.join(pixelsOf(groups, scale), metrics);
            std::vector<double> radii;
            std::set<std::size_t> drawn;
            for (const std::size_t lead : groups.leads()) {
                int organizations = 0;
                for (const std::size_t member : groups.members(lead)) {
                    EXPECT_TRUE(drawn.insert(member).second) << "it is in two groups";
                    EXPECT_FALSE(markers[member].isHidden);
                    EXPECT_EQ(groups.leadOf(member), lead);
                    EXPECT_LE(atSpot(member), atSpot(lead)) << "a disc stands where most of its own are";
                    organizations += markers[member].organizations;
                }
                const bool isMarker = groups.members(lead).size() == 1;
                radii.push_back(isMarker ? metrics.markerRadius : metrics.radiusOf(organizations));
            }
            EXPECT_EQ(drawn.size(), markers.size() - (markers.size() + 6) / 7) << "every one that is shown";
            EXPECT_TRUE(std::ranges::is_sorted(groups.leads()));
            for (std::size_t a = 0; a < radii.size(); ++a) {
                for (std::size_t b = 0; b < a; ++b) {
                    const QPointF one = markers[groups.leads()[a]].place / scale;
                    const QPointF other = markers[groups.leads()[b]].place / scale;
                    ASSERT_GE(distance(one, other), radii[a] + radii[b] - 1e-6) << scale;
                }
            }
            EXPECT_GE(groups.leads().size(), before) << "zooming in takes discs apart";
            before = groups.leads().size();

            const std::vector<std::size_t> leads = groups.leads();
            groups.join(pixelsOf(groups, scale, {1234, -77}), metrics);
            EXPECT_EQ(groups.leads(), leads) << "a map that is moved keeps its discs";
        }
        EXPECT_EQ(before, spots.size()) << "in the end, each spot stands alone";
        groups.separate();
        EXPECT_EQ(groups.leads().size(), markers.size() - (markers.size() + 6) / 7);
        for (const std::size_t lead : groups.leads())
            EXPECT_TRUE(std::ranges::equal(groups.members(lead), std::vector{lead}));
    }
}

TEST(MarkerGroups, CountWhatLiesBelowOthers)
{
    // two at one spot, one that only touches them, and one whose middle lies below the last
    const std::vector<GroupedMarker> markers{
        {{0, 0}, 1, false}, {{0, 0}, 1, false}, {{8, 0}, 1, false}, {{50, 0}, 1, false}, {{54, 0}, 1, false},
    };
    MarkerGroups groups;
    groups.setMarkers(markers);
    EXPECT_EQ(groups.countCovered(pixelsOf(groups, 1), metrics.markerRadius), 2U);
    EXPECT_EQ(groups.countCovered(pixelsOf(groups, 0.1), metrics.markerRadius), 1U);
    EXPECT_EQ(groups.topmost(), (std::vector<std::size_t>{1, 2, 3, 4}));
    groups.setMarkers({});
    groups.join({}, metrics);
    EXPECT_TRUE(groups.leads().empty());
    EXPECT_EQ(groups.countCovered({}, metrics.markerRadius), 0U);
}

TEST(MarkerGroups, NumbersOfDiscsAreShortAndTheirDiscsWideEnough)
{
    for (const auto& [organizations, text] :
         {std::pair(2, "2"), {99, "99"}, {9999, "9999"}, {10000, "10k"}, {32999, "32k"}, {100000, "100k"}})
        EXPECT_EQ(discText(organizations).toStdString(), text);
    EXPECT_DOUBLE_EQ(metrics.radiusOf(2), metrics.radiusOf(99));
    EXPECT_DOUBLE_EQ(2 * metrics.radiusOf(9999), 4 * 7 + 14);
}

} // namespace

// SPDX-License-Identifier: GPL-3.0-or-later

#include "map/MapExtent.h"

#include "map/MapProjection.h"
#include "map/MarkerHit.h"
#include "support/Testing.h"

#include <cmath>

namespace {

void expectNear(QPointF actual, QPointF expected, double tolerance)
{
    EXPECT_NEAR(actual.x(), expected.x(), tolerance);
    EXPECT_NEAR(actual.y(), expected.y(), tolerance);
}

TEST(MapProjection, IsTakenBackByItsInverse)
{
    for (const QPointF place : {QPointF(-97.75, 30.25), QPointF(-188, 52), QPointF(0, 0), QPointF(-170, -14)})
        expectNear(MapProjection::toDegrees(MapProjection::toPlane(place.x(), place.y())), place, 1e-9);
    EXPECT_DOUBLE_EQ(MapProjection::toPlane(172.5, 52).x(), -187.5) << "the Aleutians go on in the west";
    EXPECT_DOUBLE_EQ(MapProjection::toPlane(144.8, 13).x(), -215.2);
    EXPECT_TRUE(std::isfinite(MapProjection::toPlane(0, 90).y()));
}

/// A small square on the ground must be a square on the screen, at every latitude.
TEST(MapProjection, SquashesNothing)
{
    for (const double lat : {-14.0, 19.0, 38.0, 64.0}) {
        const double across =
            MapProjection::toPlane(-100.01, lat).x() - MapProjection::toPlane(-100, lat).x();
        const double up =
            MapProjection::toPlane(-100, lat + 0.01).y() - MapProjection::toPlane(-100, lat).y();
        constexpr double degree = 3.14159265358979 / 180;
        EXPECT_NEAR(up / across * std::cos((lat + 0.005) * degree), 1, 1e-4) << lat;
    }
}

TEST(MapExtent, FirstShowsTheContiguousStatesWhole)
{
    for (const QSizeF size : {QSizeF(600, 400), QSizeF(300, 900), QSizeF(2000, 300)}) {
        MapExtent extent;
        extent.setSize(size);
        const QRectF states = MapProjection::contiguousStates();
        const QRectF screen(QPointF(), size);
        EXPECT_TRUE(screen.contains(extent.toScreen(states.topLeft())));
        EXPECT_TRUE(screen.contains(extent.toScreen(states.bottomRight())));
        const QRectF puertoRico(extent.toScreen(MapProjection::toPlane(-67.3, 18.55)),
                                extent.toScreen(MapProjection::toPlane(-65.22, 17.9)));
        EXPECT_TRUE(screen.contains(puertoRico) || !screen.intersects(puertoRico)) << size.width();
        const QSizeF taken = states.size() / extent.scale();
        EXPECT_GT(std::max(taken.width() / size.width(), taken.height() / size.height()), 0.9);
    }
}

/// In degrees, from the borders of each state.
const std::vector<std::pair<const char*, QPointF>> insetPlaces{
    {"AK", {-149.9, 61.2}}, {"AK", {-156.8, 71.3}}, {"AK", {173.2, 52.9}},  {"AK", {-131.6, 55.3}},
    {"HI", {-157.9, 21.3}}, {"HI", {-155.1, 19.7}}, {"HI", {-160.2, 21.9}}, {"PR", {-66.1, 18.4}},
    {"PR", {-67.94, 18.1}}, {"PR", {-64.7, 17.7}},
};

TEST(MapExtent, KeepsTheSizeOfThe48BesideInsetsThatCoverNoneOfThem)
{
    const QPointF atTheEdge[]{{-117.15, 32.55}, {-106.5, 31.76}, {-104.4, 29.56}, {-97.2, 25.95},
                              {-81.8, 24.55},   {-80.15, 25.77}, {-75.5, 35.25},  {-124.4, 40.4}};
    for (const QSizeF size : {QSizeF(480, 700), QSizeF(330, 640), QSizeF(640, 560), QSizeF(700, 372),
                              QSizeF(560, 300), QSizeF(1200, 300), QSizeF(1500, 900), QSizeF(3000, 400)}) {
        MapExtent extent;
        extent.setSize(size);
        const QPointF centre = extent.centre();
        const double scale = extent.scale();
        extent.fitWithInsets({-190, -110, 130, 100}, insetStates());
        SCOPED_TRACE(testing::Message() << size.width() << " x " << size.height());
        ASSERT_EQ(extent.insets().size(), 3u);
        EXPECT_EQ(extent.centre(), centre);
        EXPECT_EQ(extent.scale(), scale);
        for (const auto& [letters, degrees] : insetPlaces) {
            const QPointF place = MapProjection::toPlane(degrees.x(), degrees.y());
            const auto inset = extent.insetOf(place);
            ASSERT_TRUE(inset) << letters << degrees.x();
            EXPECT_EQ(extent.insets()[*inset].state().letters, QLatin1StringView(letters));
            const QRectF frame = extent.insets()[*inset].frame();
            EXPECT_TRUE(frame.adjusted(7, 7, -7, -7).contains(extent.toScreen(place))) << degrees.x();
            EXPECT_TRUE(QRectF(QPointF(), size).contains(frame));
            EXPECT_EQ(extent.insetAt(extent.toScreen(place)), inset);
            expectNear(extent.toPlane(extent.toScreen(place)), place, 1e-9);
            EXPECT_TRUE(extent.isInSight(place));
        }
        for (const QPointF degrees : atTheEdge) {
            QRectF marker(0, 0, 14, 14);
            marker.moveCenter(extent.toScreen(MapProjection::toPlane(degrees.x(), degrees.y())));
            for (const MapInset& inset : extent.insets())
                EXPECT_FALSE(inset.frame().intersects(marker)) << degrees.x();
        }
        for (std::size_t i = 0; i < 3; ++i)
            EXPECT_FALSE(extent.insets()[i].frame().intersects(extent.insets()[(i + 1) % 3].frame()));
    }
}

TEST(MapExtent, LeavesTheInsetsWhenItIsMoved)
{
    const QRectF whole(-190, -110, 130, 100);
    MapExtent extent;
    const auto showAll = [&](QSizeF size) {
        extent.setSize(size);
        extent.fitWithInsets(whole, insetStates());
    };
    showAll({120, 90});
    EXPECT_TRUE(extent.insets().empty()) << "there is no room";
    EXPECT_EQ(extent.centre(), whole.center());
    extent.setSize({800, 500});
    EXPECT_FALSE(extent.insets().empty()) << "now there is";

    const QRectF hawaii = extent.insets()[1].frame();
    const QPointF pointer = hawaii.center();
    const QPointF below = extent.toPlane(pointer);
    const double scale = extent.insets()[1].scale();
    extent.zoom(2, pointer);
    EXPECT_TRUE(extent.insets().empty());
    EXPECT_DOUBLE_EQ(extent.scale(), scale / 2);
    expectNear(extent.toPlane(pointer), below, 1e-9);

    showAll({800, 500});
    const double mainScale = extent.scale();
    extent.zoom(0.5, pointer);
    EXPECT_DOUBLE_EQ(extent.scale(), 2 * mainScale) << "all of the map becomes smaller";
    const QPointF covered = extent.toPlane(pointer);
    showAll({800, 500});
    extent.zoomTo(hawaii);
    expectNear(extent.centre(), below, 1e-9);
    showAll({800, 500});
    extent.pan({1, 0});
    EXPECT_TRUE(extent.insets().empty());

    showAll({800, 500});
    EXPECT_TRUE(extent.isCovered(covered));
    extent.show(MapProjection::toPlane(-149.9, 61.2));
    EXPECT_FALSE(extent.insets().empty()) << "Anchorage is in sight";
    extent.show(covered);
    EXPECT_EQ(extent.centre(), covered);
    EXPECT_TRUE(extent.isInSight(covered));
}

TEST(MapExtent, ZoomsToARectangleAndAboutThePointer)
{
    MapExtent extent;
    extent.setSize(QSizeF(800, 500));
    const QPointF corner = extent.toPlane(QPointF(200, 100));
    const QPointF other = extent.toPlane(QPointF(400, 225));
    extent.zoomTo(QRectF(QPointF(200, 100), QPointF(400, 225)));
    expectNear(extent.toScreen(corner), QPointF(0, 0), 1e-6);
    expectNear(extent.toScreen(other), QPointF(800, 500), 1e-6);

    const double width = extent.width();
    const QPointF pointer(650, 80);
    const QPointF below = extent.toPlane(pointer);
    extent.zoom(2, pointer);
    expectNear(extent.toPlane(pointer), below, 1e-9);
    EXPECT_DOUBLE_EQ(extent.width(), width / 2);
    EXPECT_DOUBLE_EQ(extent.markerScale(), extent.width() / 115);
    for (int i = 0; i < 60; ++i)
        extent.zoom(2, pointer);
    EXPECT_GT(extent.width(), 0.01) << "there is an end to zooming in";
    for (int i = 0; i < 60; ++i)
        extent.zoom(0.5, pointer);
    EXPECT_LE(extent.scale(), 1) << "and to zooming out";
    extent.zoomTo(QRectF(pointer, QSizeF()));
    EXPECT_GT(extent.scale(), 0) << "for a rectangle of nothing, too";
}

TEST(MapExtent, MovesWithThePointerAndKeepsItsMiddleInASizeOfItsOwn)
{
    MapExtent extent;
    extent.setSize(QSizeF(800, 500));
    const QPointF below = extent.toPlane(QPointF(100, 100));
    extent.pan(QPointF(37, -21));
    expectNear(extent.toScreen(below), QPointF(137, 79), 1e-9);

    const QPointF middle = extent.centre();
    const double scale = extent.scale();
    extent.setSize(QSizeF(300, 200));
    EXPECT_EQ(extent.centre(), middle);
    EXPECT_EQ(extent.scale(), scale);

    extent.show(middle);
    EXPECT_EQ(extent.centre(), middle) << "it is in sight";
    const QPointF guam = MapProjection::toPlane(144.8, 13.4);
    extent.show(guam);
    EXPECT_EQ(extent.centre(), guam);

    for (int i = 0; i < 1000; ++i)
        extent.pan(QPointF(500, 500));
    EXPECT_TRUE(std::isfinite(extent.centre().y()));
    EXPECT_GE(extent.centre().x(), -360) << "the map is never lost";
}

TEST(MapExtent, GoesToPlacesThatAreOutOfSight)
{
    using Places = std::vector<QPointF>;
    const QPointF texas(-97.7, 30.3);
    const QPointF nevada(-119.8, 39.5);
    const QPointF maine(-69, 45);
    const QPointF florida(-80.5, 25.5);
    const QPointF alaska(-150, 61);
    const struct
    {
        const char* what;
        Places before; ///< where the map has gone before
        Places places;
        Places inSight;
        bool stays;
    } cases[] = {
        {"in sight at first", {}, {texas, nevada}, {texas, nevada}, true},
        {"far off", {}, {alaska}, {alaska}, false},
        {"elsewhere", {alaska}, {texas, nevada}, {texas, nevada}, false},
        {"partly elsewhere", {alaska}, {alaska, texas}, {alaska, texas}, false},
        {"still there", {alaska}, {alaska, alaska}, {alaska}, true},
        {"one far off among many",
         {},
         {texas, texas, texas, texas, nevada, nevada, nevada, alaska},
         {texas},
         true},
        {"one far off among few", {}, {texas, nevada, alaska}, {texas, nevada, alaska}, false},
        {"most of the states", {alaska}, {texas, nevada, maine}, {texas, nevada, maine, florida}, false},
        {"none", {alaska}, {}, {texas, nevada}, false},
    };
    const auto planes = [](const Places& degrees) {
        Places plane;
        for (const QPointF place : degrees)
            plane.push_back(MapProjection::toPlane(place.x(), place.y()));
        return plane;
    };
    for (const auto& [what, before, places, inSight, stays] : cases) {
        MapExtent extent;
        extent.setSize(QSizeF(800, 500));
        if (!before.empty()) extent.goTo(planes(before));
        const QPointF centre = extent.centre();
        extent.goTo(planes(places));
        EXPECT_EQ(extent.centre() == centre, stays) << what;
        for (const QPointF place : planes(inSight))
            EXPECT_TRUE(QRectF(0, 0, 800, 500).contains(extent.toScreen(place))) << what;
        EXPECT_GT(extent.width(), 5) << what << ": there is something to know the place by";
    }
}

TEST(MarkerHit, TakesTheOneOnTopElseTheNearest)
{
    const std::vector<QPointF> markers{{0, 0}, {10, 0}, {10, 0}, {12, 0}};
    EXPECT_EQ(markerAt(markers, {1, 0}, {0, 5}), 0u);
    EXPECT_EQ(markerAt(markers, {9, 0}, {0, 5}), 2u);
    EXPECT_EQ(markerAt(markers, {12, 1}, {0, 5}), 3u);
    EXPECT_EQ(markerAt(markers, {0, 6}, {0, 5}), std::nullopt);
    EXPECT_EQ(markerAt({}, {0, 0}, {0, 5}), std::nullopt);
    EXPECT_EQ(markerAt(markers, {9, 0}, {4, 5}), 3u) << "the one drawn over the nearer ones";
    EXPECT_EQ(markerAt(markers, {6, 0}, {4, 5}), 2u) << "one that is near is not over one under the pointer";
    EXPECT_EQ(markerAt(markers, {4, 0}, {4, 9}), 0u);
}

} // namespace

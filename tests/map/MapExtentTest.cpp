// SPDX-License-Identifier: GPL-3.0-or-later

#include "map/MapExtent.h"

#include "map/MapProjection.h"
#include "map/MarkerHit.h"

#include <gtest/gtest.h>

#include <cmath>
#include <vector>

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

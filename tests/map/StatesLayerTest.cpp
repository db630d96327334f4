// SPDX-License-Identifier: GPL-3.0-or-later

#include "map/StatesLayer.h"

#include "map/MapProjection.h"
#include "map/StateOutlines.h"
#include "support/Testing.h"

namespace {

const StatesLayer& realLayer()
{
    static const StatesLayer layer(ShapeFile::read(QStringLiteral(ORVIK_MAPS "/states.shp")));
    return layer;
}

const StateShape& stateOf(const char16_t* letters)
{
    const auto& states = realLayer().states();
    return *std::find_if(states.begin(), states.end(),
                         [&](const StateShape& state) { return state.letters == QStringView(letters); });
}

TEST(StatesLayer, JoinsWhatLiesBeyondTheBackOfTheMap)
{
    const StateShape& alaska = stateOf(u"AK");
    EXPECT_LT(alaska.bounds.right(), -129);
    EXPECT_NEAR(alaska.bounds.left(), -187.5, 0.5) << "172.5 degrees east";
    EXPECT_LT(stateOf(u"GU").bounds.right(), -214);
    EXPECT_EQ(realLayer().states().size(), 56u);
    EXPECT_EQ(stateOf(u"TX").name, u"Texas"_s);
}

TEST(StatesLayer, FullExtentLeavesOutSmallShapesFarOff)
{
    const QRectF& full = realLayer().fullExtent();
    for (const char16_t* letters : {u"AK", u"HI", u"FL", u"ME", u"DC", u"PR", u"VI", u"WA"})
        EXPECT_TRUE(full.contains(stateOf(letters).bounds)) << QString::fromUtf16(letters).toStdString();
    for (const char16_t* letters : {u"GU", u"MP", u"AS"})
        EXPECT_FALSE(full.intersects(stateOf(letters).bounds)) << QString::fromUtf16(letters).toStdString();
    EXPECT_EQ(StatesLayer().states().size(), 0u);
    EXPECT_EQ(StatesLayer(std::vector<ShapeRecord>()).fullExtent(), MapProjection::contiguousStates());
}

TEST(StatesLayer, NamesTheStateAtAPointAndThoseForInsets)
{
    const struct
    {
        QPointF degrees;
        const char* letters; ///< empty on water
    } cases[] = {{{-99, 31}, "TX"},      {{-97.7, 35}, "OK"}, {{-85, 44}, "MI"},  {{-88, 46.5}, "MI"},
                 {{-87, 44}, ""},        {{-90, 26}, ""},     {{-150, 65}, "AK"}, {{173.2, 52.9}, "AK"},
                 {{-77.03, 38.9}, "DC"}, {{-76.6, 39}, "MD"}, {{-99, 24}, ""}};
    for (const auto& [degrees, letters] : cases) {
        const StateShape* state = realLayer().stateAt(MapProjection::toPlane(degrees.x(), degrees.y()));
        EXPECT_EQ(state ? state->letters : QString(), QLatin1StringView(letters)) << degrees.x();
    }

    EXPECT_EQ(realLayer().insets({}), insetStates());
    const QPointF honolulu = MapProjection::toPlane(-157.9, 21.3);
    EXPECT_EQ(StatesLayer().insets({honolulu}), std::vector{insetStates()[1]}) << "places alone";
    EXPECT_TRUE(StatesLayer().insets({MapProjection::toPlane(-99, 31)}).empty());
    const ShapeRecord elsewhere{{{{9, 47}, {9, 50}, {13, 50}, {13, 47}}}, u"Bavaria"_s, u"BY"_s};
    EXPECT_TRUE(StatesLayer({elsewhere}).insets({honolulu}).empty())
        << "another country's map is shown whole";
    const ShapeRecord alaska{{{{-160, 60}, {-160, 70}, {-141, 70}, {-141, 60}}}, u"Alaska"_s, u"AK"_s};
    EXPECT_TRUE(StatesLayer({alaska}).insets({honolulu}).empty()) << "as is one without the 48";
}

TEST(StatesLayer, CrossesARing)
{
    // the letter U
    const PlaneRing ring{{0, 0}, {1, 0}, {1, 2}, {2, 2}, {2, 0}, {3, 0}, {3, 3}, {0, 3}};
    using Chords = std::vector<std::pair<double, double>>;
    EXPECT_EQ(chords(ring, 1), (Chords{{0, 1}, {2, 3}}));
    EXPECT_EQ(chords(ring, 2.5), (Chords{{0, 3}}));
    EXPECT_EQ(chords(ring, 5), Chords{});
}

TEST(StateOutlines, CutsAtTheEdgeOfThePicture)
{
    const std::vector<QPointF> square{{-10, -10}, {10, -10}, {10, 10}, {-10, 10}};
    auto cut = clipped(square, QRectF(0, 0, 100, 100));
    std::sort(cut.begin(), cut.end(),
              [](QPointF a, QPointF b) { return std::pair(a.x(), a.y()) < std::pair(b.x(), b.y()); });
    EXPECT_EQ(cut, (std::vector<QPointF>{{0, 0}, {0, 10}, {10, 0}, {10, 10}}));
    EXPECT_TRUE(clipped(square, QRectF(20, 20, 5, 5)).empty());
    EXPECT_EQ(clipped(square, QRectF(-5, -5, 10, 10)).size(), 4u) << "a picture inside the square is full";
}

TEST(StateOutlines, DrawsNoMoreThanThePictureShows)
{
    const StateShape& texas = stateOf(u"TX");
    const auto points = [](const std::vector<std::vector<QPointF>>& rings) {
        std::size_t count = 0;
        for (const auto& ring : rings)
            count += ring.size();
        return count;
    };
    const MapPicture near{texas.bounds.topLeft(), texas.bounds.width() / 4000, QSizeF(4000, 4000)};
    const MapPicture far{texas.bounds.topLeft(), texas.bounds.width() / 8, QSizeF(8, 8)};
    const MapPicture elsewhere{stateOf(u"AK").bounds.topLeft(), 0.01, QSizeF(500, 500)};
    EXPECT_GT(points(outlines(texas, near)), 3 * points(outlines(texas, far)));
    EXPECT_TRUE(outlines(texas, elsewhere).empty());
    // deep inside, all that is left of a state is its colour over the whole picture
    const MapPicture inside{MapProjection::toPlane(-99, 31), 0.0001, QSizeF(500, 500)};
    for (const auto& ring : outlines(texas, inside))
        for (const QPointF& point : ring)
            EXPECT_LT(std::abs(point.x()) + std::abs(point.y()), 2000);
    // and nothing reaches beyond a picture that cannot be cut off
    const MapPicture coast{MapProjection::toPlane(-98, 30), 0.01, QSizeF(300, 300)};
    ASSERT_FALSE(outlines(texas, coast, 0).empty());
    for (const auto& ring : outlines(texas, coast, 0))
        for (const QPointF& point : ring)
            EXPECT_TRUE(QRectF(-0.01, -0.01, 300.02, 300.02).contains(point))
                << point.x() << ' ' << point.y();
}

TEST(StateOutlines, FindsRoomForNamesWithinTheState)
{
    const QRectF whole = MapProjection::contiguousStates();
    const MapPicture picture{whole.topLeft(), whole.width() / 600, QSizeF(600, 400)};
    const QSizeF text(40, 14);
    EXPECT_TRUE(roomFor(stateOf(u"TX"), picture, text));
    EXPECT_FALSE(roomFor(stateOf(u"DE"), picture, text));
    EXPECT_FALSE(roomFor(stateOf(u"TX"), picture, QSizeF(400, 14)));
    // a name gives way to markers, and stays out if they are everywhere
    const QPointF best = *roomFor(stateOf(u"TX"), picture, text);
    const QPointF other = roomFor(stateOf(u"TX"), picture, text, {{best, 1}}).value_or(best);
    EXPECT_TRUE(std::abs(other.x() - best.x()) >= 20 || std::abs(other.y() - best.y()) >= 7);
    // each obstacle has a radius of its own
    for (const double away : {30, -30}) {
        const QPointF beside = best + QPointF(0, away);
        EXPECT_EQ(roomFor(stateOf(u"TX"), picture, text, {{beside, 22}}), best);
        const QPointF moved = roomFor(stateOf(u"TX"), picture, text, {{beside, 24}}).value_or(best);
        EXPECT_GE(std::hypot(std::max(std::abs(moved.x() - beside.x()) - 20, 0.0),
                             std::max(std::abs(moved.y() - beside.y()) - 7, 0.0)),
                  24);
    }
    // and the part of a state that is in sight has room of its own
    const QRectF south = stateOf(u"TX").bounds.adjusted(0, stateOf(u"TX").bounds.height() * 0.6, 0, 0);
    EXPECT_FALSE(south.contains(stateOf(u"TX").label));
    EXPECT_TRUE(south.contains(partOf(stateOf(u"TX"), south).value().label));
    EXPECT_FALSE(partOf(stateOf(u"TX"), stateOf(u"ME").bounds));
    std::vector<MapObstacle> everywhere;
    for (int y = 0; y < 400; y += 10)
        for (int x = 0; x < 600; x += 10)
            everywhere.push_back({QPointF(x, y), 1});
    EXPECT_FALSE(roomFor(stateOf(u"TX"), picture, text, everywhere));
    for (const StateShape& state : realLayer().states()) {
        const auto middle = roomFor(state, picture, text);
        if (!middle) continue;
        const QPointF plane = picture.corner + *middle * picture.scale;
        const auto across = chords(state.rings[state.largest], plane.y());
        EXPECT_TRUE(std::any_of(across.begin(), across.end(), [&](const auto& chord) {
            return chord.first < plane.x() && plane.x() < chord.second;
        })) << state.name.toStdString();
    }
}

} // namespace

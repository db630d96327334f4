// SPDX-License-Identifier: GPL-3.0-or-later

#include "MapJourney.h"
#include "map/MapProjection.h"

namespace {

class DrawnMap : public MapJourney
{
};

TEST_F(DrawnMap, PaintsStatesMarkersAndTheirLegendInTheirColours)
{
    const char* const palette[] = {"#000000", "#0000ff", "#008000", "#ff0000", "#000080", "#800080",
                                   "#008080", "#c0c0c0", "#808080", "#808000", "#00ff00", "#ffff00",
                                   "#800000", "#ff00ff", "#00ffff", "#ffffff"};
    // one of each function on a line through the states; the seventeenth begins anew
    for (int function = 1; function <= 17; ++function) {
        journey.database.run(
            u"INSERT OR IGNORE INTO Function VALUES (%1, 'Function %2'); INSERT INTO Organization "
            "(OrganizationID, OrganizationName, FunctionID, Lat, Lon, Status) VALUES "
            "(%3, 'O', %1, 42, %4, 'ACTIVE')"_s
                .arg(QString::number(function), QString::number(function), QString::number(100 + function))
                .arg(-120 + 2.5 * function));
    }
    show();
    const QImage picture = map().grab().toImage();
    const auto colourAt = [&](double lon, double lat) {
        return picture.pixelColor(map().extent().toScreen(MapProjection::toPlane(lon, lat)).toPoint()).name();
    };
    EXPECT_EQ(colourAt(-105.8, 35.2), u"#c0c0c0"_s) << "the middle of New Mexico";
    EXPECT_EQ(colourAt(-72, 35), map().palette().color(QPalette::Base).name()) << "the sea";
    EXPECT_EQ(colourAt(-97.74, 30.27), u"#008000"_s) << "function 3 over function 2 in Austin";
    for (int function = 1; function <= 17; ++function)
        EXPECT_EQ(colourAt(-120 + 2.5 * function, 42).toStdString(), palette[(function - 1) % 16])
            << function;

    auto& legend = journey.find<QListWidget>("MapLegend");
    ASSERT_EQ(legend.count(), 16);
    EXPECT_TRUE(legend.isVisible());
    for (int line = 0; line < 16; ++line) {
        const QImage sign = legend.item(line)->icon().pixmap(14, 14).toImage();
        EXPECT_EQ(sign.pixelColor(sign.rect().center()).name().toStdString(), palette[line]) << line;
    }
    EXPECT_EQ(legend.item(0)->text(), u"Function 17 (1), None (1)"_s);
    EXPECT_EQ(legend.item(2)->text(), u"Fire & Rescue (2)"_s);
    EXPECT_EQ(legend.item(15)->text(), u"Function 16 (1)"_s);

    // a wider map has larger markers; their edge takes three pixels
    const auto redAcross = [&] {
        const QImage image = map().grab().toImage();
        const QPoint dallas = map().positionOf(entry("Dallas, TX: Law")).toPoint();
        int pixels = 0;
        for (int x = dallas.x() - 20; x <= dallas.x() + 20; ++x)
            pixels += image.pixelColor(x, dallas.y()) == QColor(Qt::red) ? 1 : 0;
        return pixels;
    };
    EXPECT_NEAR(redAcross(), 9 - 3, 1);
    journey.program->window()->resize(2600, 1900);
    journey.find<QSplitter>("splitter").setSizes({10, 4000});
    QTest::qWait(0);
    ASSERT_GT(map().width(), 1300);
    EXPECT_NEAR(redAcross(), std::min(map().width() / 115.0, 14.0) - 3, 1);
}

TEST_F(DrawnMap, RingsTheChosenPlaceAndTakesAPointerNearIt)
{
    show();
    const QColor ring = map().palette().color(QPalette::Highlight);
    // a marker is 11 pixels across with its edge, the ring 2.5 beyond that
    const auto isRinged = [&](const char* place) {
        const QPoint middle = map().positionOf(entry(place)).toPoint();
        const QImage picture = map().grab().toImage();
        const auto isRing = [&](QPoint away) {
            // the middle may lie between two pixels
            return picture.pixelColor(middle + 7 * away) == ring ||
                   picture.pixelColor(middle + 8 * away) == ring ||
                   picture.pixelColor(middle + 9 * away) == ring;
        };
        return isRing({1, 0}) && isRing({-1, 0}) && isRing({0, 1}) && isRing({0, -1});
    };
    EXPECT_FALSE(isRinged("Reno, NV: Law"));
    click(Qt::LeftButton, "Reno, NV: Law");
    EXPECT_TRUE(isRinged("Reno, NV: Law"));
    EXPECT_FALSE(isRinged("Dallas, TX: Law"));
    click(Qt::LeftButton, "Dallas, TX: Law");
    EXPECT_TRUE(isRinged("Dallas, TX: Law"));
    EXPECT_FALSE(isRinged("Reno, NV: Law"));

    // a hand that shakes a little still clicks
    const QPointF reno = map().positionOf(entry("Reno, NV: Law"));
    QTest::mousePress(&map(), Qt::LeftButton, {}, reno.toPoint());
    QTest::mouseMove(&map(), reno.toPoint() + QPoint(2, 1));
    QTest::mouseRelease(&map(), Qt::LeftButton, {}, reno.toPoint() + QPoint(2, 1));
    EXPECT_EQ(journey.selected(), "Epsilon");

    for (const QPointF way : {QPointF(1, 0), QPointF(-1, 0), QPointF(0, 1), QPointF(0.6, -0.8)}) {
        EXPECT_EQ(map().entryAt(reno + 13.5 * way), entry("Reno, NV: Law"));
        EXPECT_EQ(map().entryAt(reno + 14.5 * way), std::nullopt);
    }
    map().zoomIn();
    const QPointF nearer = map().positionOf(entry("Reno, NV: Law"));
    EXPECT_EQ(map().entryAt(nearer + QPointF(14.5, 0)), std::nullopt)
        << "the radius is in pixels of the screen";
}

TEST_F(DrawnMap, InsetsAreWorkedAsTheMapAroundThem)
{
    journey.database.run(
        "INSERT INTO Organization (OrganizationID, OrganizationName, FunctionID, City, State, "
        "Lat, Lon, Status) VALUES (20, 'North', 4, 'Nome', 'AK', 64.5, -165.4, 'ACTIVE'), "
        "(21, 'West', 4, 'Hilo', 'HI', 19.73, -155.09, 'ACTIVE'), "
        "(22, 'East', 4, 'San Juan', 'PR', 18.4, -66.06, 'ACTIVE')");
    const QPointF corner = MapProjection::toDegrees(insetStates()[0].bounds.topLeft() + QPointF(0.1, 0.1));
    journey.database.run(
        u"INSERT INTO Organization (OrganizationID, OrganizationName, FunctionID, City, State, "
        "Lat, Lon, Status) VALUES (23, 'Edge', 4, 'Cape', 'AK', %1, %2, 'ACTIVE')"_s.arg(corner.y())
            .arg(corner.x()));
    show();
    journey.program->window()->resize(1500, 900);
    QTest::qWait(0);
    journey.trigger("mapFullExtent");
    ASSERT_EQ(map().extent().insets().size(), 3u);
    const char* const places[] = {"Nome, AK: Law", "Hilo, HI: Law", "San Juan, PR: Law"};
    const char* const names[] = {"North", "West", "East"};
    const QImage window = map().grab().toImage();
    QImage picture(map().size(), QImage::Format_RGB32);
    QPainter painter(&picture);
    map().draw(painter);
    for (std::size_t i = 0; i < 3; ++i) {
        const QRect frame = map().extent().insets()[i].frame().toAlignedRect();
        const QPoint marker = map().positionOf(entry(places[i])).toPoint();
        EXPECT_TRUE(frame.contains(map().accessibleItemRect(static_cast<int>(entry(places[i])))));
        for (const QImage& image : {window, picture}) {
            EXPECT_EQ(image.pixelColor(marker).name(), u"#ff0000"_s) << places[i];
            int land = 0;
            for (int x = frame.left() + 2; x < frame.right() - 2; ++x)
                for (int y = frame.top() + 2; y < frame.bottom() - 2; ++y)
                    land += image.pixelColor(x, y) == QColor(192, 192, 192) ? 1 : 0;
            EXPECT_GT(land, 100) << places[i];
            bool isNameRight = false;
            for (int x = frame.center().x(); x < frame.right() - 2; ++x)
                for (int y = frame.top() + 3; y < frame.top() + 14; ++y)
                    isNameRight |= image.pixelColor(x, y) != image.pixelColor(frame.topLeft() + QPoint(2, 2));
            EXPECT_EQ(isNameRight, i == 0) << "a marker stands at the left of Alaska's name";
        }
        click(Qt::LeftButton, places[i]);
        EXPECT_EQ(journey.selected(), names[i]);
    }
    const QSignalSpy pointed(&map(), &MapView::pointed);
    click(Qt::LeftButton, "Hilo, HI: Law");
    EXPECT_NEAR(pointed[0][0].toDouble(), 19.73, 0.1);
    EXPECT_NEAR(pointed[0][1].toDouble(), -155.09, 0.1);

    const auto isWhole = [this](const char* state) {
        const auto& insets = insetStates();
        const auto found = std::ranges::find(insets, QLatin1StringView(state), &InsetState::letters);
        return map().extent().insets().empty() && map().extent().isInSight(found->bounds.topLeft()) &&
               map().extent().isInSight(found->bounds.bottomRight());
    };
    const QPoint alaskanSea = map().extent().insets()[0].frame().toRect().topLeft() + QPoint(4, 4);
    QTest::mouseDClick(&map(), Qt::LeftButton, {}, alaskanSea);
    EXPECT_TRUE(isWhole("AK"));
    journey.trigger("mapFullExtent");
    journey.trigger("mapZoomIn");
    QTest::mouseClick(&map(), Qt::LeftButton, {}, map().extent().insets()[2].frame().center().toPoint());
    EXPECT_TRUE(isWhole("PR"));
}

TEST_F(DrawnMap, CutsOffNoNameAtItsEdges)
{
    show();
    map().setPlaces({});
    journey.trigger("mapContiguousStates");
    map().zoomIn();
    journey.list().setFocus();
    std::size_t names = 0;
    for (const Qt::Key key : {Qt::Key_Up, Qt::Key_Left, Qt::Key_Left, Qt::Key_Down, Qt::Key_Right}) {
        QTest::keyClick(&map(), key);
        const QImage picture = map().grab().toImage();
        const QRect edge = picture.rect().adjusted(0, 0, -1, -1);
        for (int x = 0; x < picture.width(); ++x) {
            for (int y = 0; y < picture.height(); ++y) {
                if (picture.pixelColor(x, y).lightness() > 120) continue;
                ++names;
                EXPECT_TRUE(edge.adjusted(1, 1, 0, 0).contains(x, y)) << x << ' ' << y;
            }
        }
    }
    EXPECT_GT(names, 1000U);
}

TEST_F(DrawnMap, APlaceBelowAnInsetIsOutOfSight)
{
    show();
    journey.trigger("mapFullExtent");
    const QPoint below = map().extent().insets()[2].frame().center().toPoint() - QPoint(0, 20);
    journey.trigger("mapContiguousStates");
    const QPointF atSea = map().degreesAt(below);
    journey.database.run(u"INSERT INTO Organization (OrganizationID, OrganizationName, FunctionID, Lat, Lon, "
                         "Status) VALUES (20, 'Ship', 4, %1, %2, 'ACTIVE')"_s.arg(atSea.y())
                             .arg(atSea.x()));
    journey.trigger("mnuViewRefresh");
    ASSERT_TRUE(map().entryAt(below));
    const auto ship = static_cast<int>(*map().entryAt(below));
    journey.trigger("mapFullExtent");
    EXPECT_EQ(map().entryAt(below), std::nullopt);
    EXPECT_NE(map().grab().toImage().pixelColor(below), QColor(Qt::red));
    EXPECT_TRUE(map().accessibleItemRect(ship).isEmpty());
    journey.select("Ship");
    EXPECT_TRUE(map().rect().contains(map().accessibleItemRect(ship))) << "the map goes to it";
    EXPECT_TRUE(map().extent().insets().empty());
}

TEST_F(DrawnMap, GoesToAStateByADoubleClick)
{
    show();
    const auto doubleClickAt = [this](double lon, double lat) {
        QTest::mouseDClick(&map(), Qt::LeftButton, {},
                           map().extent().toScreen(MapProjection::toPlane(lon, lat)).toPoint());
    };
    const double first = map().extent().scale();
    doubleClickAt(-99, 31);
    const double texas = map().extent().scale();
    EXPECT_LT(texas, first);
    for (const QPointF corner : {QPointF(-106.6, 36.5), QPointF(-93.6, 25.9)})
        EXPECT_TRUE(map().extent().isInSight(MapProjection::toPlane(corner.x(), corner.y())));
    EXPECT_FALSE(map().extent().isInSight(MapProjection::toPlane(-120, 40)));
    const QPointF clicked = map().extent().toScreen(MapProjection::toPlane(-101, 33));
    doubleClickAt(-101, 33);
    EXPECT_DOUBLE_EQ(map().extent().scale(), texas / 2) << "it is shown already";
    EXPECT_LT((map().extent().toScreen(MapProjection::toPlane(-101, 33)) - clicked).manhattanLength(), 2);
    journey.trigger("mapContiguousStates");
    doubleClickAt(-122, 30);
    EXPECT_DOUBLE_EQ(map().extent().scale(), first / 2) << "water belongs to no state";
}

TEST_F(DrawnMap, WithoutTheStatesTheMarkersAreThereAndTheMessageFollows)
{
    QFile::rename(journey.mapsFolder() + u"states.dbf"_s, journey.mapsFolder() + u"kept"_s);
    journey.desktop.messages.expectMessageBeginning(u"drawMap Error (2): "_s);
    show();
    journey.desktop.messages.finish();
    EXPECT_EQ(map().accessibleItemCount(), 5);
    EXPECT_FALSE(map().hasStates());
    EXPECT_FALSE(map().grab().isNull());

    QFile shapes(journey.mapsFolder() + u"states.shp"_s);
    QFile::rename(journey.mapsFolder() + u"kept"_s, journey.mapsFolder() + u"states.dbf"_s);
    ASSERT_TRUE(shapes.setPermissions(QFile::ReadOwner | QFile::WriteOwner));
    const qint64 size = shapes.size();
    ASSERT_TRUE(shapes.resize(size / 2));
    journey.desktop.messages.expectMessageBeginning(u"drawMap Error (84): "_s);
    journey.trigger("mnuViewRefresh");
    journey.desktop.messages.finish();

    shapes.remove();
    ASSERT_TRUE(QFile::copy(QStringLiteral(ORVIK_MAPS "/states.shp"), shapes.fileName()));
    journey.trigger("mnuViewRefresh");
    EXPECT_TRUE(map().hasStates());
}

} // namespace

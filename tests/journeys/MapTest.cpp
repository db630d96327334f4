#include "Journey.h"
#include "app/StdREG.h"
#include "map/MapProjection.h"
#include "map/MapView.h"

#include <QAccessible>
#include <QContextMenuEvent>
#include <QImage>
#include <QListWidget>
#include <QMenu>
#include <QScrollBar>
#include <QSplitter>
#include <QTest>
#include <QToolTip>
#include <QWheelEvent>

#include <gtest/gtest.h>

namespace {

/// Organizations of two functions in Austin, of one in Dallas and in Reno, and one without a place.
void addOrganizations(const TestDatabase& database)
{
    database.run("INSERT INTO Function VALUES (1, 'None'), (2, 'Relief'), (3, 'Fire & Rescue'), (4, 'Law')");
    database.run("INSERT INTO CityLocations (LocationID, City, State, Lat, Lon) VALUES "
                 "(5, 'Austin', 'TX', 30.27, -97.74), (6, 'Dallas', 'TX', 32.78, -96.8), "
                 "(7, 'Reno', 'NV', 39.53, -119.81), (8, 'O''Fallon', 'MO', 38.81, -90.7)");
    database.run(
        "INSERT INTO Organization (OrganizationID, OrganizationName, FunctionID, City, State, Status) VALUES "
        "(2, 'Alpha <b>', 2, 'Austin', 'TX', 'ACTIVE'), (3, 'Beta', 2, 'Austin', 'TX', 'ACTIVE'), "
        "(4, 'Gamma', 3, 'Austin', 'TX', 'ACTIVE'), (5, 'Delta', 4, 'Dallas', 'TX', 'ACTIVE'), "
        "(6, 'Epsilon', 4, 'Reno', 'NV', 'ACTIVE'), (7, 'Zeta', 4, 'Nowhere', 'UT', 'ACTIVE'), "
        "(8, 'Eta', 4, 'O''Fallon', 'MO', 'ACTIVE')");
}

class MapJourney : public testing::Test
{
protected:
    MapJourney() { addOrganizations(journey.database); }

    void show()
    {
        journey.start();
        journey.trigger("mnuViewOrganizations");
        QApplication::processEvents();
    }

    MapView& map() { return journey.find<MapView>("Map1"); }

    /// The number of the entry of that name, as assistive tools name it.
    std::size_t entry(const char* name)
    {
        for (int item = 0; item < map().accessibleItemCount(); ++item) {
            if (map().accessibleItemName(item) == QString::fromUtf8(name))
                return static_cast<std::size_t>(item);
        }
        throw std::runtime_error(std::string("no such place: ") + name);
    }

    void click(Qt::MouseButton button, const char* place)
    {
        QTest::mouseClick(&map(), button, {}, map().positionOf(entry(place)).toPoint());
    }

    /// The names of the selected rows, in the list's order.
    std::string selected()
    {
        QStringList names;
        for (int row = 0; row < journey.list().model()->rowCount(); ++row) {
            const QModelIndex index = journey.list().model()->index(row, 0);
            if (journey.list().selectionModel()->isSelected(index)) names << index.data().toString();
        }
        return names.join(u'|').toStdString();
    }

    std::string menuTexts()
    {
        QStringList texts;
        for (const QAction* action : journey.find<QMenu>("popOrgTab").actions())
            texts << action->text();
        return texts.join(u'|').toStdString();
    }

    Journey journey;
};

TEST_F(MapJourney, MarkersAndRowsChooseEachOther)
{
    show();
    EXPECT_EQ(map().accessibleItemCount(), 5);
    EXPECT_EQ(journey.column(0), "Alpha <b>|Beta|Delta|Epsilon|Eta|Gamma|Zeta");

    click(Qt::LeftButton, "Dallas, TX: Law");
    EXPECT_EQ(selected(), "Delta");
    EXPECT_EQ(map().ringed(), entry("Dallas, TX: Law"));

    // of the two markers in Austin, the one drawn last is on top
    click(Qt::LeftButton, "Austin, TX: Relief");
    EXPECT_EQ(selected(), "Gamma");
    EXPECT_EQ(map().ringed(), entry("Austin, TX: Fire & Rescue"));

    QTest::keyClicks(&journey.list(), QStringLiteral("beta"));
    EXPECT_EQ(map().ringed(), entry("Austin, TX: Relief"));
    map().setFocus();
    QTest::keyClick(&map(), Qt::Key_Return);
    EXPECT_EQ(selected(), "Alpha <b>|Beta");

    QTest::keyClick(&journey.list(), Qt::Key_End);
    EXPECT_EQ(map().ringed(), std::nullopt) << "it is not on the map";
    EXPECT_EQ(map().describe(entry("Austin, TX: Relief")),
              QStringLiteral("<b>Austin, TX</b><br>Alpha &lt;b&gt;<br>Beta<br>Gamma"));
    auto& legend = journey.find<QListWidget>("MapLegend");
    EXPECT_EQ(legend.count(), 3);
    EXPECT_EQ(legend.verticalScrollBar()->maximum(), 0) << "it shows all of its lines";

    map().showContiguousStates();
    journey.trigger("mapZoomIn");
    QTest::mouseClick(&map(), Qt::LeftButton, {}, map().positionOf(entry("Reno, NV: Law")).toPoint());
    QTest::mouseClick(&map(), Qt::LeftButton, {}, map().positionOf(entry("Reno, NV: Law")).toPoint());
    for (const Qt::Key key : {Qt::Key_Home, Qt::Key_Down, Qt::Key_Down})
        QTest::keyClick(&journey.list(), key);
    EXPECT_EQ(selected(), "Delta");
    const QPoint dallas = map().positionOf(entry("Dallas, TX: Law")).toPoint();
    EXPECT_TRUE(map().rect().contains(dallas)) << "the map goes to a place out of sight";
}

TEST_F(MapJourney, TheMenuNarrowsToACityOrAState)
{
    show();
    click(Qt::RightButton, "Dallas, TX: Law");
    EXPECT_EQ(menuTexts(), "Show Only Dallas, TX Organizations|Show Only TX Organizations");
    EXPECT_TRUE(journey.find<QMenu>("popOrgTab").isVisible());
    journey.find<QMenu>("popOrgTab").close();
    journey.trigger("popOrgTabShowOnlyState");
    EXPECT_EQ(journey.viewPanel(), QStringLiteral("View Only TX Organizations"));
    EXPECT_EQ(journey.column(0), "Alpha <b>|Beta|Delta|Gamma");
    EXPECT_EQ(map().accessibleItemCount(), 3);

    map().setFocus();
    QTest::keyClick(&map(), Qt::Key_PageDown);
    EXPECT_EQ(map().ringed(), entry("Austin, TX: Fire & Rescue"));
    EXPECT_EQ(QToolTip::text(), QStringLiteral("Austin, TX: Fire & Rescue"));
    QContextMenuEvent menuKey(QContextMenuEvent::Keyboard, QPoint(), QPoint());
    QApplication::sendEvent(&map(), &menuKey);
    EXPECT_EQ(menuTexts(), "Show Only Austin, TX Organizations|Show Only TX Organizations");
    journey.find<QMenu>("popOrgTab").close();
    journey.trigger("popOrgTabShowOnlyCity");
    EXPECT_EQ(journey.viewPanel(), QStringLiteral("View Only Austin, TX Organizations"));
    EXPECT_EQ(journey.column(0), "Alpha <b>|Beta|Gamma");

    journey.trigger("mnuNavigateBack");
    journey.trigger("mnuNavigateBack");
    EXPECT_EQ(map().accessibleItemCount(), 5);
    EXPECT_FALSE(journey.find<QMenu>("popOrgTab").isVisible());
    QTest::mouseClick(&map(), Qt::RightButton, {}, QPoint(3, 3));
    EXPECT_FALSE(journey.find<QMenu>("popOrgTab").isVisible()) << "there is no place there";
}

TEST_F(MapJourney, TheMenuOffersNoStateWhereThereIsNone)
{
    journey.database.run(
        "INSERT INTO Organization (OrganizationID, OrganizationName, FunctionID, City, State, "
        "Lat, Lon, Status) VALUES (20, 'Theta', 2, 'Abroad', 'None', 41, -104, 'ACTIVE'), "
        "(21, 'Iota', 2, 'At Sea', NULL, 33, -120, 'ACTIVE')");
    show();
    const auto offered = [this](const char* place) {
        click(Qt::RightButton, place);
        journey.find<QMenu>("popOrgTab").close();
        return journey.find<QAction>("popOrgTabShowOnlyState").isVisible();
    };
    EXPECT_FALSE(offered("Abroad, None: Relief"));
    EXPECT_FALSE(offered("At Sea: Relief"));
    EXPECT_TRUE(offered("Reno, NV: Law"));
    offered("Abroad, None: Relief");
    journey.trigger("popOrgTabShowOnlyCity");
    EXPECT_EQ(journey.column(0), "Theta");
}

TEST_F(MapJourney, AnApostropheIsReportedAndTheViewStays)
{
    show();
    click(Qt::RightButton, "O'Fallon, MO: Law");
    journey.find<QMenu>("popOrgTab").close();
    journey.desktop.messages.expectMessageBeginning(QStringLiteral("popOrgTabShowOnlyCity Error ("));
    journey.trigger("popOrgTabShowOnlyCity");
    EXPECT_EQ(journey.viewPanel(), QStringLiteral("View ALL Organizations"));
    EXPECT_EQ(journey.program->state().history.count(), 2u);
}

TEST_F(MapJourney, ToolsKeysAndWheelZoomAndMove)
{
    show();
    EXPECT_TRUE(journey.find<QAction>("mapPointer").isChecked());
    const QPointF middle = QRectF(map().rect()).center();
    const double first = map().markerScale();
    EXPECT_DOUBLE_EQ(first, map().extent().width() / 115);

    journey.trigger("mapZoomIn");
    QTest::mouseClick(&map(), Qt::LeftButton, {}, middle.toPoint());
    EXPECT_DOUBLE_EQ(map().markerScale(), first / 2);
    journey.trigger("mapZoomOut");
    QTest::mouseClick(&map(), Qt::LeftButton, {}, middle.toPoint());
    EXPECT_DOUBLE_EQ(map().markerScale(), first);
    QTest::keyClick(&map(), Qt::Key_Escape);
    EXPECT_TRUE(journey.find<QAction>("mapPointer").isChecked());

    const QPointF pointer(40, 60);
    const QPointF below = map().extent().toPlane(pointer);
    QWheelEvent turn(pointer, map().mapToGlobal(pointer), {}, {0, 240}, Qt::NoButton, Qt::NoModifier,
                     Qt::NoScrollPhase, false);
    QApplication::sendEvent(&map(), &turn);
    EXPECT_DOUBLE_EQ(map().markerScale(), first / 2);
    EXPECT_NEAR(map().extent().toPlane(pointer).x(), below.x(), 1e-9);

    const QPointF before = map().extent().centre();
    QTest::mousePress(&map(), Qt::LeftButton, {}, QPoint(100, 100));
    QTest::mouseMove(&map(), QPoint(130, 100));
    QTest::mouseMove(&map(), QPoint(150, 110));
    QTest::mouseRelease(&map(), Qt::LeftButton, {}, QPoint(150, 110));
    EXPECT_NEAR((before.x() - map().extent().centre().x()) / map().extent().scale(), 50, 1e-6);
    EXPECT_EQ(selected(), "") << "a drag chooses nothing";

    for (const auto& [key, way] : {std::pair(Qt::Key_Left, QPointF(-1, 0)),
                                   {Qt::Key_Right, QPointF(1, 0)},
                                   {Qt::Key_Up, QPointF(0, -1)},
                                   {Qt::Key_Down, QPointF(0, 1)}}) {
        const QPointF there =
            map().extent().toPlane(middle + QPointF(way.x() * map().width(), way.y() * map().height()) / 8);
        QTest::keyClick(&map(), key);
        EXPECT_LT((map().extent().toScreen(there) - middle).manhattanLength(), 1) << key;
    }

    journey.trigger("mapFullExtent");
    const QRectF screen(map().rect());
    EXPECT_TRUE(screen.contains(map().extent().toScreen(MapProjection::toPlane(173, 52.5))))
        << "the Aleutians";
    EXPECT_TRUE(screen.contains(map().extent().toScreen(MapProjection::toPlane(-66, 18.2)))) << "Puerto Rico";
    QTest::keyClick(&map(), Qt::Key_End);
    EXPECT_DOUBLE_EQ(map().markerScale(), first);
    QTest::mouseDClick(&map(), Qt::LeftButton, {}, QPoint(30, 30));
    EXPECT_DOUBLE_EQ(map().markerScale(), first / 2);
}

TEST_F(MapJourney, AnotherViewBringsItsPlacesIntoSight)
{
    journey.database.run(
        "INSERT INTO Organization (OrganizationID, OrganizationName, FunctionID, City, State, "
        "Lat, Lon, Status) VALUES (20, 'North', 2, 'Nome', 'AK', 64.5, -165.4, 'ACTIVE')");
    show();
    journey.trigger("mapContiguousStates");
    const double first = map().markerScale();
    const auto showOnly = [this](const char* state) {
        SQLObject query = *journey.program->state().queries.organizations;
        query.WhereClause += QStringLiteral(" AND State LIKE '%1'").arg(QLatin1StringView(state));
        journey.program->state().history.addView(
            {ViewKind::Organizations, std::make_shared<const SQLObject>(query), QLatin1StringView(state)});
    };
    const auto areInSight = [this] {
        for (int item = 0; item < map().accessibleItemCount(); ++item) {
            if (!map().rect().contains(map().positionOf(static_cast<std::size_t>(item)).toPoint()))
                return false;
        }
        return true;
    };
    showOnly("TX");
    EXPECT_DOUBLE_EQ(map().markerScale(), first) << "they were in sight";
    for (const char* state : {"AK", "NV", "TX"}) {
        showOnly(state);
        EXPECT_GT(map().accessibleItemCount(), 0) << state;
        EXPECT_TRUE(areInSight()) << state;
    }
    EXPECT_LT(map().markerScale(), first);
    showOnly("UT");
    EXPECT_EQ(map().accessibleItemCount(), 0);
    EXPECT_DOUBLE_EQ(map().markerScale(), first) << "without places, all of the states";
    journey.trigger("mnuNavigateBack");
    EXPECT_DOUBLE_EQ(map().markerScale(), first);
    showOnly("AK");
    const QPointF before = map().extent().centre();
    QTest::keyClick(&map(), Qt::Key_Left);
    for (int i = 0; i < 20; ++i)
        QTest::keyClick(&map(), Qt::Key_Up);
    ASSERT_FALSE(areInSight());
    journey.trigger("mnuViewRefresh");
    EXPECT_FALSE(areInSight()) << "a view that is read again stays where the user moved it";
    EXPECT_NE(map().extent().centre(), before);

    journey.trigger("mnuViewOrganizations");
    journey.select("North");
    showOnly("TX");
    journey.trigger("mnuNavigateBack");
    EXPECT_EQ(map().ringed(), entry("Nome, AK: Relief"));
    EXPECT_TRUE(map().rect().contains(map().positionOf(*map().ringed()).toPoint())) << "what is selected";
    QTest::keyClick(&map(), Qt::Key_PageDown);
    ASSERT_NE(map().ringed(), entry("Nome, AK: Relief"));
    journey.select("North");
    EXPECT_EQ(map().ringed(), entry("Nome, AK: Relief")) << "the same row again";
}

TEST_F(MapJourney, PaintsStatesMarkersAndTheirLegendInTheirColours)
{
    const char* const palette[] = {"#000000", "#0000ff", "#008000", "#ff0000", "#000080", "#800080",
                                   "#008080", "#c0c0c0", "#808080", "#808000", "#00ff00", "#ffff00",
                                   "#800000", "#ff00ff", "#00ffff", "#ffffff"};
    // one of each function on a line through the states; the seventeenth begins anew
    for (int function = 1; function <= 17; ++function) {
        journey.database.run(
            QStringLiteral(
                "INSERT OR IGNORE INTO Function VALUES (%1, 'Function %2'); INSERT INTO Organization "
                "(OrganizationID, OrganizationName, FunctionID, Lat, Lon, Status) VALUES "
                "(%3, 'O', %1, 42, %4, 'ACTIVE')")
                .arg(QString::number(function), QString::number(function), QString::number(100 + function))
                .arg(-120 + 2.5 * function)
                .toUtf8()
                .constData());
    }
    show();
    const QImage picture = map().grab().toImage();
    const auto colourAt = [&](double lon, double lat) {
        return picture.pixelColor(map().extent().toScreen(MapProjection::toPlane(lon, lat)).toPoint()).name();
    };
    EXPECT_EQ(colourAt(-105.8, 35.2), QStringLiteral("#c0c0c0")) << "the middle of New Mexico";
    EXPECT_EQ(colourAt(-72, 35), map().palette().color(QPalette::Base).name()) << "the sea";
    EXPECT_EQ(colourAt(-97.74, 30.27), QStringLiteral("#008000")) << "function 3 over function 2 in Austin";
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
    EXPECT_EQ(legend.item(0)->text(), QStringLiteral("Function 17, None"));
    EXPECT_EQ(legend.item(2)->text(), QStringLiteral("Fire & Rescue"));
    EXPECT_EQ(legend.item(15)->text(), QStringLiteral("Function 16"));

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

TEST_F(MapJourney, RingsTheChosenPlaceAndTakesAPointerNearIt)
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
    EXPECT_EQ(selected(), "Epsilon");

    for (const QPointF way : {QPointF(1, 0), QPointF(-1, 0), QPointF(0, 1), QPointF(0.6, -0.8)}) {
        EXPECT_EQ(map().entryAt(reno + 13.5 * way), entry("Reno, NV: Law"));
        EXPECT_EQ(map().entryAt(reno + 14.5 * way), std::nullopt);
    }
    map().zoomIn();
    const QPointF nearer = map().positionOf(entry("Reno, NV: Law"));
    EXPECT_EQ(map().entryAt(nearer + QPointF(14.5, 0)), std::nullopt)
        << "the radius is in pixels of the screen";
}

TEST_F(MapJourney, WithoutTheStatesTheMarkersAreThereAndTheMessageFollows)
{
    QFile::rename(journey.mapsFolder() + QStringLiteral("states.dbf"),
                  journey.mapsFolder() + QStringLiteral("kept"));
    journey.desktop.messages.expectMessageBeginning(QStringLiteral("drawMap Error (2): "));
    show();
    journey.desktop.messages.finish();
    EXPECT_EQ(map().accessibleItemCount(), 5);
    EXPECT_FALSE(map().hasStates());
    EXPECT_FALSE(map().grab().isNull());

    QFile shapes(journey.mapsFolder() + QStringLiteral("states.shp"));
    QFile::rename(journey.mapsFolder() + QStringLiteral("kept"),
                  journey.mapsFolder() + QStringLiteral("states.dbf"));
    ASSERT_TRUE(shapes.setPermissions(QFile::ReadOwner | QFile::WriteOwner));
    const qint64 size = shapes.size();
    ASSERT_TRUE(shapes.resize(size / 2));
    journey.desktop.messages.expectMessageBeginning(QStringLiteral("drawMap Error (84): "));
    journey.trigger("mnuViewRefresh");
    journey.desktop.messages.finish();

    shapes.remove();
    ASSERT_TRUE(QFile::copy(QStringLiteral(ORVIK_MAPS "/states.shp"), shapes.fileName()));
    journey.trigger("mnuViewRefresh");
    EXPECT_TRUE(map().hasStates());
}

TEST_F(MapJourney, AFailingListTakesTheMarkersAway)
{
    show();
    SQLObject broken = *journey.program->state().queries.organizations;
    broken.WhereClause += QStringLiteral(" AND Nothing = 1");
    journey.desktop.messages.expectMessageBeginning(QStringLiteral("showOrganizations Error ("));
    journey.program->state().history.addView(
        {ViewKind::Organizations, std::make_shared<const SQLObject>(broken), QStringLiteral("Broken")});
    EXPECT_EQ(map().accessibleItemCount(), 0);
}

TEST_F(MapJourney, PlacesAreItemsForAssistiveTools)
{
    show();
    QAccessibleInterface* list = QAccessible::queryAccessibleInterface(&map());
    ASSERT_NE(list, nullptr);
    EXPECT_EQ(list->role(), QAccessible::List);
    EXPECT_EQ(list->text(QAccessible::Name), QStringLiteral("Map of the organizations"));
    ASSERT_EQ(list->childCount(), 5);
    const auto item = static_cast<int>(entry("Reno, NV: Law"));
    QAccessibleInterface* place = list->child(item);
    EXPECT_EQ(place->text(QAccessible::Name), QStringLiteral("Reno, NV: Law"));
    EXPECT_EQ(place->parent(), list);
    EXPECT_EQ(list->indexOfChild(place), item);
    EXPECT_EQ(list->childAt(place->rect().center().x(), place->rect().center().y()), place);
    journey.database.run(
        "WITH RECURSIVE n(i) AS (VALUES (50) UNION ALL SELECT i + 1 FROM n WHERE i < 62) INSERT INTO "
        "Organization (OrganizationID, OrganizationName, FunctionID, City, State, Status) "
        "SELECT i, 'Org ' || i, 4, 'Reno', 'NV', 'ACTIVE' FROM n");
    journey.trigger("mnuViewRefresh");
    const QString reno = map().describe(entry("Reno, NV: Law"));
    EXPECT_TRUE(reno.startsWith(QStringLiteral("<b>Reno, NV</b><br>Epsilon<br>Org 50<br>")))
        << reno.toStdString();
    EXPECT_TRUE(reno.endsWith(QStringLiteral("<br>Org 60<br>and 2 more"))) << reno.toStdString();

    journey.database.run("UPDATE Organization SET Status = 'DELETED'");
    journey.trigger("mnuViewRefresh");
    EXPECT_FALSE(place->isValid());
    EXPECT_EQ(list->childCount(), 0);
}

TEST_F(MapJourney, TheGraphicStaysWhereItWasPut)
{
    journey.start();
    EXPECT_FALSE(journey.find<QAction>("mnuViewGraphicBelow").isEnabled());
    journey.trigger("mnuViewOrganizations");
    EXPECT_TRUE(journey.find<QAction>("mnuViewGraphicRight").isChecked());
    journey.trigger("mnuViewGraphicBelow");
    EXPECT_EQ(journey.find<QSplitter>("splitter").orientation(), Qt::Vertical);
    journey.trigger("mnuViewDocuments");
    EXPECT_EQ(journey.find<QSplitter>("splitter").orientation(), Qt::Horizontal)
        << "each kind has its own place";
    journey.trigger("mnuViewOrganizations");
    QApplication::processEvents();
    journey.find<QSplitter>("splitter").setSizes({100, 300});
    journey.trigger("mnuNavigateHome");
    journey.desktop.messages.expectQuestion(QStringLiteral("Are you sure you want to exit?"), true,
                                            Question::Loss);
    journey.program->window()->close();

    journey.start();
    journey.trigger("mnuViewOrganizations");
    QApplication::processEvents();
    EXPECT_TRUE(journey.find<QAction>("mnuViewGraphicBelow").isChecked());
    const QList<int> sizes = journey.find<QSplitter>("splitter").sizes();
    EXPECT_GT(sizes[1], 2 * sizes[0]);
}

} // namespace

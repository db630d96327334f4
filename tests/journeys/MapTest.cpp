// SPDX-License-Identifier: GPL-3.0-or-later

#include "MapJourney.h"
#include "map/MapProjection.h"

namespace {

TEST_F(MapJourney, MarkersAndRowsChooseEachOther)
{
    show();
    EXPECT_EQ(map().accessibleItemCount(), 5);
    EXPECT_EQ(journey.column(0), "Alpha <b>|Beta|Delta|Epsilon|Eta|Gamma|Zeta");

    click(Qt::LeftButton, "Dallas, TX: Law");
    EXPECT_EQ(journey.selected(), "Delta");
    EXPECT_EQ(map().ringed(), entry("Dallas, TX: Law"));

    // of the two markers in Austin, the one drawn last is on top
    click(Qt::LeftButton, "Austin, TX: Relief");
    EXPECT_EQ(journey.selected(), "Gamma");
    EXPECT_EQ(map().ringed(), entry("Austin, TX: Fire & Rescue"));

    QTest::keyClicks(&journey.list(), u"beta"_s);
    EXPECT_EQ(map().ringed(), entry("Austin, TX: Relief"));
    map().setFocus();
    QTest::keyClick(&map(), Qt::Key_Return);
    EXPECT_EQ(journey.selected(), "Alpha <b>|Beta");

    QTest::keyClick(&journey.list(), Qt::Key_End);
    EXPECT_EQ(map().ringed(), std::nullopt) << "it is not on the map";
    EXPECT_EQ(map().describe(entry("Austin, TX: Relief")),
              u"<b>Austin, TX</b><br>Alpha &lt;b&gt;<br>Beta<br>Gamma"_s);
    auto& legend = journey.find<QListWidget>("MapLegend");
    EXPECT_EQ(legend.count(), 3);
    EXPECT_EQ(legend.verticalScrollBar()->maximum(), 0) << "it shows all of its lines";

    map().showContiguousStates();
    journey.trigger("mapZoomIn");
    QTest::mouseClick(&map(), Qt::LeftButton, {}, map().positionOf(entry("Reno, NV: Law")).toPoint());
    QTest::mouseClick(&map(), Qt::LeftButton, {}, map().positionOf(entry("Reno, NV: Law")).toPoint());
    for (const Qt::Key key : {Qt::Key_Home, Qt::Key_Down, Qt::Key_Down})
        QTest::keyClick(&journey.list(), key);
    EXPECT_EQ(journey.selected(), "Delta");
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
    EXPECT_EQ(journey.viewPanel(), u"View Only TX Organizations"_s);
    EXPECT_EQ(journey.column(0), "Alpha <b>|Beta|Delta|Gamma");
    EXPECT_EQ(map().accessibleItemCount(), 3);

    map().setFocus();
    QTest::keyClick(&map(), Qt::Key_PageDown);
    EXPECT_EQ(map().ringed(), entry("Austin, TX: Fire & Rescue"));
    EXPECT_EQ(QToolTip::text(), u"Austin, TX: Fire & Rescue"_s);
    QContextMenuEvent menuKey(QContextMenuEvent::Keyboard, QPoint(), QPoint());
    QApplication::sendEvent(&map(), &menuKey);
    EXPECT_EQ(menuTexts(), "Show Only Austin, TX Organizations|Show Only TX Organizations");
    journey.find<QMenu>("popOrgTab").close();
    journey.trigger("popOrgTabShowOnlyCity");
    EXPECT_EQ(journey.viewPanel(), u"View Only Austin, TX Organizations"_s);
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
    journey.desktop.messages.expectMessageBeginning(u"popOrgTabShowOnlyCity Error ("_s);
    journey.trigger("popOrgTabShowOnlyCity");
    EXPECT_EQ(journey.viewPanel(), u"View ALL Organizations"_s);
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
    EXPECT_EQ(journey.selected(), "") << "a drag chooses nothing";

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
        query.WhereClause += u" AND State LIKE '%1'"_s.arg(QLatin1StringView(state));
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

TEST_F(MapJourney, PlacesAreItemsForAssistiveTools)
{
    show();
    QAccessibleInterface* list = QAccessible::queryAccessibleInterface(&map());
    ASSERT_NE(list, nullptr);
    EXPECT_EQ(list->role(), QAccessible::List);
    EXPECT_EQ(list->text(QAccessible::Name), u"Map of the organizations"_s);
    ASSERT_EQ(list->childCount(), 5);
    const auto item = static_cast<int>(entry("Reno, NV: Law"));
    QAccessibleInterface* place = list->child(item);
    EXPECT_EQ(place->text(QAccessible::Name), u"Reno, NV: Law"_s);
    EXPECT_EQ(place->parent(), list);
    EXPECT_EQ(list->indexOfChild(place), item);
    EXPECT_EQ(list->childAt(place->rect().center().x(), place->rect().center().y()), place);
    journey.database.run(
        "WITH RECURSIVE n(i) AS (VALUES (50) UNION ALL SELECT i + 1 FROM n WHERE i < 62) INSERT INTO "
        "Organization (OrganizationID, OrganizationName, FunctionID, City, State, Status) "
        "SELECT i, 'Org ' || i, 4, 'Reno', 'NV', 'ACTIVE' FROM n");
    journey.trigger("mnuViewRefresh");
    const QString reno = map().describe(entry("Reno, NV: Law"));
    EXPECT_TRUE(reno.startsWith(u"<b>Reno, NV</b><br>Epsilon<br>Org 50<br>"_s)) << reno.toStdString();
    EXPECT_TRUE(reno.endsWith(u"<br>Org 60<br>and 2 more"_s)) << reno.toStdString();

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
    for (const char* view : {"mnuViewEvents", "mnuViewOrganizations"}) {
        journey.trigger(view);
        journey.trigger("mnuViewHideGraphic");
    }
    journey.trigger("mnuNavigateHome");
    journey.desktop.messages.expectQuestion(u"Are you sure you want to exit?"_s, true, Question::Loss);
    journey.program->window()->close();

    journey.start();
    journey.trigger("mnuViewOrganizations");
    QApplication::processEvents();
    EXPECT_TRUE(journey.find<QAction>("mnuViewGraphicBelow").isChecked());
    EXPECT_TRUE(journey.find<QAction>("mnuViewHideGraphic").isChecked());
    EXPECT_EQ(journey.program->window()->findChild<MapView*>(), nullptr) << "never made";
    journey.trigger("mnuViewDocuments");
    EXPECT_FALSE(journey.find<QAction>("mnuViewHideGraphic").isChecked());
    EXPECT_TRUE(journey.find<QWidget>("MSChart1").isVisible());
    journey.trigger("mnuViewEvents");
    EXPECT_FALSE(journey.find<QWidget>("pnlTimeline").isVisible());
    journey.trigger("mnuViewOrganizations");
    journey.trigger("mnuViewGraphicBelow");
    EXPECT_FALSE(journey.find<QAction>("mnuViewHideGraphic").isChecked());
    EXPECT_EQ(map().accessibleItemCount(), 5);
    const QList<int> sizes = journey.find<QSplitter>("splitter").sizes();
    EXPECT_GT(sizes[1], 2 * sizes[0]);
}

} // namespace

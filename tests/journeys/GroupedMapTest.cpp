// SPDX-License-Identifier: GPL-3.0-or-later

#include "MapJourney.h"

namespace {

class GroupedMap : public MapJourney
{
protected:
    /// The names of the discs and markers, as assistive tools name them.
    std::string drawn()
    {
        QStringList names;
        for (int item = 0; item < map().accessibleItemCount(); ++item)
            names << map().accessibleItemName(item);
        names.sort();
        return names.join(u'|').toStdString();
    }

    std::string says(const char* label)
    {
        const auto& text = journey.find<QLabel>(label);
        return text.isVisible() ? text.text().toStdString() : std::string();
    }

    QListWidget& legend() { return journey.find<QListWidget>("MapLegend"); }

    QPoint lineOf(int row) { return legend().visualItemRect(legend().item(row)).center(); }

    std::string colourAt(const char* place)
    {
        return map()
            .grab()
            .toImage()
            .pixelColor(map().positionOf(entry(place)).toPoint())
            .name()
            .toStdString();
    }
};

TEST_F(GroupedMap, DiscsActOnAllThatStandsThere)
{
    show();
    EXPECT_EQ(map().accessibleItemCount(), 5) << "each marker by itself at first";
    journey.trigger("mapGroup");
    map().zoomIn();
    EXPECT_EQ(drawn(), "Austin, TX: 3 organizations|Dallas, TX: Law|O'Fallon, MO: Law|Reno, NV: Law");
    EXPECT_TRUE(map().accessibleDescription().startsWith(
        u"The map shows 6 organizations at 4 places. 1 organization has no place. Page Down"_s));
    const char* austin = "Austin, TX: 3 organizations";
    click(Qt::LeftButton, austin);
    EXPECT_EQ(journey.selected(), "Alpha <b>|Beta|Gamma");
    EXPECT_EQ(map().markers().leadOf(map().ringed().value()), entry(austin));
    EXPECT_EQ(map().describe(entry(austin)),
              u"<b>Austin, TX: 3 organizations</b><br>Alpha &lt;b&gt;<br>Beta<br>Gamma"_s);
    click(Qt::RightButton, austin);
    EXPECT_EQ(menuTexts(), "Show Only Austin, TX Organizations|Show Only TX Organizations|"
                           "Show Only These 3 Organizations");
    journey.find<QMenu>("popOrgTab").close();
    click(Qt::RightButton, "Reno, NV: Law");
    EXPECT_EQ(menuTexts(), "Show Only Reno, NV Organizations|Show Only NV Organizations");
    journey.find<QMenu>("popOrgTab").close();

    for (int i = 0; i < 2; ++i)
        map().zoomOut();
    const char* texas = "Austin, TX and 1 more place: 4 organizations";
    EXPECT_EQ(drawn(), std::string(texas) + "|O'Fallon, MO: Law|Reno, NV: Law");
    journey.select("Delta");
    EXPECT_EQ(map().accessibleItemName(map().accessibleCurrentItem()).toStdString(), texas)
        << "the ring is around the disc that has it";
    click(Qt::RightButton, texas);
    EXPECT_EQ(menuTexts(), "Show Only TX Organizations|Show Only These 4 Organizations");
    journey.find<QMenu>("popOrgTab").close();
    journey.trigger("popOrgTabShowOnlyThese");
    EXPECT_EQ(journey.viewPanel(), u"View Only 4 Organizations of Austin, TX and 1 more place"_s);
    EXPECT_EQ(journey.column(0), "Alpha <b>|Beta|Delta|Gamma");

    map().setFocus();
    for (int i = 0; i < 4; ++i)
        map().zoomOut();
    QTest::keyClick(&map(), Qt::Key_PageDown);
    EXPECT_EQ(QToolTip::text().toStdString(), texas);
    QTest::keyClick(&map(), Qt::Key_Return);
    EXPECT_EQ(journey.selected(), "Alpha <b>|Beta|Delta|Gamma");
    QTest::keyClick(&map(), Qt::Key_Plus);
    EXPECT_EQ(drawn(), "Austin, TX: 3 organizations|Dallas, TX: Law") << "it comes apart";
    const double scale = map().markerScale();
    QTest::mouseDClick(&map(), Qt::LeftButton, {}, map().positionOf(entry(austin)).toPoint());
    EXPECT_DOUBLE_EQ(map().markerScale(), scale / 2) << "what stands at one place is looked at more closely";

    journey.desktop.messages.expectQuestion(u"Are you sure you want to exit?"_s, true, Question::Loss);
    journey.program->window()->close();
    show();
    EXPECT_TRUE(journey.find<QAction>("mapGroup").isChecked()) << "it is remembered";
    EXPECT_LT(map().accessibleItemCount(), 5) << drawn();
    journey.trigger("mapGroup");
    EXPECT_EQ(map().accessibleItemCount(), 5);
}

TEST_F(GroupedMap, TheLegendHidesAndRaisesMarkers)
{
    show();
    ASSERT_EQ(legend().count(), 3);
    EXPECT_EQ(legend().item(0)->text(), u"Relief (2)"_s);
    EXPECT_EQ(colourAt("Austin, TX: Relief"), "#008000") << "fire and rescue over it";
    QTest::mouseMove(legend().viewport(), lineOf(0));
    EXPECT_EQ(colourAt("Austin, TX: Relief"), "#0000ff");
    QTest::mouseMove(legend().viewport(), lineOf(1));
    EXPECT_EQ(colourAt("Austin, TX: Relief"), "#008000");

    journey.select("Gamma");
    EXPECT_EQ(says("lblHiddenOnMap"), "");
    QTest::mouseClick(legend().viewport(), Qt::LeftButton, {}, lineOf(1));
    EXPECT_EQ(legend().item(1)->text(), u"Fire & Rescue (1): hidden on the map"_s);
    EXPECT_FALSE(legend().hasFocus()) << "a line would stay raised when the mouse has gone";
    EXPECT_EQ(drawn(), "Austin, TX: Relief|Dallas, TX: Law|O'Fallon, MO: Law|Reno, NV: Law");
    EXPECT_EQ(colourAt("Austin, TX: Relief"), "#0000ff");
    EXPECT_EQ(says("lblHiddenOnMap"), "The selected organization is hidden on the map.");
    EXPECT_EQ(map().accessibleCurrentItem(), -1);
    click(Qt::LeftButton, "Austin, TX: Relief");
    EXPECT_EQ(journey.selected(), "Alpha <b>|Beta") << "what is hidden is not there for the pointer";
    EXPECT_EQ(says("lblHiddenOnMap"), "");

    legend().setFocus(Qt::TabFocusReason);
    legend().setCurrentRow(2);
    QTest::keyClick(&legend(), Qt::Key_Space);
    EXPECT_EQ(drawn(), "Austin, TX: Relief");
    EXPECT_TRUE(map().accessibleDescription().startsWith(
        u"The map shows 2 organizations at 1 place. Hidden: Fire & Rescue (1), Law (3). 1 organ"_s));
    journey.trigger("mnuViewRefresh");
    EXPECT_EQ(drawn(), "Austin, TX: Relief") << "the same view keeps it";
    QTest::keyClick(&legend(), Qt::Key_Space);
    EXPECT_EQ(drawn(), "Austin, TX: Relief|Dallas, TX: Law|O'Fallon, MO: Law|Reno, NV: Law");
    journey.trigger("mnuViewDocuments");
    journey.trigger("mnuViewOrganizations");
    EXPECT_EQ(map().accessibleItemCount(), 5) << "another view shows all";
}

TEST_F(GroupedMap, LeadsToWhatHasNoPlace)
{
    show();
    auto& link = journey.find<QAbstractButton>("cmdWithoutPlace");
    EXPECT_EQ(link.text(), u"1 without a place"_s);
    journey.database.run(
        "INSERT INTO Organization (OrganizationID, OrganizationName, FunctionID, Lat, Lon, Status) VALUES "
        "(20, 'Theta', 2, 91, 10, 'ACTIVE'), (21, 'Iota', 2, NULL, NULL, 'ACTIVE')");
    journey.trigger("mnuViewRefresh");
    EXPECT_EQ(link.text(), u"3 without a place"_s);
    link.click();
    EXPECT_EQ(journey.viewPanel(), u"View Only Organizations Without a Place"_s);
    EXPECT_EQ(journey.column(0), "Iota|Theta|Zeta");
    EXPECT_EQ(says("lblEmptyMap"), "None of these organizations has a place on the map.");
    EXPECT_FALSE(link.isVisible()) << "the list has them alone";
    journey.database.run("UPDATE Organization SET Lat = 30, Lon = -100 WHERE OrganizationID = 21");
    journey.trigger("mnuViewRefresh");
    EXPECT_EQ(journey.column(0), "Theta|Zeta") << "one that has got its place leaves the list";
    journey.database.run("DELETE FROM Organization WHERE OrganizationID IN (7, 20)");
    journey.trigger("mnuViewOrganizations");
    EXPECT_FALSE(link.isVisible());
}

TEST_F(GroupedMap, OffersGroupsIfMostMarkersAreCovered)
{
    show();
    auto& offer = journey.find<QWidget>("groupOffer");
    EXPECT_FALSE(offer.isVisible());
    journey.database.run("WITH RECURSIVE n(i) AS (VALUES (50) UNION ALL SELECT i + 1 FROM n WHERE i < 62) "
                         "INSERT INTO Organization (OrganizationID, OrganizationName, FunctionID, Lat, Lon, "
                         "Status) SELECT i, 'Org ' || i, i, 40, -100 + (i - 50) / 30.0, 'ACTIVE' FROM n");
    journey.trigger("mnuViewRefresh");
    EXPECT_TRUE(offer.isVisible());
    for (int i = 0; i < 8; ++i)
        map().zoomIn();
    EXPECT_FALSE(offer.isVisible()) << "they lie side by side";
    map().showContiguousStates();
    EXPECT_TRUE(offer.isVisible());
    journey.find<QAbstractButton>("cmdRefuseGroup").click();
    EXPECT_FALSE(offer.isVisible());
    journey.trigger("mnuViewRefresh");
    EXPECT_FALSE(offer.isVisible()) << "refused for the run";

    journey.start();
    journey.trigger("mnuViewOrganizations");
    QApplication::processEvents();
    journey.find<QAbstractButton>("cmdGroup").click();
    EXPECT_TRUE(journey.find<QAction>("mapGroup").isChecked());
    EXPECT_FALSE(journey.find<QWidget>("groupOffer").isVisible());
}

} // namespace

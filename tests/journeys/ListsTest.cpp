// SPDX-License-Identifier: GPL-3.0-or-later

#include "Journey.h"
#include "lists/ListKind.h"
#include "map/MapView.h"

namespace {

class ListsWindow : public testing::Test
{
protected:
    ListsWindow() { journey.database.runFile("journeys/rows/Lists.sql"); }

    void inLists(const std::function<void(OpenDialog&)>& work)
    {
        journey.inDialog("frmLists", "mnuRecordLists", work);
    }

    static void open(OpenDialog& lists, ListKind list)
    {
        lists.find<QListWidget>("lstLists").setCurrentRow(static_cast<int>(list));
    }

    static void select(OpenDialog& lists, const char* name)
    {
        auto& view = lists.find<QTreeView>("lvEntries");
        const auto found = view.model()->match(view.model()->index(0, 0), Qt::DisplayRole,
                                               QString::fromUtf8(name), 1, Qt::MatchExactly);
        if (found.isEmpty()) throw std::runtime_error(std::string("no such entry: ") + name);
        QTest::mouseClick(view.viewport(), Qt::LeftButton, {}, view.visualRect(found.front()).center());
    }

    static std::string outcome(OpenDialog& lists)
    {
        return lists.find<QLabel>("lblOutcome").text().toStdString();
    }

    ScriptedMessages& messages() { return journey.desktop.messages; }

    Journey journey;
};

TEST_F(ListsWindow, AddsMergesAndDeletesAndShowsItInTheMainWindow)
{
    journey.start();
    journey.trigger("mnuViewDocuments");
    inLists([&](OpenDialog& lists) {
        EXPECT_EQ(lists.text("lvEntries"), "*Map|0\nReport|1\nStudy|2 + 1 deleted");
        messages().expectMessage(
            u"An entry with identical name already exists. Please choose a different name."_s);
        lists.inDialog("frmListEntry", "cmdAdd", [&](OpenDialog& entry) {
            EXPECT_EQ(entry.title(), "New: Document Type");
            entry.type("txtName", u"REPORT"_s);
            entry.click("cmdOK");
            EXPECT_EQ(entry.focus(), "txtName");
            entry.type("txtName", u"Letter"_s);
            entry.press(Qt::Key_Return);
        });
        EXPECT_EQ(outcome(lists), "\"Letter\" was added.");
        select(lists, "Study");
        EXPECT_FALSE(lists.find<QWidget>("cmdDelete").isEnabled()) << "records use it";
        messages().expectQuestion(u"Are you sure you want to merge \"Study\" into \"Report\"?"_s, true,
                                  Question::Loss);
        lists.inDialog("frmMergeEntry", "cmdMerge", [&](OpenDialog& merge) {
            EXPECT_EQ(merge.text("lvEntries"), "*Letter|0\nMap|0\nReport|1");
            merge.type("txtFilter", u"rep"_s);
            EXPECT_EQ(merge.text("lvEntries"), "*Report|1");
            merge.click("cmdOK");
        });
        EXPECT_EQ(outcome(lists), "\"Study\" was merged into \"Report\". 3 records were changed.");
        EXPECT_EQ(lists.text("lvEntries"), "Letter|0\nMap|0\n*Report|2 + 1 deleted");
        select(lists, "Map");
        messages().expectQuestion(u"Are you sure you want to delete \"Map\"?"_s, true, Question::Loss);
        lists.click("cmdDelete");
        open(lists, ListKind::FileTypes);
        lists.type("txtFilter", u"pdf"_s);
        lists.inDialog("frmListEntry", "cmdRename", [&](OpenDialog& entry) {
            EXPECT_EQ(entry.text("txtName"), "PDF");
            entry.type("txtName", u"Acrobat"_s);
            entry.click("cmdOK");
        });
        EXPECT_EQ(lists.text("lvEntries"), "*Acrobat|2 + 1 deleted") << "the filter does not hide it";
        EXPECT_EQ(outcome(lists), "\"Acrobat\" was changed.");
        lists.click("cmdClose");
    });
    EXPECT_EQ(journey.column(4), "Acrobat|Acrobat") << "what is shown is read again";
    EXPECT_EQ(journey.rows("SELECT * FROM DocumentType"), "1|None\n2|Report\n5|Letter");
}

TEST_F(ListsWindow, ShowsTheRecordsThatUseAnEntry)
{
    journey.start();
    inLists([&](OpenDialog& lists) {
        open(lists, ListKind::OrganizationTypes);
        lists.click("cmdShowRecords");
    });
    EXPECT_EQ(journey.viewPanel(), u"View Only Organizations for Type \"State\""_s);
    EXPECT_EQ(journey.column(0), "Agency|Bureau");
    inLists([&](OpenDialog& lists) {
        open(lists, ListKind::Venues);
        EXPECT_EQ(lists.text("lvEntries"), "*Coast|0\nRiver|3");
        EXPECT_FALSE(lists.find<QWidget>("cmdShowRecords").isEnabled());
        select(lists, "River");
        lists.click("cmdShowRecords");
        auto& users = lists.find<QMenu>("mnuUsers");
        ASSERT_EQ(users.actions().size(), 2) << "the kinds that use it";
        EXPECT_EQ(users.actions().front()->text(), u"2 &Documents"_s);
        users.close();
        users.actions().front()->trigger();
    });
    EXPECT_EQ(journey.viewPanel(), u"View Only Documents for Venue \"River\""_s);
    EXPECT_EQ(journey.column(0), "Atlas|Brief");
}

TEST_F(ListsWindow, TakesThePositionOfACityFromTheMap)
{
    journey.start();
    journey.trigger("mnuViewOrganizations");
    inLists([&](OpenDialog& lists) {
        open(lists, ListKind::Cities);
        EXPECT_EQ(lists.text("lvEntries"), "*Austin|TX|30.27° N, 97.74° W|2");
        messages().expectMessage(
            u"Latitude \"north\" is not a number from -90 to 90. Please type one such as 30.27."_s);
        lists.inDialog("frmListEntry", "cmdRename", [&](OpenDialog& entry) {
            entry.type("txtName", u"Waco"_s);
            entry.type("txtLatitude", u"north"_s);
            entry.click("cmdOK");
            EXPECT_EQ(entry.focus(), "txtLatitude");
            entry.inDialog("frmPosition", "cmdOnMap", [&](OpenDialog& map) {
                EXPECT_FALSE(map.find<QWidget>("cmdOK").isEnabled()) << "nothing is pointed at";
                auto& view = map.find<MapView>("Map1");
                view.setPlaces({clsCities{{}, {}, {}, 31.5, -97.1, {}, {}, 0}});
                QTest::mouseClick(&view, Qt::LeftButton, {}, view.positionOf(0).toPoint());
                QTest::keyClick(&view, Qt::Key_Return);
            });
            EXPECT_NEAR(std::stod(entry.text("txtLatitude")), 31.5, 0.2);
            EXPECT_NEAR(std::stod(entry.text("txtLongitude")), -97.1, 0.2);
            entry.type("txtLatitude", u"31.55"_s);
            entry.type("txtLongitude", u"-97.15"_s);
            entry.click("cmdOK");
        });
        EXPECT_EQ(outcome(lists), "\"Waco, TX\" was changed. 2 records were changed.");
        lists.press(Qt::Key_Escape);
    });
    EXPECT_EQ(journey.column(3), "Waco, tx|Waco, TX");
    EXPECT_EQ(journey.find<MapView>("Map1").accessibleItemCount(), 1) << "the places are read again";
}

TEST_F(ListsWindow, ReportsAListThatTheDatabaseDoesNotHave)
{
    journey.start();
    journey.database.run("DROP TABLE PopulationTypes; ALTER TABLE Venue RENAME COLUMN VenueName TO Title");
    inLists([&](OpenDialog& lists) {
        for (const ListKind list : {ListKind::Populations, ListKind::Venues}) {
            messages().expectMessageBeginning(u"showLists Error (1): "_s);
            open(lists, list);
            EXPECT_EQ(lists.text("lvEntries"), "");
            EXPECT_FALSE(lists.find<QWidget>("cmdMerge").isEnabled());
        }
        open(lists, ListKind::Functions);
        EXPECT_EQ(lists.text("lvEntries"), "*Rescue|3");
        lists.click("cmdClose");
    });
}

TEST_F(ListsWindow, IsNotNeededForNewEntriesOfAnOrganization)
{
    journey.start();
    journey.trigger("mnuViewOrganizations");
    messages().expectMessage(u"The city \"austin, TX\" has a position already."_s);
    journey.inDialog("frmOrganization", "mnuRecordAddNewOrganization", [&](OpenDialog& editor) {
        editor.type("txtOrganizationName", u"Harbor Office"_s);
        addEntry(editor, "cmdNewOrgType", u"Port"_s);
        addEntry(editor, "cmdNewOrgSubType", u"Fishing port"_s);
        addEntry(editor, "cmdNewFunction", u"Docks"_s);
        addEntry(editor, "cmdNewVenue", u"Harbor"_s);
        addEntry(editor, "cmdNewJurisdiction", u"Port area"_s);
        addEntry(editor, "cmdNewPopulation", u"Sailors"_s);
        editor.choose("cmbState", u"TX"_s);
        editor.type("txtCity", u"austin"_s);
        editor.click("cmdNewCity");
        addEntry(editor, "cmdNewState", u"QX"_s);
        editor.type("txtCity", u"Port Q"_s);
        editor.inDialog("frmListEntry", "cmdNewCity", [&](OpenDialog& city) {
            EXPECT_EQ(city.text("txtName") + city.text("cmbState"), "Port QQX");
            city.type("txtLatitude", u"29.3"_s);
            city.type("txtLongitude", u"-94.8"_s);
            city.press(Qt::Key_Return);
        });
        EXPECT_EQ(editor.text("txtOrganizationName"), "Harbor Office") << "what is typed stays";
        editor.click("cmdOK");
    });
    EXPECT_EQ(journey.column(0), "Agency|Bureau|Harbor Office");
    EXPECT_EQ(journey.rows("SELECT OrganizationTypeID, OrganizationSubTypeID, FunctionID, City, State "
                           "FROM Organization WHERE OrganizationID = 4"),
              "3|3|3|Port Q|QX");
    EXPECT_EQ(
        journey.rows("SELECT OrganizationTypeID FROM OrganizationSubTypes WHERE OrganizationSubTypeID = 3"),
        "3")
        << "of the type that is chosen";
    EXPECT_EQ(
        journey.rows("SELECT v.VenueID, j.Setting, p.Setting FROM OrganizationVenues v "
                     "JOIN OrganizationProfileJurisdictions j ON j.OrganizationProfileID = OrganizationID "
                     "JOIN OrganizationProfilePopulations p ON p.OrganizationProfileID = OrganizationID "
                     "WHERE OrganizationID = 4"),
        "4|1|1");
    EXPECT_EQ(journey.find<MapView>("Map1").accessibleItemCount(), 2) << "it is on the map";
}

TEST_F(ListsWindow, IsNotNeededForNewEntriesOfADocument)
{
    journey.start();
    journey.trigger("mnuViewDocuments");
    journey.select("Atlas");
    journey.inDialog("frmDocument", "mnuRecordEdit", [&](OpenDialog& editor) {
        addEntry(editor, "cmdNewFileType", u"Film"_s);
        addEntry(editor, "cmdNewDocCategory", u"Own"_s);
        editor.inDialog("frmPicList", "cmdAddDocType", [&](OpenDialog& list) {
            list.type("txtFilter", u"stu"_s);
            addEntry(list, "cmdNew", u"Letter"_s);
            list.click("cmdOK");
        });
        EXPECT_EQ(editor.text("lstDocTypes"), "Letter|Report|Study") << "the ticks stay";
        EXPECT_EQ(editor.text("lstDocCategories"), "Own");
        editor.type("rtbDocumentDescription", u"Maps"_s);
        editor.type("txtOriginalFilename", journey.database.fileName());
        editor.click("cmdOK");
    });
    EXPECT_EQ(journey.column(4), "Film|PDF");
}

} // namespace

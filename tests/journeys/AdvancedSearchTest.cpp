// SPDX-License-Identifier: GPL-3.0-or-later

#include "Journey.h"
#include "search/SearchCommands.h"
#include "views/RecordPicker.h"
#include "widgets/LinkButton.h"

namespace {

/// Returns the scripted answer, and notes what it was asked.
class ScriptedPicker final : public RecordPicker
{
public:
    PickedItems pick(PickListKind kind, const PickedItems& chosen, QWidget* /*window*/) override
    {
        asked = kind;
        given = chosen;
        return answer;
    }

    PickListKind asked = PickListKind::Organizations;
    PickedItems given;
    PickedItems answer;
};

class AdvancedSearchJourney : public testing::Test
{
protected:
    AdvancedSearchJourney()
    {
        journey.database.runFile("journeys/rows/AdvancedSearch.sql");
        journey.start();
        journey.find<SearchCommands>("SearchCommands").setPicker(picker);
    }

    /// Opens the form through the keyword dialog, as for the view that a command shows.
    void openFor(const char* command, int scope)
    {
        journey.trigger(command);
        journey.trigger("mnuSearchKeyword");
        journey.find<QRadioButton>(("optSearch(" + std::to_string(scope) + ")").c_str()).setChecked(true);
        QTest::mouseClick(&journey.find<LinkButton>("lblAdvancedSearch"), Qt::LeftButton);
        EXPECT_FALSE(journey.find<QDialog>("frmSearch").isVisible());
        ASSERT_TRUE(form().isVisible());
    }

    QDialog& form() { return journey.find<QDialog>("frmAdvSearch"); }
    void tick(const char* checkBox)
    {
        QTest::mouseClick(&journey.find<QCheckBox>(checkBox), Qt::LeftButton, {}, QPoint(8, 8));
    }
    void press(const char* button) { QTest::mouseClick(&journey.find<QPushButton>(button), Qt::LeftButton); }
    void choose(const char* list, int row)
    {
        journey.find<QListWidget>(list).item(row)->setCheckState(Qt::Checked);
    }
    QString text() { return journey.find<QLabel>("lblSearchText").text(); }
    QString label(const char* name) { return journey.find<QLabel>(name).text(); }

    /// The texts of a list, ticked ones in brackets.
    std::string listed(const char* name)
    {
        QStringList texts;
        const auto& list = journey.find<QListWidget>(name);
        for (int row = 0; row < list.count(); ++row) {
            const QListWidgetItem& item = *list.item(row);
            texts << (item.checkState() == Qt::Checked ? u'[' + item.text() + u']' : item.text());
        }
        return texts.join(u'|').toStdString();
    }

    ScriptedPicker picker;
    Journey journey;
};

TEST_F(AdvancedSearchJourney, SearchesByWhatIsTickedAndShowsItAgain)
{
    openFor("mnuViewDocuments", 1);
    EXPECT_EQ(form().windowTitle(), u"Advanced Search"_s);
    const auto& tabs = journey.find<QTabWidget>("SSTab1");
    EXPECT_EQ(tabs.currentIndex(), 0);
    EXPECT_FALSE(tabs.isTabEnabled(1) || tabs.isTabEnabled(2));
    EXPECT_EQ(listed("lvDocVenues"), "None|Desert|River|Coast");
    EXPECT_EQ(listed("lvOrgVenues"), listed("lvEventVenues"));
    EXPECT_EQ(text(), u"Searches all documents."_s);
    EXPECT_FALSE(journey.find<QWidget>("fraDocVenues").isEnabled());

    tick("chkDocVenues");
    EXPECT_TRUE(journey.find<QWidget>("fraDocVenues").isEnabled());
    EXPECT_EQ(text(), u"Searches all documents; no venue is chosen, so it may be any."_s);
    choose("lvDocVenues", 2);
    EXPECT_EQ(label("lblDocVenues"), u"1 of 4 chosen"_s);
    tick("chkFileTypes");
    choose("lvFileTypes", 0);
    EXPECT_EQ(text(), u"Searches documents whose venue is River, and whose file type is PDF."_s);
    press("cmdSearch");
    EXPECT_FALSE(form().isVisible());
    EXPECT_EQ(journey.viewPanel(), u"Advanced Document Search by Venue, File Type"_s);
    EXPECT_EQ(journey.column(0), "b");

    // the view keeps its criteria; another view has none
    openFor("mnuViewDocuments", 1);
    EXPECT_EQ(listed("lvDocVenues"), "None|Desert|River|Coast");
    form().close();
    journey.trigger("mnuNavigateBack");
    journey.trigger("mnuSearchAdvanced");
    EXPECT_EQ(listed("lvDocVenues"), "None|Desert|[River]|Coast");
    EXPECT_EQ(listed("lvFileTypes"), "[PDF]|Word|Late");
    EXPECT_TRUE(journey.find<QCheckBox>("chkFileTypes").isChecked());
    EXPECT_FALSE(journey.find<QCheckBox>("chkDocTypes").isChecked());

    // what is switched off stays, but is not searched for
    tick("chkDocVenues");
    EXPECT_EQ(text(), u"Searches documents whose file type is PDF."_s);
    press("cmdSearch");
    EXPECT_EQ(journey.column(0), "a|b");
    EXPECT_EQ(journey.historyMenu(),
              "Home Page|View ALL Documents|Advanced Document Search by Venue, File Type|"
              "View ALL Documents|[Advanced Document Search by File Type]");
}

TEST_F(AdvancedSearchJourney, WithoutCriteriaItListsAllInTheStandardOrder)
{
    const std::tuple<const char*, int, QString, const char*> cases[] = {
        {"mnuViewEvents", 1, u"Advanced Document Search"_s, "a|b|c"},
        {"mnuViewDocuments", 2, u"Advanced Event Search"_s, "early|late"},
        {"mnuNavigateHome", 3, u"Advanced Organization Search"_s, "Agency|Bureau"},
    };
    for (const auto& [command, scope, caption, rows] : cases) {
        openFor(command, scope);
        EXPECT_EQ(journey.find<QTabWidget>("SSTab1").currentIndex(), scope - 1);
        QTest::keyClick(&form(), Qt::Key_Return);
        EXPECT_EQ(journey.viewPanel(), caption);
        EXPECT_EQ(journey.column(0), rows);
    }
}

TEST_F(AdvancedSearchJourney, PicksRecordsForItsLists)
{
    openFor("mnuViewDocuments", 1);
    tick("chkDocTypes");
    EXPECT_EQ(label("lblDocTypes"), u"0 chosen: searches all"_s);
    picker.answer = {{7, u"Map"_s}, {9, u"Law"_s}};
    press("cmdAddDocType");
    EXPECT_EQ(picker.asked, PickListKind::DocumentTypes);
    EXPECT_TRUE(picker.given.empty());
    EXPECT_EQ(listed("lstDocTypes"), "Map|Law");
    EXPECT_EQ(label("lblDocTypes"), u"2 chosen"_s);
    EXPECT_EQ(text(), u"Searches documents whose document type is Map or Law."_s);
    press("cmdAddDocType");
    ASSERT_EQ(picker.given.size(), 2u);
    EXPECT_EQ(picker.given[1].key(), u"k9"_s);
    press("cmdSearch");
    EXPECT_EQ(journey.column(0), "b");

    journey.trigger("mnuSearchAdvanced");
    EXPECT_EQ(listed("lstDocTypes"), "Map|Law");
    press("cmdClearDocTypes");
    EXPECT_EQ(text(), u"Searches all documents; no document type is chosen, so it may be any."_s);
    press("cmdSearch");
    EXPECT_EQ(journey.viewPanel(), u"Advanced Document Search by Document Type"_s);
    EXPECT_EQ(journey.column(0), "a|b|c");
}

TEST_F(AdvancedSearchJourney, EveryPickedListHasItsRecords)
{
    using enum PickListKind;
    const std::tuple<int, QByteArray, QString, PickListKind> cases[] = {
        {1, "DocOrg", u"Add Organization(s) to List"_s, Organizations},
        {2, "EventFunction", u"Add Function(s) to List"_s, Functions},
        {2, "EventOrg", u"Add Organization(s) to List"_s, Organizations},
        {3, "OrgFunction", u"Add Function to List"_s, Functions},
        {3, "OrgLocation", u"Add Location(s) to List"_s, CityLocations},
    };
    for (const auto& [scope, name, caption, kind] : cases) {
        const QByteArray add = "cmdAdd" + name;
        openFor("mnuNavigateHome", scope);
        tick("chk" + name + 's');
        picker.answer = {{2, u"Austin, TX"_s}};
        EXPECT_EQ(journey.find<QPushButton>(add).text(), caption);
        press(add);
        EXPECT_EQ(picker.asked, kind) << add.data();
        EXPECT_EQ(listed("lst" + name + 's'), "Austin, TX");
        form().close();
    }
}

TEST_F(AdvancedSearchJourney, SearchesEventsByTheirStart)
{
    openFor("mnuViewEvents", 2);
    auto& startDate = journey.find<QDateEdit>("eventStartDate");
    auto& endTime = journey.find<QTimeEdit>("eventEndTime");
    EXPECT_EQ(startDate.text(), u"09/11/2001"_s);
    EXPECT_EQ(journey.find<QDateEdit>("eventEndDate").text(), u"11/30/2001"_s);
    EXPECT_EQ(journey.find<QTimeEdit>("eventStartTime").text(), u"00:00"_s);
    EXPECT_EQ(endTime.text(), u"23:59"_s);
    tick("chkEventDate");
    endTime.setTime(QTime(9, 30));
    press("cmdSearch");
    EXPECT_EQ(journey.viewPanel(), u"Advanced Event Search by Date"_s);
    EXPECT_EQ(journey.column(0), "early");
    journey.trigger("mnuSearchAdvanced");
    EXPECT_EQ(journey.find<QTimeEdit>("eventEndTime").text(), u"09:30"_s);
    press("cmdSearch");
    // a search by something else has no dates to show again
    openFor("mnuViewEvents", 2);
    tick("chkEventVenues");
    press("cmdSearch");
    journey.trigger("mnuSearchAdvanced");
    EXPECT_EQ(journey.find<QDateEdit>("eventStartDate").text(), u"09/11/2001"_s);
}

TEST_F(AdvancedSearchJourney, SelectsAllOrNoneAndSaysWhatIsReallySearched)
{
    openFor("mnuViewDocuments", 1);
    tick("chkDocVenues");
    press("cmdAllDocVenues");
    EXPECT_EQ(listed("lvDocVenues"), "[None]|[Desert]|[River]|[Coast]");
    EXPECT_EQ(label("lblDocVenues"), u"4 of 4 chosen"_s);
    EXPECT_EQ(text(), u"Searches documents whose venue is number 12312, which no venue has (the numbers of "
                      "several venues are read as one: choose one venue)."_s);
    press("cmdNoneDocVenues");
    EXPECT_EQ(label("lblDocVenues"), u"0 of 4 chosen: searches all"_s);
    choose("lvDocVenues", 0);
    choose("lvDocVenues", 1);
    EXPECT_TRUE(text().startsWith(u"Searches documents whose venue is Coast (the numbers"_s)) << "1 and 2";
    press("cmdSearch");
    EXPECT_EQ(journey.column(0), "b|c");
}

TEST_F(AdvancedSearchJourney, FailuresAreReportedAndAnEmptyResultLeadsBack)
{
    openFor("mnuViewDocuments", 1);
    tick("chkFileTypes");
    choose("lvFileTypes", 2);
    EXPECT_EQ(text(), u"This cannot be searched for: Overflow"_s);
    journey.desktop.messages.expectMessage(u"cmdSearch Error (6): Overflow"_s);
    press("cmdSearch");
    journey.desktop.messages.finish();
    EXPECT_TRUE(form().isVisible());
    EXPECT_EQ(journey.program->state().history.count(), 2u);
    form().close();

    openFor("mnuViewOrganizations", 3);
    tick("chkOrgLocations");
    picker.answer = {{2, u"Coeur d'Alene, ID"_s}};
    press("cmdAddOrgLocation");
    journey.desktop.messages.expectMessageBeginning(u"showOrganizations Error ("_s);
    press("cmdSearch");
    journey.desktop.messages.finish();
    EXPECT_EQ(journey.viewPanel(), u"Advanced Organization Search by Location"_s);
    journey.trigger("mnuNavigateBack");
    EXPECT_EQ(journey.column(0), "Agency|Bureau");

    openFor("mnuViewOrganizations", 3);
    tick("chkOrgLocations");
    picker.answer = {{2, u"Nowhere, TX"_s}};
    press("cmdAddOrgLocation");
    press("cmdSearch");
    EXPECT_EQ(label("lblEmptyResult"), u"No record meets the criteria."_s);
    QTest::mouseClick(&journey.find<LinkButton>("lblSearchAgain"), Qt::LeftButton);
    ASSERT_TRUE(form().isVisible());
    EXPECT_EQ(listed("lstOrgLocations"), "Nowhere, TX");
}

TEST_F(AdvancedSearchJourney, FitsASmallScreenAndTheKeyboard)
{
    openFor("mnuViewDocuments", 1);
    const QSize room = form().screen()->availableSize();
    EXPECT_LE(form().width(), room.width());
    EXPECT_LE(form().height(), std::min(room.height(), 700));
    auto& venues = journey.find<QCheckBox>("chkDocVenues");
    EXPECT_LT(venues.width(), venues.sizeHint().width());
    EXPECT_GE(venues.height(), 2 * venues.fontMetrics().height()) << "the text goes on in another line";
    EXPECT_EQ(form().focusWidget(), &venues);
    QTest::keyClick(&venues, Qt::Key_Space);
    QTest::keyClick(&venues, Qt::Key_Tab);
    auto& list = journey.find<QListWidget>("lvDocVenues");
    EXPECT_EQ(form().focusWidget(), &list);
    QTest::keyClick(&list, Qt::Key_Down);
    QTest::keyClick(&list, Qt::Key_Down);
    QTest::keyClick(&list, Qt::Key_Space);
    EXPECT_EQ(listed("lvDocVenues"), "None|Desert|[River]|Coast");
    QTest::keyClick(&list, Qt::Key_Return);
    EXPECT_EQ(journey.column(0), "b");
}

} // namespace

// SPDX-License-Identifier: GPL-3.0-or-later

// The words above the list, typed as a user types them, and what is left then.

#include "Journey.h"
#include "widgets/LinkButton.h"

namespace {

class Filter : public testing::Test
{
protected:
    Filter()
    {
        journey.database.runFile("journeys/rows/Selection.sql");
        journey.database.run(
            "INSERT INTO Document (DocumentID, DocumentName, Author, dStatus) VALUES "
            "(2, 'Fire plan', 'Harbour', 'ACTIVE'), (3, 'Map', 'École fire', 'ACTIVE'), "
            "(4, 'Water plan', 'Harbour', 'ACTIVE'), (5, 'Zoning', 'Fire marshal', 'ACTIVE')");
        journey.start();
        journey.program->window()->resize(1200, 800);
        journey.trigger("mnuViewDocuments");
    }

    QLineEdit& field() { return journey.find<QLineEdit>("txtFilter"); }

    void press(int key, Qt::KeyboardModifiers modifiers = {})
    {
        QTest::keyClick(QApplication::focusWidget(), static_cast<Qt::Key>(key), modifiers);
    }

    void type(const char* words)
    {
        press(Qt::Key_L, Qt::ControlModifier);
        QTest::keyClicks(QApplication::focusWidget(), QString::fromUtf8(words));
    }

    void clickHeader()
    {
        QHeaderView& header = *journey.list().header();
        QTest::mouseClick(header.viewport(), Qt::LeftButton, {}, {header.sectionViewportPosition(0) + 9, 9});
    }

    /// `rows (selected rows) words: rows left, status`, with an underscore after the words if they are being
    /// typed.
    std::string state()
    {
        const auto& count = journey.find<QLabel>("lblFilterCount");
        return journey.column(0) + " (" + journey.selected() + ") " + field().text().toStdString() +
               (field().hasFocus() ? "_: " : ": ") +
               (count.isVisible() ? count.text().toStdString() : "whole") + ", " +
               journey.statusPanel().toStdString();
    }

    Journey journey;
};

TEST_F(Filter, NarrowsTheListAndStaysWithItsView)
{
    const std::string whole = "Fire plan|Map|Water plan|Zoning () : whole, Displaying 4 Documents";
    const struct
    {
        const char* what;
        std::function<void()> act;
        std::string state;
    } steps[] = {
        {"nothing", [] {}, whole},
        {"a word", [this] { type("FIR"); }, "Fire plan|Map|Zoning () FIR_: 3 of 4, Displaying 3 Documents"},
        {"Ctrl+L again, two words", [this] { type("fire ecole"); },
         "Map () fire ecole_: 1 of 4, Displaying 1 Document"},
        {"Escape", [this] { press(Qt::Key_Escape); }, whole},
        {"a word that leaves out", [this] { type("-Harbour"); },
         "Map|Zoning () -Harbour_: 2 of 4, Displaying 2 Documents"},
        {"Down", [this] { press(Qt::Key_Down); },
         "Map|Zoning (Map) -Harbour: 2 of 4, Displaying 2 Documents"},
        {"a click on the title", [this] { clickHeader(); },
         "Map|Zoning (Map) -Harbour: 2 of 4, Displaying 2 Documents"},
        {"another click", [this] { clickHeader(); },
         "Zoning|Map (Map) -Harbour: 2 of 4, Displaying 2 Documents"},
        {"Refresh with another record",
         [this] {
             journey.database.run(
                 "INSERT INTO Document (DocumentID, DocumentName, dStatus) VALUES (6, 'Note', 'ACTIVE')");
             journey.trigger("mnuViewRefresh");
         },
         "Zoning|Note|Map (Map) -Harbour: 3 of 5, Displaying 3 Documents"},
        {"another view", [this] { journey.trigger("mnuViewDocuments"); },
         "Fire plan|Map|Note|Water plan|Zoning () : whole, Displaying 5 Documents"},
        {"its own filter", [this] { type("plan"); },
         "Fire plan|Water plan () plan_: 2 of 5, Displaying 2 Documents"},
        {"Back", [this] { journey.trigger("mnuNavigateBack"); },
         "Zoning|Note|Map (Map) -Harbour: 3 of 5, Displaying 3 Documents"},
        {"Forward", [this] { journey.trigger("mnuNavigateForward"); },
         "Fire plan|Water plan () plan: 2 of 5, Displaying 2 Documents"},
        {"an order chosen there", [this] { clickHeader(); },
         "Fire plan|Water plan () plan: 2 of 5, Displaying 2 Documents"},
        {"both rows selected, and fewer words",
         [this] {
             journey.select("Fire plan");
             const QModelIndex second = journey.list().model()->index(1, 0);
             QTest::mouseClick(journey.list().viewport(), Qt::LeftButton, Qt::ControlModifier,
                               journey.list().visualRect(second).center());
             type("pla");
             EXPECT_EQ(journey.program->state().history.selected(), 4) << "where the user went last";
         },
         "Fire plan|Water plan (Fire plan|Water plan) pla_: 2 of 5, Displaying 2 Documents"},
        {"more words", [this] { type("pla w"); },
         "Water plan (Water plan) pla w_: 1 of 5, Displaying 1 Document"},
        {"Escape in the list",
         [this] {
             press(Qt::Key_Return);
             press(Qt::Key_Escape);
         },
         "Fire plan|Map|Note|Water plan|Zoning (Water plan) : whole, Displaying 5 Documents"},
        {"words without the selected row", [this] { type("map"); },
         "Map () map_: 1 of 5, Displaying 1 Document"},
        {"the cross", [this] { QTest::mouseClick(field().findChild<QToolButton*>(), Qt::LeftButton); },
         "Fire plan|Map|Note|Water plan|Zoning (Water plan) _: whole, Displaying 5 Documents"},
        {"letters typed in the list",
         [this] {
             press(Qt::Key_Escape);
             QTest::keyClicks(QApplication::focusWidget(), u"zo"_s);
         },
         "Fire plan|Map|Note|Water plan|Zoning (Zoning) : whole, Displaying 5 Documents"},
        {"events",
         [this] {
             journey.database.run("UPDATE Event SET StartDate = '1930-01-02' WHERE EventName = 'Quake'");
             journey.trigger("mnuViewEvents");
         },
         "Flood|Slide|Quake () : whole, Displaying 3 Events"},
        {"a time in a column", [this] { type("06:02"); }, "Quake () 06:02_: 1 of 3, Displaying 1 Event"},
        {"Down to the event, to which the timeline goes",
         [this] {
             press(Qt::Key_Down);
             EXPECT_EQ(journey.find<QLabel>("uCurrentTimeLabel(0)").text(), u"01/02/1930 06:02"_s);
         },
         "Quake (Quake) 06:02: 1 of 3, Displaying 1 Event"},
    };
    for (const auto& [what, act, expected] : steps) {
        act();
        EXPECT_EQ(state(), expected) << what;
    }
}

TEST_F(Filter, SaysThatItLeavesNothingAndMarksWhatItLeaves)
{
    EXPECT_FALSE(journey.showsMarks());
    type("plan");
    EXPECT_TRUE(journey.showsMarks());
    type("nowhere");
    EXPECT_EQ(state(), " () nowhere_: 0 of 4, Displaying 0 Documents");
    EXPECT_EQ(journey.find<QLabel>("lblEmptyResult").text(), u"No record in this list matches the filter."_s);
    for (const char* command : {"mnuViewRefresh", "mnuViewEvents", "mnuNavigateBack"})
        journey.trigger(command);
    auto& notice = journey.find<QWidget>("EmptyResultNotice");
    EXPECT_TRUE(notice.isVisible()) << "also once it is read again";
    QTest::mouseClick(&journey.find<LinkButton>("lblSearchAgain"), Qt::LeftButton);
    EXPECT_FALSE(notice.isVisible());
    EXPECT_EQ(state(), "Fire plan|Map|Water plan|Zoning () : whole, Displaying 4 Documents");
    EXPECT_TRUE(journey.list().hasFocus());
    EXPECT_FALSE(journey.showsMarks());

    // a page without a list has no filter, and the way back leads to the rows
    journey.trigger("mnuViewDocuments");
    type("plan");
    journey.trigger("mnuNavigateHome");
    EXPECT_FALSE(journey.find<QAction>("mnuSearchFilter").isEnabled());
    journey.trigger("mnuNavigateBack");
    EXPECT_EQ(state(), "Fire plan|Water plan () plan: 2 of 4, Displaying 2 Documents");
    EXPECT_TRUE(journey.list().hasFocus());

    // the column after the names is drawn in a way of its own if it shows key records
    journey.database.run("UPDATE Organization SET OrganizationTypeID = 2");
    journey.trigger("mnuViewOrganizations");
    type("state");
    EXPECT_TRUE(journey.showsMarks());
    EXPECT_EQ(journey.column(0), "Alpha|Beta");
}

TEST_F(Filter, HidesASavedRecordAndSaysSo)
{
    journey.database.run("UPDATE Document SET DocumentDescription = 'x', OriginalFilename = 'x.pdf'");
    type("plan");
    journey.select("Fire plan");
    const auto rename = [this](const QString& name) {
        journey.inDialog("frmDocument", "mnuRecordEdit", [&](OpenDialog& open) {
            open.type("txtDocumentName", name);
            open.click("cmdOK");
        });
        return journey.find<QLabel>("pnlSaved").text();
    };
    EXPECT_EQ(rename(u"Fire plans"_s), u"Saved: Document \"Fire plans\""_s);
    EXPECT_EQ(rename(u"Report"_s), u"Saved: Document \"Report\" (hidden by the filter)"_s);
    EXPECT_EQ(state(), "Water plan (Water plan) plan: 1 of 4, Displaying 1 Document");
}

} // namespace

// The tasks of the user's guide, one after the other, as a user would do them on one evening.

#include "Dialogs.h"
#include "Journey.h"
#include "map/MapView.h"

#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QRadioButton>
#include <QTest>

#include <gtest/gtest.h>

namespace {

class Walk : public testing::Test
{
protected:
    Walk()
    {
        const TestDatabase& database = journey.database;
        database.run("INSERT INTO Function VALUES (1, 'None'), (2, 'Relief')");
        database.run("INSERT INTO Venue VALUES (1, 'None'), (2, 'River')");
        database.run("INSERT INTO CityLocations (LocationID, City, State, Lat, Lon) VALUES "
                     "(5, 'Austin', 'TX', 30.27, -97.74), (6, 'Reno', 'NV', 39.53, -119.81)");
        database.run(
            "INSERT INTO Organization (OrganizationID, OrganizationName, FunctionID, City, State, Status) "
            "VALUES (2, 'Survey', 2, 'Austin', 'TX', 'ACTIVE'), (3, 'Office', 2, 'Reno', 'NV', 'ACTIVE')");
        database.run(
            "INSERT INTO Event (EventID, EventName, StartDate, StartTime, EndDate, EndTime, Status) VALUES "
            "(2, 'Flood', '1927-04-01', '06:00', '1927-08-31', '18:00', 'ACTIVE')");
        database.run("INSERT INTO Document (DocumentID, DocumentName, dStatus) VALUES "
                     "(2, 'Atlas', 'ACTIVE'), (3, 'Brief', 'ACTIVE')");
        database.run("INSERT INTO DocumentEvents (DocumentID, EventID) VALUES (2, 2)");
        database.run("INSERT INTO OrganizationEvents (OrganizationID, EventID) VALUES (2, 2), (3, 2)");
        journey.start();
    }

    void searchFor(const char* text)
    {
        journey.trigger("mnuSearchKeyword");
        journey.find<QRadioButton>("optSearch(0)").setChecked(true);
        journey.find<QLineEdit>("txtKeywords").setText(QString::fromUtf8(text));
        journey.find<QPushButton>("cmdGO").click();
    }

    std::string timelineBegin() { return journey.find<QLabel>("uCurrentTimeLabel(0)").text().toStdString(); }

    void followLinksToTheMap();
    void addAnEvent();
    void changeAndDeleteIt();

    Journey journey;
};

void Walk::followLinksToTheMap()
{
    journey.trigger("mnuViewDocuments");
    QTest::keyClicks(&journey.list(), QStringLiteral("atl"));
    journey.trigger("popDocListViewEvents");
    EXPECT_EQ(journey.column(0), "Flood");

    journey.select("Flood");
    journey.trigger("popEventListViewOrgs");
    EXPECT_EQ(journey.column(0), "Office|Survey");
    QApplication::processEvents();
    auto& map = journey.find<MapView>("Map1");
    ASSERT_EQ(map.accessibleItemCount(), 2);
    const int reno = map.accessibleItemName(0).startsWith(QStringLiteral("Reno")) ? 0 : 1;
    QTest::mouseClick(&map, Qt::RightButton, {}, map.positionOf(static_cast<std::size_t>(reno)).toPoint());
    journey.find<QMenu>("popOrgTab").close();
    journey.trigger("popOrgTabShowOnlyState");
    EXPECT_EQ(journey.viewPanel(), QStringLiteral("View Only NV Organizations"));
    EXPECT_EQ(journey.column(0), "Office");

    journey.trigger("mnuNavigateBack");
    journey.trigger("mnuNavigateBack");
    journey.trigger("mnuNavigateBack");
    EXPECT_EQ(journey.viewPanel(), QStringLiteral("View ALL Documents"));
    EXPECT_EQ(journey.list().currentIndex().data().toString(), QStringLiteral("Atlas"));
}

void Walk::addAnEvent()
{
    journey.select("Brief");
    journey.desktop.messages.expectQuestion(
        QStringLiteral("No Events exist for this Document. Would you like to add one?"), true);
    inDialog(
        "frmEvent", [&] { journey.trigger("popDocListViewEvents"); },
        [](OpenDialog& dialog) {
            dialog.type("txtEventName", QStringLiteral("Hearing"));
            dialog.type("dtpStartDate", QStringLiteral("05/07/1928"));
            dialog.type("dtpStartTime", QStringLiteral("10:00"));
            dialog.type("dtpEndDate", QStringLiteral("05/07/1928"));
            dialog.type("dtpEndTime", QStringLiteral("12:00"));
            dialog.type("rtbEventDescription", QStringLiteral("What the engineers said."));
            dialog.tick("lvVenues", QStringLiteral("River"));
            dialog.click("cmdOK");
        });
    EXPECT_EQ(journey.database.ask("SELECT EventName, StartDate, StartTime, EndTime FROM Event AS e JOIN "
                                   "DocumentEvents USING (EventID) WHERE DocumentID = 3"),
              QStringLiteral("Hearing|1928-05-07|10:00|12:00"));
    journey.trigger("mnuViewEvents");
    EXPECT_EQ(journey.column(0), "Flood|Hearing");
    EXPECT_EQ(timelineBegin(), "05/07/1928 10:00") << "the timeline moved to the new event";
}

void Walk::changeAndDeleteIt()
{
    journey.select("Hearing");
    inDialog(
        "frmEvent", [&] { journey.trigger("mnuRecordEdit"); },
        [](OpenDialog& dialog) {
            dialog.type("txtEventName", QStringLiteral("Hearing of the House"));
            dialog.click("cmdOK");
        });
    EXPECT_EQ(journey.column(0), "Flood|Hearing of the House");
    journey.desktop.messages.expectQuestion(
        QStringLiteral("Are you sure you want to delete the Event \"Hearing of the House\"?"), true,
        Question::Loss);
    journey.desktop.messages.expectMessage(QStringLiteral("Event ID 3 successfully deleted."));
    journey.trigger("mnuRecordDelete");
    EXPECT_EQ(journey.column(0), "Flood");
}

TEST_F(Walk, ThroughEveryTaskOfTheGuide)
{
    followLinksToTheMap();
    addAnEvent();
    changeAndDeleteIt();

    searchFor("hearing");
    EXPECT_EQ(journey.find<QLabel>("lblSummary").text(),
              QStringLiteral("Your keyword search for \"hearing\" found 0 items. Click on the Search icon to "
                             "try again."));

    const QString question = QStringLiteral("Are you sure you want to exit?");
    journey.desktop.messages.expectQuestion(question, false, Question::Loss);
    journey.trigger("mnuNavigateExit");
    EXPECT_TRUE(journey.program->window()->isVisible());
    journey.desktop.messages.expectQuestion(question, true, Question::Loss);
    journey.trigger("mnuNavigateExit");
    EXPECT_FALSE(journey.program->window()->isVisible());
    EXPECT_EQ(journey.database.ask("SELECT count(*) FROM Event_HIST WHERE EventID = 3"), QStringLiteral("2"));
}

} // namespace

// SPDX-License-Identifier: GPL-3.0-or-later

#include "EditorJourney.h"
#include "editors/RecordEditors.h"
#include "timeline/TimelinePanel.h"

namespace {

class EventEditor : public EditorJourney
{
protected:
    EventEditor() : EditorJourney("frmEvent", "journeys/rows/EventEditor.sql") { start("mnuViewEvents"); }
};

TEST_F(EventEditor, AddsAnEventAndTakesTheTimelineToIt)
{
    inEditor("mnuRecordAddNewEvent", [&](OpenDialog& dialog) {
        EXPECT_EQ(dialog.title(), "Add a New Event");
        EXPECT_EQ(dialog.text("lstEventFunctions") + dialog.text("lstEventOrgs") +
                      dialog.text("lstEventDocuments"),
                  "NoneNoneNone");
        dialog.type("txtEventName", u"gone"_s);
        dialog.type("rtbEventDescription", u"A title that only a deleted event has"_s);
        dialog.type("dtpStartDate", u"3/5/2002"_s);
        dialog.type("dtpStartTime", u"1:05 pm"_s);
        dialog.type("dtpEndDate", u"12/31/9999"_s);
        dialog.tick("lvVenues", u"Coast"_s);
        dialog.click("cmdOK");
    });
    EXPECT_EQ(rows("SELECT EndDate, EndTime FROM Event WHERE EventID = 4"), "9999-12-31|NULL");
    EXPECT_EQ(rows("SELECT FunctionID FROM EventFunctions WHERE EventID = 4"), "1");
    const Timeline& timeline = journey.find<TimelinePanel>("pnlTimeline").timeline();
    EXPECT_EQ(dateTimeText(timeline.window().currentTime()).toStdString(), "03/05/2002 13:05");
    EXPECT_EQ(journey.column(0), "Flood|gone");
    EXPECT_EQ(journey.list().currentIndex().row(), 1);

    // without its dates the timeline ends earlier
    const TimelineLimits before = timeline.window().limits();
    inEditor("mnuRecordEdit", [](OpenDialog& dialog) {
        for (const char* picker : {"dtpStartDate", "dtpStartTime", "dtpEndDate"})
            dialog.type(picker, QString());
        dialog.click("cmdOK");
    });
    EXPECT_EQ(rows("SELECT StartDate, StartTime, EndDate, EndTime FROM Event WHERE EventID = 4"),
              "NULL|NULL|NULL|NULL");
    EXPECT_EQ(timeline.window().limits().timelineStart, before.timelineStart);
    EXPECT_LT(timeline.window().limits().timelineEnd, before.timelineEnd);
}

TEST_F(EventEditor, SaysWhatIsMissingInTurn)
{
    for (const char* text :
         {"Event title is required.", "Event description is required.", "Event venue is required."}) {
        messages().expectMessage(QString::fromLatin1(text));
    }
    messages().expectMessage(
        u"Start date \"2/30/2002\" is not a date. Please type month, day and year, such as 09/11/2001."_s);
    messages().expectMessage(
        u"End time \"25:00\" is not a time. Please type hour and minute, such as 13:05."_s);
    messages().expectMessage(
        u"Event with identical title already exists. Please choose a different title."_s);
    inEditor("mnuRecordAddNewEvent", [&](OpenDialog& dialog) {
        dialog.type("dtpStartDate", u"2/30/2002"_s);
        dialog.type("dtpEndTime", u"25:00"_s);
        dialog.click("cmdOK");
        EXPECT_EQ(dialog.focus(), "txtEventName");
        dialog.type("txtEventName", u"FLOOD"_s);
        dialog.click("cmdOK");
        EXPECT_EQ(dialog.focus(), "rtbEventDescription");
        dialog.type("rtbEventDescription", u"Again"_s);
        dialog.click("cmdOK");
        EXPECT_EQ(dialog.focus(), "lvVenues");
        dialog.tick("lvVenues", u"Forest"_s);
        dialog.click("cmdOK");
        EXPECT_EQ(dialog.focus(), "dtpStartDate");
        dialog.type("dtpStartDate", u"2/28/2002"_s);
        dialog.click("cmdOK");
        EXPECT_EQ(dialog.focus(), "dtpEndTime");
        dialog.type("dtpEndTime", QString());
        dialog.click("cmdOK");
        EXPECT_EQ(dialog.focus(), "txtEventName");
        discard(dialog, messages());
    });
    EXPECT_EQ(rows("SELECT count(*) FROM Event"), "3");
}

TEST_F(EventEditor, ShowsADateThatCannotBeReadAndSavesItOnlyWhenItIsMended)
{
    journey.database.run("UPDATE Event SET StartDate = 'about 1927', EndTime = '24:30' WHERE EventID = 2");
    const char* const moments = "SELECT StartDate, StartTime, EndDate, EndTime FROM Event WHERE EventID = 2";
    messages().expectMessage(
        u"searchByTimeConstraint Error (13): about 1927 07:30:45 is not a date and time (Flood)"_s);
    messages().expectMessage(
        u"Start date \"about 1927\" is not a date. Please type month, day and year, such as 09/11/2001."_s);
    messages().expectMessage(
        u"End time \"24:30\" is not a time. Please type hour and minute, such as 13:05."_s);
    editFirst([&](OpenDialog& dialog) {
        const auto isMarked = [&](const char* picker) {
            const QList<QAction*> actions = dialog.find<QWidget>(picker).actions();
            return std::any_of(actions.begin(), actions.end(), [](const QAction* action) {
                return action->isVisible() && action->toolTip().startsWith(u"This is not"_s);
            });
        };
        EXPECT_EQ(dialog.text("dtpStartDate"), "about 1927");
        EXPECT_TRUE(isMarked("dtpStartDate"));
        EXPECT_FALSE(isMarked("dtpEndDate"));
        dialog.click("cmdOK");
        EXPECT_EQ(dialog.focus(), "dtpStartDate");
        EXPECT_EQ(dialog.text("dtpStartDate"), "about 1927");
        EXPECT_EQ(rows(moments), "about 1927|07:30:45|NULL|24:30");
        dialog.type("dtpStartDate", u"4/22/1927"_s);
        dialog.click("cmdOK");
        EXPECT_EQ(dialog.focus(), "dtpEndTime");
        dialog.type("dtpEndTime", QString());
        EXPECT_FALSE(isMarked("dtpEndTime"));
        dialog.click("cmdOK");
    });
    EXPECT_EQ(rows(moments), "1927-04-22|07:30:45|NULL|NULL");
}

TEST_F(EventEditor, LeadsFromAViewedEventToItsRecordsAndBack)
{
    journey.database.run(
        "INSERT INTO DocumentEvents VALUES (5, 2); INSERT INTO OrganizationEvents VALUES (1, 2)");
    const auto close = [](const char* title) {
        return [title](OpenDialog& over) {
            EXPECT_EQ(over.title(), title);
            over.press(Qt::Key_Escape);
        };
    };
    const auto press = [](OpenDialog& dialog, const char* list) {
        dialog.find<QWidget>(list).setFocus();
        dialog.press(Qt::Key_Return);
    };
    const auto doubleClick = [](OpenDialog& dialog, const char* name) {
        auto& list = dialog.find<QListWidget>(name);
        const QPoint item = list.visualItemRect(list.item(0)).center();
        QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, item);
        QTest::mouseDClick(list.viewport(), Qt::LeftButton, {}, item);
    };
    journey.list().setCurrentIndex(journey.list().model()->index(0, 0));
    inEditor("mnuRecordView", [&](OpenDialog& dialog) {
        inDialog(
            "frmDocument", [&] { doubleClick(dialog, "lstEventDocuments"); },
            close("Viewing DocumentID 5 (Read-Only)"));
        inDialog(
            "frmDocument", [&] { press(dialog, "lstEventDocuments"); },
            close("Viewing DocumentID 5 (Read-Only)"));
        const QPalette& unset = dialog.find<QWidget>("dtpEndDate").palette();
        EXPECT_EQ(unset.color(QPalette::PlaceholderText).alpha(), 0) << "a reader is asked for nothing";
        doubleClick(dialog, "lstEventOrgs"); // "None"
        doubleClick(dialog, "lstEventFunctions");
        EXPECT_EQ(dialog.title(), "Viewing EventID 2 (Read-Only)");
        press(dialog, "lstEventFunctions");
        EXPECT_EQ(dialog.title(), "Editing EventID 2") << "as Enter does elsewhere";
        doubleClick(dialog, "lstEventDocuments");
        dialog.press(Qt::Key_Escape);
    });
}

TEST_F(EventEditor, TakesPresetsIntoItsLists)
{
    auto& editors = journey.find<RecordEditors>("");
    struct Case
    {
        QString word;
        const char* documents;
        const char* organizations;
    };
    for (const Case& each :
         {Case{documentKindWord, "Preset", "None"}, Case{organizationKindWord, "None", "Preset"},
          Case{u"EVENT"_s, "None", "None"}}) {
        if (each.word == u"EVENT"_s) {
            messages().expectMessage(u"Invalid FieldName to add to current event"_s);
        }
        inDialog(
            "frmEvent",
            [&] {
                editors.addEvent(clsFieldInfo{each.word, 5, u"Preset"_s});
            },
            [&](OpenDialog& dialog) {
                EXPECT_EQ(dialog.text("lstEventDocuments"), each.documents);
                EXPECT_EQ(dialog.text("lstEventOrgs"), each.organizations);
                dialog.click("cmdCancel");
            });
    }
}

TEST_F(EventEditor, OpensFromTheTimeline)
{
    QWidget* label = nullptr;
    for (QWidget* each : journey.program->window()->findChildren<QWidget*>()) {
        if (each->objectName().startsWith(u"tlLabel("_s) && each->isVisible()) label = each;
    }
    ASSERT_NE(label, nullptr);
    inDialog(
        "frmEvent", [&] { QTest::mouseDClick(label, Qt::LeftButton, {}, QPoint(4, 4)); },
        [](OpenDialog& dialog) {
            EXPECT_EQ(dialog.title(), "Viewing EventID 2 (Read-Only)");
            dialog.click("cmdCancel");
        });
    QTest::mouseClick(label, Qt::RightButton, {}, QPoint(4, 4));
    auto& menu = journey.find<QMenu>("popEventList");
    EXPECT_TRUE(menu.isVisible());
    EXPECT_EQ(journey.list().currentIndex().row(), 0);
    EXPECT_TRUE(journey.find<QAction>("mnuRecordDelete").isEnabled());
    menu.close();
}

} // namespace

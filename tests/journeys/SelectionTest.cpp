// SPDX-License-Identifier: GPL-3.0-or-later

#include "Journey.h"
#include "map/MapView.h"
#include "timeline/EventLabel.h"
#include "timeline/TimelinePanel.h"

namespace {

/// What the user does, and what is selected in the list and in the graphic afterwards.
struct Step
{
    const char* what;
    std::function<void()> act;
    const char* selected; ///< `list / graphic`
};

class Selection : public testing::Test
{
protected:
    Selection()
    {
        journey.database.runFile("journeys/rows/Selection.sql");
        journey.start();
        journey.program->window()->resize(1200, 800);
    }

    void run(const std::vector<Step>& steps, const std::function<std::string()>& inGraphic)
    {
        for (const Step& step : steps) {
            step.act();
            journey.desktop.messages.finish();
            EXPECT_EQ(journey.selected() + " / " + inGraphic(), step.selected) << step.what;
        }
    }

    std::string onTimeline()
    {
        for (const Lane& lane : journey.find<TimelinePanel>("pnlTimeline").timeline().lanes()) {
            if (lane.isSelected) return lane.toolTip.section(u") "_s, 1).toStdString();
        }
        return {};
    }

    std::string onMap()
    {
        auto& map = journey.find<MapView>("Map1");
        if (!map.ringed()) return {};
        return map.accessibleItemName(static_cast<int>(*map.ringed())).section(u',', 0, 0).toStdString();
    }

    void clickTwiceWithCtrl(int row)
    {
        const QPoint place = journey.list().visualRect(journey.list().model()->index(row, 0)).center();
        for (int i = 0; i < 2; ++i)
            QTest::mouseClick(journey.list().viewport(), Qt::LeftButton, Qt::ControlModifier, place);
    }

    /// Opens the editor of the selected record, which is to be that one.
    void edit(const char* editor, const std::string& title)
    {
        journey.inDialog(editor, "mnuRecordEdit", [&](OpenDialog& dialog) {
            EXPECT_EQ(dialog.title(), title);
            dialog.click("cmdCancel");
        });
    }

    void remove(const char* kind, const char* name, int identifier)
    {
        const QString word = QString::fromLatin1(kind);
        journey.desktop.messages.expectQuestion(
            u"Are you sure you want to delete the %1 \"%2\"?"_s.arg(word, QLatin1StringView(name)), true,
            Question::Loss);
        journey.desktop.messages.expectMessage(u"%1 ID %2 successfully deleted."_s.arg(word).arg(identifier));
        journey.trigger("mnuRecordDelete");
    }

    void addEvent()
    {
        journey.inDialog("frmEvent", "mnuRecordAddNewEvent", [](OpenDialog& dialog) {
            dialog.type("txtEventName", u"Storm"_s);
            dialog.type("rtbEventDescription", u"Wind"_s);
            dialog.type("dtpStartDate", u"3/5/2002"_s);
            dialog.type("dtpStartTime", u"13:05"_s);
            dialog.type("dtpEndDate", u"3/5/2002"_s);
            dialog.type("dtpEndTime", u"13:10"_s);
            dialog.tick("lvVenues", u"Coast"_s);
            dialog.click("cmdOK");
        });
    }

    void addOrganization()
    {
        journey.inDialog("frmOrganization", "mnuRecordAddNewOrganization", [](OpenDialog& dialog) {
            dialog.type("txtOrganizationName", u"Gamma"_s);
            dialog.type("txtCity", u"Reno"_s);
            dialog.choose("cmbState", u"NV"_s);
            dialog.click("cmdOK");
        });
    }

    Journey journey;
};

TEST_F(Selection, ListAndTimelineShowTheSameEventWhateverIsDone)
{
    journey.trigger("mnuViewEvents");
    QTest::qWait(0);
    run({{"a click on the timeline",
          [this] { QTest::mouseClick(&journey.find<EventLabel>("tlLabel(1)"), Qt::LeftButton); },
          "Quake / Quake"},
         {"another view", [this] { journey.trigger("mnuViewEvents"); }, " / "},
         {"a click in the list", [this] { journey.select("Slide"); }, "Slide / Slide"},
         {"Back", [this] { journey.trigger("mnuNavigateBack"); }, "Quake / Quake"},
         {"Forward", [this] { journey.trigger("mnuNavigateForward"); }, "Slide / Slide"},
         {"another kind and Back",
          [this] {
              journey.trigger("mnuViewDocuments");
              journey.trigger("mnuNavigateBack");
          },
          "Slide / Slide"},
         {"Refresh", [this] { journey.trigger("mnuViewRefresh"); }, "Slide / Slide"},
         {"Ctrl and a click, twice",
          [this] {
              journey.select("Quake");
              clickTwiceWithCtrl(2);
          },
          "Quake / Quake"},
         {"Edit", [this] { edit("frmEvent", "Editing EventID 3"); }, "Quake / Quake"},
         {"a click on an event that the list does not hold yet",
          [this] {
              journey.database.run("INSERT INTO Event (EventID, EventName, StartDate, StartTime, Status) "
                                   "VALUES (9, 'Crack', '1927-04-01', '06:04', 'ACTIVE')");
              journey.find<QToolButton>("NavStepForward").click();
              journey.find<QToolButton>("NavStepBack").click();
              QTest::mouseClick(&journey.find<EventLabel>("tlLabel(3)"), Qt::LeftButton);
              journey.database.run("DELETE FROM Event WHERE EventID = 9");
          },
          " / "},
         {"Refresh", [this] { journey.trigger("mnuViewRefresh"); }, " / "},
         {"a selection taken away",
          [this] {
              journey.select("Quake");
              const QPoint row = journey.list().visualRect(journey.list().model()->index(1, 0)).center();
              QTest::mouseClick(journey.list().viewport(), Qt::LeftButton, Qt::ControlModifier, row);
          },
          " / "},
         {"Delete",
          [this] {
              journey.select("Quake");
              remove("Event", "Quake", 3);
          },
          "Slide / Slide"},
         {"Add", [this] { addEvent(); }, "Storm / Storm"},
         {"Back to where the selected event is gone",
          [this] {
              journey.trigger("mnuNavigateBack");
              journey.trigger("mnuNavigateBack");
          },
          " / "}},
        [this] { return onTimeline(); });
}

TEST_F(Selection, ListAndMapShowTheSameOrganizationWhateverIsDone)
{
    journey.trigger("mnuViewOrganizations");
    QTest::qWait(0);
    run({{"a click in the list", [this] { journey.select("Alpha"); }, "Alpha / Austin"},
         {"another view", [this] { journey.trigger("mnuViewOrganizations"); }, " / "},
         {"a click on the map",
          [this] {
              auto& map = journey.find<MapView>("Map1");
              const std::size_t dallas = map.accessibleItemName(0).startsWith(u"Dallas") ? 0 : 1;
              QTest::mouseClick(&map, Qt::LeftButton, {}, map.positionOf(dallas).toPoint());
          },
          "Beta / Dallas"},
         {"Back", [this] { journey.trigger("mnuNavigateBack"); }, "Alpha / Austin"},
         {"Ctrl and a click, twice", [this] { clickTwiceWithCtrl(1); }, "Alpha / Austin"},
         {"Edit", [this] { edit("frmOrganization", "Editing OrganizationID 2"); }, "Alpha / Austin"},
         {"Delete", [this] { remove("Organization", "Alpha", 2); }, "Beta / Dallas"},
         {"Add", [this] { addOrganization(); }, "Gamma / Reno"}},
        [this] { return onMap(); });
}

} // namespace

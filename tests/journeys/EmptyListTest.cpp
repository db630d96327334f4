// SPDX-License-Identifier: GPL-3.0-or-later

// What lists, the chart and the map say if they have nothing to show.

#include "Journey.h"
#include "chart/ChartView.h"
#include "widgets/LinkButton.h"

namespace {

class EmptyLists : public testing::Test
{
protected:
    /// The text of the notice in the list, with that of its link in brackets; nothing if there is no notice.
    std::string notice()
    {
        if (!journey.find<QWidget>("EmptyResultNotice").isVisible()) return {};
        const QString text = journey.find<QLabel>("lblEmptyResult").text();
        return (link().isVisible() ? text + u" [%1]"_s.arg(link().text()) : text).toStdString();
    }

    LinkButton& link() { return journey.find<LinkButton>("lblSearchAgain"); }
    void followLink() { QTest::mouseClick(&link(), Qt::LeftButton); }
    QString chartText() { return journey.find<ChartView>("MSChart1").accessibleDescription(); }

    /// What lies over the map; nothing if it shows places.
    QString mapText()
    {
        auto& text = journey.find<QLabel>("lblEmptyMap");
        return text.isVisible() ? text.text() : QString();
    }

    Journey journey;
};

const struct
{
    const char* view;
    const char* text;
    const char* link;
    const char* dialog;
    const char* row;
} kinds[] = {
    {"mnuViewDocuments", "There are no documents yet.", "Add the first document", "frmDocument",
     "INSERT INTO Document (DocumentID, DocumentName, dStatus) VALUES (2, 'x', 'ACTIVE')"},
    {"mnuViewEvents", "There are no events yet.", "Add the first event", "frmEvent",
     "INSERT INTO Event (EventID, EventName, Status) VALUES (2, 'x', 'ACTIVE')"},
    {"mnuViewOrganizations", "There are no organizations yet.", "Add the first organization",
     "frmOrganization",
     "INSERT INTO Organization (OrganizationID, OrganizationName, Status) VALUES (2, 'x', 'ACTIVE')"},
};

TEST_F(EmptyLists, OfferToAddTheFirstRecord)
{
    journey.start();
    for (const auto& [view, text, add, dialog, row] : kinds) {
        journey.trigger(view);
        EXPECT_EQ(notice(), std::string(text) + " [" + add + ']');
        inDialog(
            dialog, [this] { followLink(); }, [](OpenDialog& open) { open.press(Qt::Key_Escape); });
        journey.database.run(row);
        journey.trigger("mnuViewRefresh");
        EXPECT_EQ(notice(), "") << view;
    }
}

TEST_F(EmptyLists, LeadBackFromAViewThatLostItsRecords)
{
    journey.database.runFile("journeys/rows/Buttons.sql");
    journey.start();
    const StandardQueries& queries = journey.program->state().queries;
    const struct
    {
        RecordKind kind;
        const char* text;
    } views[] = {{RecordKind::Document, "There are no documents in this view."},
                 {RecordKind::Event, "There are no events in this view."},
                 {RecordKind::Organization, "There are no organizations in this view."}};
    for (const auto& [kind, text] : views) {
        journey.trigger("mnuViewEvents");
        journey.program->state().history.addView(
            {viewOf(kind), queries.narrowed(kind, u" AND 1 = 2"_s), u"Narrow"_s});
        ASSERT_EQ(notice(), std::string(text) + " [Go back to the view before]");
        followLink();
        EXPECT_EQ(journey.viewPanel(), u"View ALL Events"_s);
        EXPECT_EQ(notice(), "");
    }
}

TEST_F(EmptyLists, StandBesideAChartAndAMapThatSayWhy)
{
    journey.start();
    journey.trigger("mnuViewDocuments");
    EXPECT_EQ(chartText(), u"No documents to show."_s);
    journey.trigger("mnuViewOrganizations");
    EXPECT_EQ(mapText(), u"No organizations to show."_s);

    journey.database.runFile("journeys/rows/Buttons.sql");
    journey.trigger("mnuViewRefresh");
    EXPECT_EQ(mapText(), u"None of these organizations has a place on the map."_s);
    journey.database.run("UPDATE Organization SET Lat = 30, Lon = -97 WHERE OrganizationID = 2");
    journey.trigger("mnuViewRefresh");
    EXPECT_EQ(mapText(), QString());
    journey.trigger("mnuViewDocuments");
    EXPECT_EQ(chartText(), u"None of these documents has a type."_s);
    journey.database.run("INSERT INTO DocumentType VALUES (2, 'Report');"
                         "INSERT INTO DocumentTypes (DocumentID, DocumentTypeID) VALUES (2, 2)");
    journey.trigger("mnuViewRefresh");
    EXPECT_EQ(chartText(),
              u"Types: 1. Documents in the list: 2. The longest bar is Report: 1 document. The arrow keys "
              "go from bar to bar, the menu key opens a bar's menu"_s);
}

} // namespace

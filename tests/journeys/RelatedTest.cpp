// SPDX-License-Identifier: GPL-3.0-or-later

#include "Journey.h"

namespace {

class RelatedJourney : public testing::Test
{
protected:
    RelatedJourney()
    {
        journey.database.runFile("journeys/rows/Related.sql");
        journey.start();
    }

    /// The pop-up menu that a right click on the current row opens: its entries, the disabled ones in
    /// parentheses.
    std::string popUp(const char* name)
    {
        const QPoint at = journey.list().visualRect(journey.list().currentIndex()).center();
        QContextMenuEvent event(QContextMenuEvent::Mouse, at, journey.list().viewport()->mapToGlobal(at));
        QApplication::sendEvent(journey.list().viewport(), &event);
        auto& menu = journey.find<QMenu>(name);
        EXPECT_TRUE(menu.isVisible());
        QStringList texts;
        for (const QAction* action : menu.actions()) {
            if (action->isSeparator() || !action->isVisible()) continue;
            const QString text = QString(action->text()).remove(u'&');
            texts << (action->isEnabled() ? text : u'(' + text + u')');
        }
        menu.close();
        return texts.join(u'|').toStdString();
    }

    Journey journey;
};

TEST_F(RelatedJourney, GoesFromADocumentToItsEventsToTheirOrganizationsAndBack)
{
    journey.trigger("mnuViewDocuments");
    journey.select("Atlas");
    journey.trigger("popDocListViewEvents");
    EXPECT_EQ(journey.column(0), "Flood");
    EXPECT_EQ(journey.viewPanel(), u"View Only Events for Document \"Atlas\""_s);
    EXPECT_EQ(journey.statusPanel(), u"Displaying 1 Event"_s);

    EXPECT_EQ(popUp("popEventList"), "(View…)|(Edit…)|New Event…|(Delete…)|(View Documents)|(View "
                                     "Organizations)|(History…)|(Copy)|Refresh|Show All");
    journey.select("Flood");
    QTest::keyClick(journey.program->window(), Qt::Key_O, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(journey.viewPanel(), u"View Only Organizations for Event \"Flood\""_s);
    EXPECT_EQ(journey.column(0), "Survey");

    journey.select("Survey");
    journey.trigger("popOrgListViewEvents");
    EXPECT_EQ(journey.viewPanel(), u"View Only Organizations for Event \"Survey\""_s);
    EXPECT_EQ(journey.column(0), "Flood");
    journey.trigger("mnuNavigateBack");
    EXPECT_EQ(journey.list().currentIndex().data().toString(), u"Survey"_s);
    journey.trigger("popOrgListViewDocs");
    EXPECT_EQ(journey.column(0), "Atlas");
    EXPECT_EQ(journey.historyMenu(),
              "Home Page|View ALL Documents|View Only Events for Document \"Atlas\"|View Only Organizations "
              "for Event \"Flood\"|View Only Organizations for Event \"Survey\"|[View Only Documents for "
              "Organization \"Survey\"]");
}

TEST_F(RelatedJourney, OffersToAddWhatIsNotThere)
{
    journey.trigger("mnuViewDocuments");
    journey.select("Brief & \"more\"");
    const QString question = u"No Events exist for this Document. Would you like to add one?"_s;
    journey.desktop.messages.expectQuestion(question, false);
    journey.trigger("popDocListViewEvents");
    EXPECT_EQ(journey.viewPanel(), u"View ALL Documents"_s);

    journey.desktop.messages.expectQuestion(question, true);
    journey.inDialog("frmEvent", "popDocListViewEvents", [](OpenDialog& dialog) {
        EXPECT_EQ(dialog.text("lstEventDocuments"), "Brief & \"more\"");
        EXPECT_EQ(dialog.text("lstEventOrgs"), "None");
        dialog.click("cmdCancel");
    });

    journey.desktop.messages.expectQuestion(
        u"No Source Organization exists for this Document. Would you like to add one?"_s, true);
    journey.inDialog("frmOrganization", "popDocListViewOrgs",
                     [](OpenDialog& dialog) { dialog.click("cmdCancel"); });
    EXPECT_EQ(journey.program->state().history.count(), 2u);
}

TEST_F(RelatedJourney, SaysWhyACommandCannotBeUsed)
{
    const auto tip = [this](const char* name) {
        const auto& action = journey.find<QAction>(name);
        return (action.isEnabled() ? QString() : action.toolTip().section(u'\n', -1)).toStdString();
    };
    EXPECT_FALSE(journey.find<QMenu>("mnuRecordRelated").menuAction()->isEnabled());
    EXPECT_EQ(tip("mnuNavigateBack"), "") << "it beeps";

    journey.trigger("mnuViewDocuments");
    journey.list().selectAll();
    EXPECT_EQ(tip("mnuRecordOpen"), "");
    EXPECT_EQ(tip("mnuRecordCopy"), "");
    EXPECT_EQ(tip("popDocListViewOrgs"), "Select a single record.");
    journey.select("Atlas");
    EXPECT_EQ(tip("popDocListViewOrgs"), "");
    EXPECT_EQ(journey.find<QAction>("mnuRecordCopy").toolTip(), u"Copy (Ctrl+C)"_s);
    EXPECT_FALSE(journey.find<QAction>("popEventListViewDocs").isVisible());

    journey.trigger("mnuViewEvents");
    journey.select("Flood");
    EXPECT_EQ(tip("mnuRecordOpen"), "An event has no file to open.");
}

TEST_F(RelatedJourney, AFailureShowsOneMessageAndTheViewStays)
{
    journey.trigger("mnuViewEvents");
    journey.select("Flood");
    journey.database.run("ALTER TABLE DocumentEvents RENAME COLUMN EventID TO Renamed");
    journey.desktop.messages.expectMessageBeginning(u"popEventListViewDocs Error (1): "_s);
    journey.trigger("popEventListViewDocs");
    EXPECT_EQ(journey.viewPanel(), u"View ALL Events"_s);
    EXPECT_EQ(journey.program->state().history.count(), 2u);
}

} // namespace

// SPDX-License-Identifier: GPL-3.0-or-later

#include "EditorJourney.h"
#include "editors/RecordEditors.h"

namespace {

class RecordCommands : public EditorJourney
{
protected:
    RecordCommands() : EditorJourney("frmDocument", "journeys/rows/RecordCommands.sql") { journey.start(); }
};

TEST_F(RecordCommands, DeleteAsksByNameAndShowsTheListAgain)
{
    journey.trigger("mnuViewDocuments");
    choose(1);
    const QString question = u"Are you sure you want to delete the Document \"Three \"3\"\"?"_s;
    messages().expectQuestion(question, false, Question::Loss);
    QTest::keyClick(&journey.list(), Qt::Key_Delete);
    EXPECT_EQ(journey.column(0), "One|Three \"3\"|Two|Zero");
    messages().expectQuestion(question, true, Question::Loss);
    messages().expectMessage(u"Document ID 3 successfully deleted."_s);
    QTest::keyClick(&journey.list(), Qt::Key_Delete);
    EXPECT_EQ(journey.column(0), "One|Two|Zero");
    EXPECT_EQ(journey.list().currentIndex().row(), 1) << "the row in its place";
    EXPECT_EQ(rows("SELECT dStatus FROM Document WHERE DocumentID = 3"), "DELETED");
    EXPECT_EQ(rows("SELECT count(*) FROM Document_HIST"), "0");
}

TEST_F(RecordCommands, DeleteAsksOnceForSeveralAndSendsOneNotice)
{
    journey.trigger("mnuViewDocuments");
    QSignalSpy notices(&journey.find<RecordEditors>(""), &RecordEditors::changed);
    choose(0);
    QTest::keyClick(&journey.list(), Qt::Key_Down, Qt::ShiftModifier);
    QTest::keyClick(&journey.list(), Qt::Key_Down, Qt::ShiftModifier);
    messages().expectQuestion(u"Are you sure you want to delete the 3 selected Documents?"_s, true,
                              Question::Loss);
    messages().expectMessageBeginning(u"3 Documents successfully deleted.\n"_s);
    journey.trigger("mnuRecordDelete");
    messages().finish();
    EXPECT_EQ(journey.column(0), "Zero");
    EXPECT_EQ(notices.count(), 1);
}

TEST_F(RecordCommands, ADoubleClickAndEnterViewTheRecord)
{
    journey.trigger("mnuViewDocuments");
    const QPoint row = journey.list().visualRect(journey.list().model()->index(2, 0)).center();
    const auto expectTwo = [](OpenDialog& dialog) {
        EXPECT_EQ(dialog.title(), "Viewing DocumentID 4 (Read-Only)");
        dialog.click("cmdCancel");
    };
    QTest::mouseClick(journey.list().viewport(), Qt::LeftButton, {}, row);
    inDialog(
        "frmDocument", [&] { QTest::mouseDClick(journey.list().viewport(), Qt::LeftButton, {}, row); },
        expectTwo);
    inDialog(
        "frmDocument", [&] { QTest::keyClick(&journey.list(), Qt::Key_Return); }, expectTwo);
}

TEST_F(RecordCommands, ItsKeyOpensTheMenuOfTheAddButton)
{
    auto& menu = *journey.find<QToolButton>("Add").defaultAction()->menu();
    QTest::keyClick(journey.program->window(), Qt::Key_N, Qt::ControlModifier);
    ASSERT_TRUE(menu.isVisible());
    inDialog(
        "frmEvent", [&] { QTest::keyClick(&menu, Qt::Key_E); },
        [](OpenDialog& dialog) { dialog.click("cmdCancel"); });
}

TEST_F(RecordCommands, ASaveShowsTheViewOnceAndKeepsTheSelection)
{
    journey.trigger("mnuViewDocuments");
    choose(2);
    QSignalSpy fills(journey.list().model(), &QAbstractItemModel::modelReset);
    inEditor("mnuRecordEdit", [](OpenDialog& dialog) {
        dialog.type("txtDocumentName", u"Alone"_s);
        dialog.click("cmdOK");
    });
    EXPECT_EQ(fills.count(), 1);
    EXPECT_EQ(journey.find<QLabel>("pnlSaved").text(), u"Saved: Document \"Alone\""_s);
    EXPECT_EQ(journey.statusPanel(), u"Displaying 4 Documents"_s);
    EXPECT_EQ(journey.column(0), "Alone|One|Three \"3\"|Zero");
    EXPECT_EQ(journey.list().currentIndex().row(), 0);
    inEditor("mnuRecordEdit", [](OpenDialog& dialog) { dialog.click("cmdCancel"); });
    EXPECT_EQ(fills.count(), 1) << "Cancel shows nothing again";
    journey.trigger("mnuViewRefresh");
    EXPECT_EQ(journey.find<QLabel>("pnlSaved").text(), QString()) << "until the next view";
    EXPECT_EQ(journey.program->state().history.count(), 2u);
}

} // namespace

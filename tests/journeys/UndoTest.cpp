// SPDX-License-Identifier: GPL-3.0-or-later

#include "EditorJourney.h"
#include "timeline/TimelinePanel.h"

namespace {

class UndoJourney : public EditorJourney
{
protected:
    UndoJourney() : EditorJourney("frmDocument", "journeys/rows/Undo.sql") { start("mnuViewDocuments"); }

    std::string text(const char* action) { return journey.find<QAction>(action).text().toStdString(); }
    std::string tip(const char* action) { return journey.find<QAction>(action).toolTip().toStdString(); }
    std::string saved() { return journey.find<QLabel>("pnlSaved").text().toStdString(); }

    void undo() { QTest::keyClick(journey.program->window(), Qt::Key_Z, Qt::ControlModifier); }
    void redo()
    {
        QTest::keyClick(journey.program->window(), Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
    }

    void restart()
    {
        journey.program.reset();
        start("mnuViewDocuments");
    }

    /// Deletes rows of the documents, of which there are more than one.
    void deleteDocuments(int first, int last)
    {
        choose(first);
        for (int row = first; row < last; ++row)
            QTest::keyClick(&journey.list(), Qt::Key_Down, Qt::ShiftModifier);
        const int count = last - first + 1;
        messages().expectQuestion(u"Are you sure you want to delete the %1 selected Documents?"_s.arg(count),
                                  true, Question::Loss);
        messages().expectMessageBeginning(u"%1 Documents successfully deleted.\n"_s.arg(count));
        QTest::keyClick(&journey.list(), Qt::Key_Delete);
        messages().finish();
    }

    void rename(const char* view, const char* form, const char* field, const QString& name)
    {
        journey.trigger(view);
        choose(0);
        journey.inDialog(form, "mnuRecordEdit", [&](OpenDialog& dialog) {
            dialog.type(field, name);
            dialog.click("cmdOK");
        });
    }
};

TEST_F(UndoJourney, GoesBackAndForthThroughADeletionAndARestart)
{
    EXPECT_EQ(text("mnuRecordUndo") + text("mnuRecordRedo"), "&Undo&Redo");
    EXPECT_EQ(tip("mnuRecordUndo"), "Undo (Ctrl+Z)\nThere is nothing to undo.");
    EXPECT_EQ(tip("mnuRecordRedo"), "Redo (Ctrl+Shift+Z)\nThere is nothing to redo.");
    deleteDocuments(0, 2);
    EXPECT_EQ(journey.column(0), "Zero");
    EXPECT_EQ(saved(), "3 Documents deleted.");
    auto& offer = journey.find<QAbstractButton>("cmdUndo");
    EXPECT_TRUE(offer.isVisible());
    EXPECT_EQ(offer.accessibleName(), u"Undo Delete of 3 Documents"_s);
    EXPECT_EQ(text("mnuRecordUndo"), "&Undo Delete of 3 Documents");
    EXPECT_EQ(tip("mnuRecordUndo"), "Undo Delete of 3 Documents (Ctrl+Z)");

    QTest::mouseClick(&offer, Qt::LeftButton);
    EXPECT_EQ(journey.column(0), "One|Tea & \"Cake\"|Two|Zero");
    EXPECT_EQ(saved(), "Undone: Delete of 3 Documents");
    EXPECT_FALSE(offer.isVisible());
    EXPECT_EQ(journey.selected(), "One") << "the first";
    EXPECT_FALSE(journey.find<QAction>("mnuRecordUndo").isEnabled());
    EXPECT_EQ(text("mnuRecordRedo"), "&Redo Delete of 3 Documents");

    restart();
    redo();
    EXPECT_EQ(journey.column(0), "Zero");
    EXPECT_EQ(saved(), "Redone: Delete of 3 Documents");
    undo();
    EXPECT_EQ(rows("SELECT count(*) FROM Document WHERE dStatus = 'ACTIVE'"), "4");
}

TEST_F(UndoJourney, TakesBackADeletionOfOneUntilAnotherViewIsShown)
{
    choose(1);
    messages().expectQuestion(u"Are you sure you want to delete the Document \"Tea & \"Cake\"\"?"_s, true,
                              Question::Loss);
    messages().expectMessage(u"Document ID 3 successfully deleted."_s);
    journey.trigger("mnuRecordDelete");
    EXPECT_EQ(saved(), "Deleted: Document \"Tea & \"Cake\"\"");
    EXPECT_EQ(text("mnuRecordUndo"), "&Undo Delete of Document \"Tea && \"Cake\"\"");
    journey.trigger("mnuNavigateHome");
    EXPECT_FALSE(journey.find<QAbstractButton>("cmdUndo").isVisible());
    undo();
    EXPECT_EQ(saved(), "Undone: Delete of Document \"Tea & \"Cake\"\"") << "also on the home page";
    EXPECT_EQ(rows("SELECT dStatus FROM Document WHERE DocumentID = 3"), "ACTIVE");
}

TEST_F(UndoJourney, TakesAnEventBackOnTheTimelineAndInTheList)
{
    const auto& timeline = journey.find<TimelinePanel>("pnlTimeline").timeline();
    const auto shown = [&] {
        return dateTimeText(timeline.window().currentTime()).toStdString() + ' ' + journey.column(0) + ' ' +
               journey.selected();
    };
    rename("mnuViewEvents", "frmEvent", "dtpStartDate", u"3/5/2002"_s);
    EXPECT_EQ(shown(), "03/05/2002 07:30 Storm|Flood Flood");
    choose(0);
    undo();
    EXPECT_EQ(shown(), "04/21/1927 07:30 Flood|Storm Flood");
    redo();
    EXPECT_EQ(shown(), "03/05/2002 07:30 Storm|Flood Flood");
    EXPECT_EQ(text("mnuRecordUndo"), "&Undo Change of Event \"Flood\"");
}

TEST_F(UndoJourney, LeavesItsKeysToTheFieldOfADialog)
{
    deleteDocuments(0, 1);
    const QStringList before = journey.dump();
    choose(0);
    inEditor("mnuRecordEdit", [&](OpenDialog& dialog) {
        dialog.type("txtDocumentName", u"x"_s);
        auto& field = dialog.find<QLineEdit>("txtDocumentName");
        QTest::keyClick(&field, Qt::Key_Z, Qt::ControlModifier);
        EXPECT_NE(field.text(), u"x"_s);
        for (int i = 0; i < 3; ++i)
            QTest::keyClick(&field, Qt::Key_Z, Qt::ControlModifier);
        EXPECT_EQ(field.text(), u"Two"_s);
        QTest::keyClick(&dialog.find<QWidget>("cmdOK"), Qt::Key_Z, Qt::ControlModifier);
        dialog.click("cmdCancel");
    });
    journey.trigger("mnuSearchKeyword");
    OpenDialog search(journey.find<QDialog>("frmSearch"));
    search.dialog().activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&search.dialog()));
    search.type("txtKeywords", u"tea"_s);
    for (const char* part : {"txtKeywords", "txtKeywords", "txtKeywords", "txtKeywords", "cmdGO"})
        QTest::keyClick(&search.find<QWidget>(part), Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(search.text("txtKeywords"), "");
    EXPECT_EQ(journey.dump(), before);
}

TEST_F(UndoJourney, AsksBeforeItGoesOverALaterChange)
{
    rename("mnuViewDocuments", "frmDocument", "txtDocumentName", u"First"_s);
    journey.database.run("UPDATE Document SET DocumentName = 'Elsewhere' WHERE DocumentID = 2");
    const QStringList before = journey.dump();
    const auto attempt = [&](const char* button) {
        inDialog(
            "frmChangedSince", [&] { undo(); },
            [&](OpenDialog& question) {
                EXPECT_EQ(question.title(), "Undo Change of Document \"First\"");
                EXPECT_EQ(question.focus(), "cmdCancel");
                question.click(button);
            });
    };
    attempt("cmdCancel");
    EXPECT_EQ(journey.dump(), before);
    attempt("cmdOK");
    EXPECT_EQ(journey.column(0), "One|Tea & \"Cake\"|Two|Zero");
    EXPECT_EQ(saved(), "Undone: Change of Document \"First\"");
}

TEST_F(UndoJourney, DoesNotTakeBackAStepThatItIsNotNamedAfter)
{
    deleteDocuments(0, 1);
    journey.database.run(
        "INSERT INTO Journal (Number, Step, Moment, What, Kind, Identifier, Title, Before, After, UndoStep, "
        "RedoStep) SELECT 9, 9, Moment, What, Kind, Identifier, 'Other', Before, After, 9, 0 FROM Journal "
        "WHERE Number = 1");
    const QStringList before = journey.dump();
    undo();
    EXPECT_EQ(journey.dump(), before);
    EXPECT_EQ(text("mnuRecordUndo"), "&Undo Delete of Document \"Other\"");
    EXPECT_EQ(journey.find<QLabel>("pnlNotice").text(), u"The database was changed by another program."_s);
}

TEST_F(UndoJourney, TakesBackAnEntryThatWasAddedFromAnEditor)
{
    choose(0);
    inEditor("mnuRecordEdit", [&](OpenDialog& dialog) {
        addEntry(dialog, "cmdNewVenue", u"Delta"_s);
        discard(dialog, messages());
    });
    EXPECT_EQ(text("mnuRecordUndo"), "&Undo Add of Venue \"Delta\"");
    undo();
    EXPECT_EQ(rows("SELECT VenueName FROM Venue"), "Coast");
}

TEST_F(UndoJourney, SaysWhyItCannotBeUsed)
{
    deleteDocuments(0, 1);
    journey.program.reset();
    StartRequest request;
    request.readOnly = true;
    request.path = journey.dataFolder() + u"test.sqlite"_s;
    journey.start(u"test.sqlite"_s, request);
    EXPECT_EQ(tip("mnuRecordUndo"), "Undo (Ctrl+Z)\nThe database can be read, but not changed.");
    journey.inDialog("frmDeletedRecords", "mnuViewDeleted", [](OpenDialog& window) {
        EXPECT_TRUE(window.find<QWidget>("cmdView").isEnabled());
        EXPECT_FALSE(window.find<QWidget>("cmdRestore").isEnabled());
        window.click("cmdClose");
    });
}

TEST_F(UndoJourney, DeletedRecordsAreShownAndPutBack)
{
    deleteDocuments(0, 1);
    journey.desktop.clock.moment = journey.desktop.clock.moment.addSecs(60);
    deleteDocuments(0, 1);
    journey.database.run(
        "INSERT INTO Document (DocumentID, DocumentName, dStatus) VALUES (9, 'Ancient', 'deleted')");
    journey.inDialog("frmDeletedRecords", "mnuViewDeleted", [&](OpenDialog& window) {
        auto& view = window.find<QTreeView>("lvDeleted");
        const QAbstractItemModelTester tester(view.model(),
                                              QAbstractItemModelTester::FailureReportingMode::Fatal);
        EXPECT_EQ(window.text("lstKinds"), "Documents (5)|Events (0)|Organizations (0)");
        EXPECT_EQ(window.text("lvDeleted"),
                  "*Two|06/15/2005 12:01:00\nZero|06/15/2005 12:01:00\n"
                  "One|06/15/2005 12:00:00\nTea & \"Cake\"|06/15/2005 12:00:00\nAncient|");
        view.setCurrentIndex(view.model()->index(2, 0));
        view.sortByColumn(0, Qt::AscendingOrder);
        EXPECT_EQ(window.text("lvDeleted"),
                  "Ancient|\n*One|06/15/2005 12:00:00\nTea & \"Cake\"|06/15/2005 12:00:00\n"
                  "Two|06/15/2005 12:01:00\nZero|06/15/2005 12:01:00");
        inDialog(
            "frmDocument", [&] { QTest::keyClick(&view, Qt::Key_Return); },
            [](OpenDialog& viewed) {
                EXPECT_EQ(viewed.title(), "Viewing DocumentID 2 (Read-Only)");
                viewed.click("cmdCancel");
            });
        QTest::keyClick(&view, Qt::Key_Down, Qt::ShiftModifier);
        EXPECT_FALSE(window.find<QWidget>("cmdView").isEnabled());
        window.click("cmdRestore");
        EXPECT_EQ(window.find<QLabel>("lblOutcome").text(), u"2 Documents were restored."_s);
        EXPECT_EQ(window.text("lstKinds"), "Documents (3)|Events (0)|Organizations (0)");
        EXPECT_EQ(window.text("lvDeleted"), "Ancient|\n*Two|06/15/2005 12:01:00\nZero|06/15/2005 12:01:00");
        EXPECT_EQ(journey.column(0), "One|Tea & \"Cake\"") << "at once";
        window.find<QListWidget>("lstKinds").setCurrentRow(1);
        EXPECT_EQ(window.find<QLabel>("lblEmptyResult").text(), u"There are no deleted events."_s);
        EXPECT_FALSE(window.find<QWidget>("cmdRestore").isEnabled());
        window.click("cmdClose");
    });
    EXPECT_EQ(text("mnuRecordUndo"), "&Undo Restore of 2 Documents");
    undo();
    EXPECT_EQ(rows("SELECT count(*) FROM Document WHERE dStatus = 'DELETED'"), "4");
}

} // namespace

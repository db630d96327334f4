// SPDX-License-Identifier: GPL-3.0-or-later

#include "DocumentJourney.h"
#include "editors/RecordEditors.h"

namespace {

class DocumentEditor : public DocumentJourney
{
};

TEST_F(DocumentEditor, SaysWhatIsMissingAndGoesThere)
{
    messages().expectMessage(u"Document title is required."_s);
    messages().expectMessage(u"Document description is required."_s);
    messages().expectMessage(u"Document filename is required. Please browse to select your document file."_s);
    messages().expectMessage(
        u"Document with identical title already exists. Please choose a different title."_s);
    inEditor("mnuRecordAddNewDocument", [&](OpenDialog& dialog) {
        EXPECT_EQ(dialog.focus(), "txtDocumentName");
        dialog.find<QWidget>("txtVolume").setFocus();
        dialog.click("cmdOK");
        EXPECT_EQ(dialog.focus(), "txtDocumentName");
        dialog.type("txtDocumentName", u"OLD LEVEES"_s);
        dialog.press(Qt::Key_Return);
        EXPECT_EQ(dialog.focus(), "rtbDocumentDescription");
        dialog.type("rtbDocumentDescription", u"Again"_s);
        dialog.click("cmdOK");
        EXPECT_EQ(dialog.focus(), "txtOriginalFilename");
        dialog.type("txtOriginalFilename", source);
        dialog.click("cmdOK");
        EXPECT_EQ(dialog.focus(), "txtDocumentName");
        EXPECT_EQ(dialog.text("rtbDocumentDescription"), "Again");
        discard(dialog, messages());
    });
    EXPECT_EQ(rows("SELECT count(*) FROM Document"), "2");
}

TEST_F(DocumentEditor, ShowsARecordAndTurnsIntoItsEditor)
{
    journey.list().setCurrentIndex(journey.list().model()->index(0, 0));
    inEditor("mnuRecordView", [&](OpenDialog& dialog) {
        EXPECT_EQ(dialog.find<QLineEdit>("txtDocumentName").cursorPosition(), 0)
            << "its beginning is in sight";
        const auto lines = [&] {
            QCoreApplication::processEvents();
            const auto& field = dialog.find<QLineEdit>("txtPublication");
            return field.height() / field.fontMetrics().lineSpacing();
        };
        EXPECT_GT(lines(), 3) << "nothing is cut off";
        EXPECT_TRUE(dialog.find<QWidget>("txtURL").font().underline());
        const auto* whole = dialog.find<QWidget>("txtPublication").findChild<QAbstractScrollArea*>();
        EXPECT_EQ(whole->focusPolicy(), Qt::NoFocus) << "the field below has the focus";
        messages().expectMessage(u"Copyright permissions not granted."_s);
        dialog.click("cmdOpenFile");
        messages().finish();
        writeFile(journey.dataFolder() + u"documents/2.html"_s);
        dialog.click("cmdOpenFile");
        EXPECT_EQ(journey.desktop.shell.opened, QStringList{journey.dataFolder() + u"documents/2.html"_s});
        journey.desktop.shell.opened.clear();
        dialog.inDialog("frmOrganization", "cmdViewOrganization", [](OpenDialog& over) {
            EXPECT_EQ(over.title(), "Viewing Organization 8 (Read-Only)");
            over.press(Qt::Key_Escape);
        });
        QTest::mouseClick(&dialog.find<QWidget>("txtURL"), Qt::LeftButton);
        EXPECT_EQ(journey.desktop.shell.opened.join(u' ').toStdString(), "http://levees.example/a b");

        dialog.click("cmdOK");
        EXPECT_EQ(dialog.title(), "Editing DocumentID 2");
        EXPECT_LT(lines(), 3);
        EXPECT_TRUE(dialog.find<QWidget>("lblRequired").isVisible());
        EXPECT_FALSE(dialog.find<QWidget>("cmdOpenFile").isVisible());
        EXPECT_FALSE(dialog.find<QWidget>("cmdViewOrganization").isVisible());
        EXPECT_EQ(dialog.text("cmdOK"), "OK");
        dialog.type("txtAuthor", u"B. Writer"_s);
        dialog.tick("lvVenues", u"Coast"_s);
        EXPECT_EQ(dialog.find<QLineEdit>("txtAuthor").cursorPosition(), 0)
            << "so it is once the field is left";
        dialog.click("cmdClearDocTypes");
        dialog.click("cmdOK");
    });
    EXPECT_EQ(rows("SELECT Author, DocumentDescription, FileLocation, OriginalFilename, KeyDocument, "
                   "FileTypeID, OrganizationID FROM Document WHERE DocumentID = 2"),
              "B. Writer|First line\r\nsecond|2.html|C:\\papers\\old.html|1|4|8")
        << "what was not changed is as it was, to the line end";
    EXPECT_EQ(rows("SELECT DocumentTypeID FROM DocumentTypes WHERE DocumentID = 2"), "1");
}

TEST_F(DocumentEditor, AsksBeforeChangesAreLost)
{
    const QString question = u"Close without saving your changes?"_s;
    inEditor("mnuRecordAddNewDocument", [&](OpenDialog& dialog) { dialog.press(Qt::Key_Escape); });
    inEditor("mnuRecordAddNewDocument", [&](OpenDialog& dialog) {
        fillIn(dialog);
        messages().expectQuestion(question, false, Question::Discard);
        dialog.press(Qt::Key_Escape);
        EXPECT_TRUE(dialog.dialog().isVisible());
        messages().expectQuestion(question, false, Question::Discard);
        dialog.dialog().close();
        EXPECT_TRUE(dialog.dialog().isVisible());
        messages().expectQuestion(question, true, Question::Discard);
        dialog.dialog().close();
    });
    messages().finish();
    inEditor("mnuRecordAddNewDocument", [&](OpenDialog& dialog) { dialog.click("cmdCancel"); });
    inEditor("mnuRecordAddNewDocument", [&](OpenDialog& dialog) {
        dialog.tick("lvVenues", u"City"_s);
        messages().expectQuestion(question, false, Question::Discard);
        dialog.click("cmdCancel");
        EXPECT_TRUE(dialog.dialog().isVisible());
        dialog.tick("lvVenues", u"City"_s);
        dialog.type("cmbOrganizationNames", u"zeb"_s);
        messages().expectQuestion(question, false, Question::Discard);
        dialog.click("cmdCancel");
        discard(dialog, messages());
    });
    EXPECT_EQ(rows("SELECT count(*) FROM Document"), "2");
}

TEST_F(DocumentEditor, TakesTheFirstOrganizationThatHoldsWhatWasTyped)
{
    const struct
    {
        const char* typed;
        const char* shown;
        int key;
    } cases[] = {{"zebra", "Zebra Society", 7},
                 {"levee", "Levee Board", 8},
                 {"levee watch", "Levee Watch", 9},
                 {" LEVEE w ", "Levee Watch", 9},
                 {"nobody", "nobody", 9},
                 {"", "None", 1},
                 {"NONE", "None", 1}};
    const auto byTab = [](OpenDialog& dialog) {
        QTest::keyClick(dialog.dialog().focusWidget(), Qt::Key_Tab);
    };
    const auto byReturn = [](OpenDialog& dialog) {
        QWidget* offers = dialog.find<QComboBox>("cmbOrganizationNames").completer()->popup();
        QTest::keyClick(offers->isVisible() ? offers : dialog.dialog().focusWidget(), Qt::Key_Return);
    };
    inEditor("mnuRecordAddNewDocument", [&](OpenDialog& dialog) {
        auto& combo = dialog.find<QComboBox>("cmbOrganizationNames");
        for (const auto& [typed, shown, key] : cases) {
            dialog.type("cmbOrganizationNames", QString::fromLatin1(typed));
            byTab(dialog);
            EXPECT_EQ(combo.currentText().toStdString(), shown) << "Tab";
            EXPECT_EQ(combo.currentData().toInt(), key) << typed;
            EXPECT_NE(dialog.focus(), "cmbOrganizationNames") << typed;
        }
        dialog.type("cmbOrganizationNames", u"watch"_s);
        EXPECT_EQ(combo.completer()->completionCount(), 1) << "by any part of its name";
        dialog.type("cmbOrganizationNames", u"levee"_s);
        byReturn(dialog);
        EXPECT_EQ(combo.currentText(), u"Levee Board"_s) << "Return";
        EXPECT_TRUE(dialog.dialog().isVisible()) << "Return takes an offer and does not save";
        dialog.type("cmbOrganizationNames", u"levee"_s);
        combo.completer()->popup()->setCurrentIndex(combo.completer()->completionModel()->index(1, 0));
        byReturn(dialog);
        EXPECT_EQ(combo.currentText(), u"Levee Watch"_s) << "the one that is marked";

        for (const bool hasFocus : {false, true}) {
            dialog.find<QWidget>(hasFocus ? "cmbOrganizationNames" : "txtDocumentName").setFocus();
            QWheelEvent turn({4, 4}, combo.mapToGlobal(QPointF(4, 4)), {}, {0, 120}, Qt::NoButton,
                             Qt::NoModifier, Qt::NoScrollPhase, false);
            QApplication::sendEvent(&combo, &turn);
            EXPECT_EQ(combo.currentText() != u"Levee Watch", hasFocus) << "a form that is scrolled past";
        }
        discard(dialog, messages());
    });
}

TEST_F(DocumentEditor, RefusesAnOrganizationThatIsNotInTheList)
{
    inEditor("mnuRecordAddNewDocument", [&](OpenDialog& dialog) {
        fillIn(dialog);
        dialog.choose("cmbOrganizationNames", u"Zebra Society"_s);
        dialog.type("cmbOrganizationNames", u"nobody"_s);
        messages().expectMessage(u"There is no organization \"nobody\". Please choose one from the list."_s);
        dialog.click("cmdOK");
        messages().finish();
        EXPECT_EQ(dialog.focus(), "cmbOrganizationNames");
        EXPECT_EQ(rows("SELECT count(*) FROM Document"), "2") << "nothing is written";
        dialog.type("cmbOrganizationNames", u"levee"_s);
        dialog.click("cmdOK");
    });
    EXPECT_EQ(rows("SELECT OrganizationID FROM Document WHERE DocumentName = 'Levees'"), "8");
}

TEST_F(DocumentEditor, TakesAPresetOrRefusesIt)
{
    auto& editors = journey.find<RecordEditors>("");
    inDialog(
        "frmDocument",
        [&] {
            editors.addDocument(clsFieldInfo{organizationKindWord, 8, u"Levee Board"_s});
        },
        [&](OpenDialog& dialog) {
            EXPECT_EQ(dialog.find<QComboBox>("cmbOrganizationNames").currentData().toInt(), 8);
            dialog.click("cmdCancel");
        });
    messages().expectMessage(u"Invalid FieldName to add to current document"_s);
    inDialog(
        "frmDocument",
        [&] {
            editors.addDocument(clsFieldInfo{documentKindWord, 2, u"Old Levees"_s});
        },
        [&](OpenDialog& dialog) {
            EXPECT_EQ(dialog.text("cmbOrganizationNames"), "");
            dialog.click("cmdCancel");
        });
}

TEST_F(DocumentEditor, SaysThatARecordIsGoneOrOutOfRange)
{
    auto& editors = journey.find<RecordEditors>("");
    messages().expectMessage(u"Document 99 not found"_s);
    inDialog(
        "frmDocument", [&] { editors.view(RecordKind::Document, 99); },
        [](OpenDialog& dialog) {
            EXPECT_EQ(dialog.text("txtDocumentName"), "");
            dialog.press(Qt::Key_Escape);
        });
    messages().expectMessage(u"populateFields Error (6): Overflow"_s);
    editors.edit(RecordKind::Document, 32768);
    messages().finish();
}

} // namespace

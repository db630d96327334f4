// SPDX-License-Identifier: GPL-3.0-or-later

// What the user chooses in the window of an export is what stands in the file.

#include "Journey.h"
#include "support/SizeLimit.h"

namespace {

class Exports : public testing::Test
{
protected:
    Exports()
    {
        journey.database.runFile("journeys/rows/Buttons.sql");
        journey.database.run("INSERT INTO FileTypes VALUES (1, 'None'), (2, 'PDF');"
                             "INSERT INTO Document (DocumentID, DocumentName, Author, dStatus) "
                             "VALUES (4, 'Coast', '=1+1', 'ACTIVE')");
        QDir(journey.database.folder()).mkdir(u"out"_s);
        journey.start();
    }

    [[nodiscard]] QString path(const char* name) const
    {
        return journey.database.folder() + u"/out/"_s + QString::fromUtf8(name);
    }

    /// Opens the window and chooses in it by keys, capitals with Alt, then exports into a file of that name.
    /// Returns what `written` holds, or that file.
    std::string exportTo(const char* name, const char* keys = "", const char* written = nullptr)
    {
        journey.desktop.fileDialogs.files = {path(name)};
        inDialog(
            "frmExport", [this] { pressExport(); },
            [keys](OpenDialog& open) {
                for (const char* key = keys; *key != '\0'; ++key)
                    press(open.dialog(), *key);
                open.press(Qt::Key_Return);
            });
        journey.desktop.messages.finish();
        return contentOf(path(written == nullptr ? name : written)).toStdString();
    }

    /// A button stays down for a moment before it does what it says.
    static void press(QWidget& dialog, char key)
    {
        QTest::keyClick(dialog.focusWidget(), key, key < 'a' ? Qt::AltModifier : Qt::NoModifier);
        const auto buttons = dialog.findChildren<QAbstractButton*>();
        EXPECT_TRUE(QTest::qWaitFor([&] {
            return std::none_of(buttons.begin(), buttons.end(), std::mem_fn(&QAbstractButton::isDown));
        }));
    }

    void pressExport()
    {
        QTest::keyClick(journey.program->window(), Qt::Key_X, Qt::ControlModifier | Qt::ShiftModifier);
    }

    void searchFor(const QString& word)
    {
        journey.trigger("mnuSearchKeyword");
        journey.find<QLineEdit>("txtKeywords").setText(word);
        journey.find<QAbstractButton>("cmdGO").click();
    }

    std::string choicesOf(const char* view)
    {
        std::string choices;
        journey.trigger(view);
        journey.inDialog("frmExport", "mnuRecordExport", [&](OpenDialog& open) {
            for (const char* option : {"optFields(1)", "chkForSpreadsheet"})
                choices += open.find<QAbstractButton>(option).isChecked() ? '1' : '0';
            open.press(Qt::Key_Escape);
        });
        return choices;
    }

    [[nodiscard]] std::string entries() const
    {
        return QDir(path("")).entryList(QDir::Files, QDir::Name).join(u'|').toStdString();
    }

    std::string changed() { return journey.find<QLabel>("pnlSaved").text().toStdString(); }

    /// Why the command cannot be used; empty if it can.
    std::string hindrance()
    {
        const auto& command = journey.find<QAction>("mnuRecordExport");
        return command.isEnabled() ? "" : command.toolTip().section(u'\n', -1).toStdString();
    }

    Journey journey;
};

TEST_F(Exports, HoldTheRecordsAndFieldsThatWereChosen)
{
    const std::string otherTitles = ",Key,Author,Date,File,Source\r\n";
    const std::string titles = "\"Title\"" + otherTitles;
    const std::string atlas = "Atlas,,,,PDF,\r\n";
    const std::string brief = "Brief,,,,PDF,\r\n";
    const std::string coast = "Coast,,=1+1,,None,\r\n";
    journey.trigger("mnuViewDocuments");
    QHeaderView& header = *journey.list().findChild<QHeaderView*>();
    for (int click = 0; click < 2; ++click)
        QTest::mouseClick(header.viewport(), Qt::LeftButton, {}, QPoint(20, header.height() / 2));
    EXPECT_EQ(exportTo("list.csv", "TP"), titles + coast + brief + atlas) << "in the order of the list";
    EXPECT_EQ(journey.desktop.fileDialogs.proposed.back(), u"View ALL Documents.csv"_s);
    EXPECT_TRUE(QString::fromStdString(changed()).startsWith(u"Exported: list.csv (3 records, "_s))
        << changed();
    journey.select("Brief");
    EXPECT_EQ(exportTo("preset.csv"), exportTo("list.csv", "L")) << "one row may be selected by chance";
    EXPECT_EQ(exportTo("one.csv", "S"), titles + brief);
    QTest::keyClick(&journey.list(), Qt::Key_Down, Qt::ShiftModifier);
    EXPECT_EQ(exportTo("several.csv"), titles + brief + atlas);

    searchFor(u"brief"_s);
    EXPECT_EQ(exportTo("found.csv"), titles + brief);
    journey.select("Brief");
    EXPECT_EQ(exportTo("one.csv", "S"), titles + brief);
    EXPECT_EQ(journey.desktop.fileDialogs.proposed.back(), journey.viewPanel().remove(u'"') + u".csv"_s);
    EXPECT_EQ(exportTo("all.csv", "A"), titles + atlas + brief + coast);
    EXPECT_EQ(journey.desktop.fileDialogs.proposed.back(), u"View ALL Documents.csv"_s);
    EXPECT_EQ(exportTo("fields.csv", "AD").substr(0, 11), "\"ID\",Title,");

    journey.trigger("mnuViewDocuments");
    QTest::keyClicks(&journey.find<QLineEdit>("txtFilter"), u"co"_s);
    EXPECT_EQ(exportTo("filtered.csv", "TL"), titles + coast);
    EXPECT_EQ(journey.desktop.fileDialogs.proposed.back(), u"View ALL Documents, filtered co.csv"_s);
    EXPECT_EQ(exportTo("spreadsheet.csv", "ATP"),
              "\xEF\xBB\xBFTitle" + otherTitles + atlas + brief + "Coast,,'=1+1,,None,\r\n");
}

TEST_F(Exports, OfAPageHaveThePictureOfWhatItLists)
{
    journey.trigger("mnuViewEvents");
    const auto hasPicture = [this](const char* keys) {
        return exportTo("page.html", keys).find("<img ") != std::string::npos;
    };
    EXPECT_TRUE(hasPicture("Fp")); // the format by the letter that its title begins with
    EXPECT_FALSE(hasPicture("W"));
    EXPECT_TRUE(hasPicture("W"));
    EXPECT_FALSE(hasPicture("A")) << "the graphic need not show all records";
    EXPECT_NE(exportTo("page.html").find("<title>View ALL Events</title>"), std::string::npos);
}

TEST_F(Exports, OfferAgainWhatWasChosenForTheKind)
{
    EXPECT_EQ(choicesOf("mnuViewDocuments"), "01");
    exportTo("a.csv", "TP");
    EXPECT_EQ(choicesOf("mnuViewEvents"), "01");
    exportTo("b.csv", "P");
    journey.program.reset();
    journey.start();
    EXPECT_EQ(choicesOf("mnuViewDocuments"), "10");
    EXPECT_EQ(choicesOf("mnuViewEvents"), "00");
    EXPECT_EQ(choicesOf("mnuViewOrganizations"), "01");
}

TEST_F(Exports, ReplaceAFileOnlyIfTheUserSaysSoAndOnlyByAWholeOne)
{
    const std::string old = "what was there";
    journey.addDocuments(600);
    journey.trigger("mnuViewDocuments");
    writeFile(path("mine.txt.csv"), QByteArray::fromStdString(old));
    const QString question = u"%1 already exists.\n\nDo you want to replace it?"_s.arg(path("mine.txt.csv"));
    journey.desktop.fileDialogs.files = {QString(), path("mine.txt")};
    journey.desktop.messages.expectQuestion(question, false, Question::Loss);
    journey.inDialog("frmExport", "mnuRecordExport", [](OpenDialog& open) {
        for (int chosen = 0; chosen < 2; ++chosen) {
            open.click("cmdOK");
            EXPECT_TRUE(open.dialog().isVisible()) << "without a file, the choices are still there";
        }
        open.press(Qt::Key_Escape);
    });
    exportTo("whole.csv");
    EXPECT_NE(changed(), "");
    journey.desktop.works.cancelAfter = 2;
    EXPECT_EQ(exportTo("mine.txt.csv"), old);
    EXPECT_EQ(changed(), "");
    journey.desktop.works.cancelAfter.reset();
    {
        const SizeLimit full(5000);
        journey.desktop.messages.expectMessage(
            u"exportRecords Error (27): File too large (%1)"_s.arg(path("mine.txt.csv")));
        EXPECT_EQ(exportTo("mine.txt.csv"), old);
    }
    journey.desktop.messages.expectMessageBeginning(u"exportRecords Error (2): "_s);
    exportTo("nowhere/mine.csv");
    journey.desktop.messages.expectQuestion(question, true, Question::Loss);
    EXPECT_NE(exportTo("mine.txt", "", "mine.txt.csv"), old);
    EXPECT_EQ(entries(), "mine.txt.csv|whole.csv");
}

TEST_F(Exports, AreOfWhatIsThere)
{
    EXPECT_EQ(hindrance(), "This page has no list of records.");
    journey.trigger("mnuViewDocuments");
    EXPECT_EQ(hindrance(), "");
    journey.database.run("UPDATE Document SET dStatus = 'DELETED' WHERE DocumentID = 2");
    exportTo("list.csv", "T");
    EXPECT_TRUE(QString::fromStdString(changed()).endsWith(u" 1 record is no longer there."_s)) << changed();

    journey.addDocuments(1200);
    std::string meanwhile;
    QTimer::singleShot(0, [&] { meanwhile = hindrance(); }); // at the first yield
    journey.trigger("mnuViewRefresh");
    EXPECT_EQ(meanwhile, "The list is still being read.");
    EXPECT_EQ(hindrance(), "");

    const auto offered = [this](const char* view) {
        std::string options;
        journey.trigger(view);
        journey.inDialog("frmExport", "mnuRecordExport", [&](OpenDialog& open) {
            for (const char* option : {"optRecords(0)", "optRecords(1)", "optRecords(2)", "cmdOK"}) {
                const auto& button = open.find<QAbstractButton>(option);
                options += button.isChecked() ? '*' : button.isEnabled() ? '+' : '-';
            }
            open.press(Qt::Key_Escape);
        });
        return options;
    };
    EXPECT_EQ(offered("mnuViewEvents"), "*-++");
    searchFor(u"nothing of the kind"_s);
    EXPECT_EQ(offered("mnuViewRefresh"), "--*+") << "a list without records";
    journey.database.run("UPDATE Organization SET Status = 'DELETED'");
    EXPECT_EQ(offered("mnuViewOrganizations"), "--*-") << "a kind without records";
}

} // namespace

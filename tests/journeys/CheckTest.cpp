// SPDX-License-Identifier: GPL-3.0-or-later

#include "Journey.h"
#include "backup/KeptBackups.h"
#include "util/Sha256.h"

namespace {

class Check : public ::testing::Test
{
protected:
    Check() { QStandardPaths::setTestModeEnabled(true); }

    ScriptedMessages& messages() { return journey.desktop.messages; }
    QString data(const char* name) const { return journey.dataFolder() + QString::fromUtf8(name); }

    /// Adds a document with a file that the program took in with that content.
    void addFile(int identifier, const char* name, const char* content)
    {
        journey.database.run(
            u"INSERT INTO Document (DocumentID, DocumentName, FileLocation, dStatus) VALUES (%1, "
            "'%2', '%1.pdf', 'ACTIVE')"_s.arg(QString::number(identifier), QString::fromUtf8(name)));
        journey.database.run(
            u"INSERT INTO Journal (Step, Moment, What, Kind, Identifier, Title, After, UndoStep, "
            "RedoStep) VALUES (%1, '2005-06-15 12:00:00', 'change', 'Uploads', %1, '%2', "
            "'{\"Uploads\":[{\"Folder\":\"documents\",\"Name\":\"%1.pdf\",\"Hash\":\"%3\"}]}', "
            "0, 0)"_s.arg(QString::number(identifier), QString::fromUtf8(name),
                          QString::fromLatin1(Sha256::of(content).toHex())));
    }

    /// All that the window shows, as Copy has it.
    static std::string shown(OpenDialog& window)
    {
        auto& tree = window.find<QTreeView>("tvwChecks");
        EXPECT_TRUE(QTest::qWaitFor([&] { return !window.find<QWidget>("cmdStop").isVisible(); }, 20000));
        tree.selectAll();
        QTest::keyClick(&tree, Qt::Key_C, Qt::ControlModifier);
        return QGuiApplication::clipboard()->text().toStdString();
    }

    /// Selects the finding that begins so.
    static void select(OpenDialog& window, const char* text)
    {
        auto& tree = window.find<QTreeView>("tvwChecks");
        const QModelIndexList found =
            tree.model()->match(tree.model()->index(0, 0), Qt::DisplayRole, QString::fromUtf8(text), 1,
                                Qt::MatchStartsWith | Qt::MatchRecursive);
        ASSERT_FALSE(found.isEmpty()) << text;
        tree.selectionModel()->setCurrentIndex(found.front(), QItemSelectionModel::ClearAndSelect |
                                                                  QItemSelectionModel::Rows);
    }

    void garble(const QByteArray& text) const
    {
        constexpr qsizetype page = 4096;
        QByteArray content = journey.database.bytes();
        for (qsizetype at = content.indexOf(text); at >= 0; at = content.indexOf(text))
            content.replace(at / page * page, page, QByteArray(page, 'x'));
        writeFile(journey.database.fileName(), content);
    }

    Journey journey;
};

constexpr auto withFaults =
    "Structure of the database: Nothing found\n"
    "References within the database: 1 finding\n"
    "\tRow 1 of DocumentTypes refers to a row of DocumentType that is not there.\n"
    "Links without a record: 1 finding\n"
    "\tDocument \"Atlas\" (2) is linked to document type 77, which does not exist.\n"
    "Unreadable dates: Nothing found\n"
    "History without a record: Nothing found\n"
    "Missing files: 1 finding\n"
    "\tDocument \"Atlas\" (2) names the file 2.pdf, which is not in the folder documents.\n"
    "Files that no record names: 1 finding\n"
    "\tThe file documents/stray.txt belongs to no record.\n"
    "Texts of the files: Nothing found\n"
    "\t1 file has not been read yet.\n";

TEST_F(Check, SaysThatChecksCouldNotBeMade)
{
    journey.start();
    const QString file = journey.database.fileName();
    ASSERT_TRUE(QFile::rename(file, file + u".away"_s));
    journey.inDialog("frmCheck", "mnuCheckCollection", [](OpenDialog& window) {
        shown(window);
        EXPECT_EQ(window.find<QLabel>("lblOutcome").text(),
                  u"Nothing was found. 8 checks could not be made to their end."_s);
        window.click("cmdClose");
    });
}

TEST_F(Check, ShowsWhatItFindsAndTakesTheStepOfEachFinding)
{
    addFile(2, "Atlas", "atlas");
    addFile(3, "Brief", "brief");
    writeFile(data("documents/3.pdf"), "changed");
    writeFile(data("documents/stray.txt"), "stray");
    // enough for SQLite's own checks to go on while the others are shown
    journey.database.run(
        u"WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 40000) "
        "INSERT INTO Document_HIST (DocumentID, DocumentName) SELECT 2, printf('%.*c', 900, 'x') "
        "FROM n"_s);
    const QTemporaryDir place;
    const QString elsewhere = place.path();
    writeFile(elsewhere + u"/old/a"_s, "atlas");
    writeFile(elsewhere + u"/old/b"_s, "brief");
    journey.database.run("INSERT INTO DocumentTypes VALUES (2, 77)");
    journey.start();
    const auto expectFound = [&](const char* name, const char* file, bool answer) {
        journey.desktop.fileDialogs.folders = {elsewhere};
        messages().expectQuestion(
            u"%1/old/%2 holds what documents/%3 held when it was added.\n\nDo you want to "
            "copy it there? If a file is there, it is put aside."_s.arg(elsewhere, QString::fromUtf8(name),
                                                                        QString::fromUtf8(file)),
            answer);
    };
    journey.inDialog("frmCheck", "mnuCheckCollection", [&](OpenDialog& window) {
        auto& tree = window.find<QTreeView>("tvwChecks");
        const QAbstractItemModelTester tester(tree.model(),
                                              QAbstractItemModelTester::FailureReportingMode::Fatal);
        EXPECT_EQ(shown(window), withFaults);
        auto& step = window.find<QPushButton>("cmdStep");
        EXPECT_FALSE(step.isEnabled()) << "for more than one";

        select(window, "Document \"Atlas\" (2) is linked to");
        inDialog(
            "frmDocument", [&] { QTest::keyClick(&tree, Qt::Key_Return); },
            [](OpenDialog& record) {
                EXPECT_EQ(record.title(), "Viewing DocumentID 2 (Read-Only)");
                record.click("cmdCancel");
            });

        select(window, "Document \"Atlas\" (2) names the file");
        EXPECT_EQ(step.text(), u"&Find File…"_s);
        journey.desktop.fileDialogs.folders = {QString(), data("documents")};
        step.click();
        messages().expectMessage(
            u"No file in the folder %1 holds what documents/2.pdf held when it was added."_s.arg(
                data("documents")));
        step.click();
        expectFound("a", "2.pdf", false);
        step.click();
        EXPECT_FALSE(QFile::exists(data("documents/2.pdf")));
        expectFound("a", "2.pdf", true);
        step.click();
        EXPECT_EQ(contentOf(data("documents/2.pdf")), "atlas");
        EXPECT_FALSE(step.isEnabled()) << "it is done";

        select(window, "The file documents/stray.txt");
        EXPECT_EQ(step.text(), u"&Put File Aside"_s);
        QTest::keyClick(&tree, Qt::Key_Return);
        EXPECT_FALSE(QFile::exists(data("documents/stray.txt")));
        EXPECT_EQ(contentOf(data("aside/documents/stray.txt")), "stray");

        window.click("cmdCheckFiles");
        EXPECT_EQ(
            QString::fromStdString(shown(window)).section(u"Missing"_s, 1).toStdString(),
            " files: Nothing found\nFiles that no record names: Nothing found\nTexts of the files: Nothing "
            "found\n\t2 files have not been read yet.\nContent of the records: Nothing "
            "found\nContent of the files: 1 finding\n\tDocument \"Brief\" (3): the file documents/3.pdf is "
            "not what it was when it was taken in.\n");
        select(window, "Document \"Brief\" (3): the file");
        expectFound("b", "3.pdf", true);
        step.click();
        EXPECT_EQ(contentOf(data("documents/3.pdf")), "brief");
        EXPECT_EQ(contentOf(data("aside/documents/3.pdf")), "changed");
        window.press(Qt::Key_Escape);
    });
}

/// A database of which a page with documents is overwritten.
class Damage : public Check
{
protected:
    Damage()
    {
        journey.database.run(
            "WITH RECURSIVE n(i) AS (VALUES (100) UNION ALL SELECT i + 1 FROM n WHERE i < 199) "
            "INSERT INTO Document (DocumentID, DocumentName, DocumentDescription, dStatus) "
            "SELECT i, 'Report ' || i, 'text ' || i || hex(zeroblob(600)), 'ACTIVE' FROM n");
        writeFile(data("documents/100.pdf"), "report");
    }

    void damage()
    {
        const ProgramFolder folder(journey.database.folder());
        KeptBackups(folder).add(journey.database.fileName(), folder, journey.desktop.clock.moment);
        garble("Report 150");
    }

    void expectQuestion(const QString& cause, const char* state, std::optional<int> answer)
    {
        messages().expectChoice(u"The database is damaged%1\n\n%2\n\nIts newest backup was made on "
                                u"06/15/2005 12:00. Do you want to "
                                "restore that, or to rescue what can still be read? Either becomes a new "
                                "collection; the damaged one "
                                "stays as it is."_s.arg(cause, QString::fromUtf8(state)),
                                {u"Restore the &Backup"_s, u"&Rescue What Can Be Read"_s}, answer);
    }

    void expectReadFailure()
    {
        messages().expectMessage(u"showDocuments Error (11): database disk image is malformed (%1)"_s.arg(
            journey.database.fileName()));
    }

    const char* open = "It is open for reading, as far as it can be read.";
    QString file = data("test.sqlite");
};

TEST_F(Damage, IsAskedAboutOnceWhenItIsMetAndLeavesTheDatabaseToBeRead)
{
    damage();
    const QByteArray before = journey.database.bytes();
    journey.start();
    expectReadFailure();
    expectQuestion(u". (%1)"_s.arg(file), open, std::nullopt);
    journey.trigger("mnuViewDocuments");
    Journey::idle();
    messages().finish();
    EXPECT_TRUE(journey.program->window()->windowTitle().endsWith(u"[read-only]"_s));
    EXPECT_FALSE(journey.find<QAction>("mnuRecordAddNewEvent").isEnabled());
    expectReadFailure();
    journey.trigger("mnuViewRefresh");
    Journey::idle();
    EXPECT_TRUE(journey.database.bytes() == before);
}

TEST_F(Damage, BackupAndRescueBecomeCollectionsWithTheFiles)
{
    damage();
    const QByteArray before = journey.database.bytes();
    const char* messagesOf[] = {
        "The backup of 06/15/2005 12:00 was restored into a new collection in the folder ",
        "What could be read was rescued into a new collection in the folder "};
    for (int answer = 0; answer < 2; ++answer) {
        const char* message = messagesOf[answer];
        SCOPED_TRACE(message);
        journey.program.reset();
        journey.start();
        expectReadFailure();
        expectQuestion(u". (%1)"_s.arg(file), open, answer);
        messages().expectMessageBeginning(QString::fromUtf8(message));
        journey.trigger("mnuViewDocuments");
        Journey::idle();
        messages().finish();
        const QString opened = journey.program->state().session.fileName();
        EXPECT_NE(opened, file);
        EXPECT_FALSE(journey.program->state().session.isReadOnly());
        journey.trigger("mnuViewDocuments");
        // those of which only an index knows something are shown too
        EXPECT_EQ(journey.statusPanel(), u"Displaying 100 Documents"_s);
        EXPECT_EQ(contentOf(QFileInfo(opened).path() + u"/documents/100.pdf"_s), "report");
        EXPECT_TRUE(journey.database.bytes() == before);
    }
}

TEST_F(Damage, IsFoundByTheCheck)
{
    damage();
    journey.start();
    messages().heard.emplace();
    std::string found;
    journey.inDialog("frmCheck", "mnuCheckCollection", [&](OpenDialog& window) {
        found = shown(window);
        window.click("cmdClose");
    });
    ASSERT_EQ(messages().heard->size(), 1) << found;
    EXPECT_TRUE(messages().heard->front().startsWith(u"The database is damaged: "_s));
    EXPECT_TRUE(journey.program->state().session.isReadOnly());
}

TEST_F(Damage, OfTheWholeFileLeavesTheBackup)
{
    damage();
    const QByteArray whole = journey.database.bytes();
    writeFile(journey.database.fileName(), whole.first(whole.size() / 2));
    expectQuestion(u": database disk image is malformed (%1)"_s.arg(file), "It cannot be opened.", 0);
    messages().expectMessageBeginning(
        u"The backup of 06/15/2005 12:00 was restored into a new collection in the folder "_s);
    journey.start();
    messages().finish();
    EXPECT_EQ(journey.historyMenu(), "[Home Page]");
    journey.trigger("mnuViewDocuments");
    EXPECT_EQ(journey.statusPanel(), u"Displaying 100 Documents"_s);
}

} // namespace

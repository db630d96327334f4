// SPDX-License-Identifier: GPL-3.0-or-later

#include "Journey.h"
#include "backup/CollectionRestore.h"
#include "backup/KeptBackups.h"
#include "files/ProgramFolder.h"
#include "opening/StartRequest.h"
#include "support/SizeLimit.h"

namespace {

class BackupJourney : public testing::Test
{
protected:
    ScriptedMessages& messages() { return journey.desktop.messages; }
    [[nodiscard]] QString path(const char* name) const
    {
        return journey.database.folder() + u'/' + QString::fromUtf8(name);
    }

    /// The names of what is in a folder, joined by `|`.
    [[nodiscard]] std::string entries(const char* folder) const
    {
        return QDir(path(folder))
            .entryList(QDir::AllEntries | QDir::NoDotAndDotDot, QDir::Name)
            .join(u'|')
            .toStdString();
    }

    QString changed() { return journey.find<QLabel>("pnlSaved").text(); }

    Journey journey;
};

class BackupCommandsJourney : public BackupJourney
{
protected:
    BackupCommandsJourney()
    {
        journey.database.runFile("journeys/rows/Buttons.sql");
        writeFile(path("Rivers/data/documents/2.pdf"), QByteArray(30'000, 'a'));
        writeFile(path("Rivers/data/orgcharts/2.pdf"), "chart");
        QFile::copy(journey.database.fileName(), path("Rivers/data/Rivers.sqlite"));
        QDir().mkpath(path("archives"));
    }

    void start(bool readOnly = false)
    {
        StartRequest request;
        request.readOnly = readOnly;
        journey.start(u"../Rivers/data/Rivers.sqlite"_s, request);
    }

    void backUpTo(const char* file)
    {
        journey.desktop.fileDialogs.files = {path(file)};
        journey.trigger("mnuBackUp");
        messages().finish();
    }

    void restore(const QString& file)
    {
        journey.desktop.fileDialogs.files = {file};
        journey.trigger("mnuRestore");
        messages().finish();
    }

    void expectRestored(const char* archive, const char* folder, const char* rest)
    {
        messages().expectMessage(
            u"%1 was restored into a new collection in the folder %2.\n\nIt holds 2 documents, 1 event, 1 "
            "organization. %3"_s.arg(QString::fromUtf8(archive), path(folder), QString::fromUtf8(rest)));
    }

    [[nodiscard]] std::map<QString, QByteArray> filesIn(const char* folder) const
    {
        std::map<QString, QByteArray> files;
        QDirIterator all(path(folder), QDir::Files, QDirIterator::Subdirectories);
        while (all.hasNext()) {
            const QString file = all.next();
            if (!file.endsWith(u".sqlite"_s))
                files[QDir(path(folder)).relativeFilePath(file)] = contentOf(file);
        }
        return files;
    }
};

TEST_F(BackupCommandsJourney, WriteAnArchiveWhereTheUserWantsIt)
{
    start();
    journey.desktop.fileDialogs.files = {QString()};
    journey.trigger("mnuBackUp");
    EXPECT_EQ(journey.desktop.fileDialogs.proposed, QStringList(u"Rivers 2005-06-15.zip"_s));
    for (const char* inside : {"Rivers/data/mine.zip", "Rivers/data/documents/mine"}) {
        messages().expectMessageBeginning(
            u"backUp Error (22): A backup cannot lie among the files of its collection. "_s);
        backUpTo(inside);
    }
    journey.desktop.works.cancelAfter = 6;
    backUpTo("archives/mine.tar.zst");
    EXPECT_EQ(entries("archives"), "");
    journey.desktop.works.cancelAfter.reset();
    EXPECT_EQ(changed(), QString());
    backUpTo("archives/mine"); // without an ending
    EXPECT_EQ(entries("archives"), "mine.zip");
    EXPECT_TRUE(changed().startsWith(u"Backed up: mine.zip (3 files, "_s)) << changed().toStdString();

    const QByteArray first = contentOf(path("archives/mine.zip"));
    journey.desktop.clock.moment = journey.desktop.clock.moment.addDays(1);
    for (const bool replaces : {false, true}) {
        messages().expectQuestion(
            u"%1 already exists.\n\nDo you want to replace it?"_s.arg(path("archives/mine.zip")), replaces,
            Question::Loss);
        backUpTo("archives/mine");
        EXPECT_EQ(contentOf(path("archives/mine.zip")) != first, replaces);
    }
    messages().expectMessageBeginning(u"backUp Error ("_s);
    backUpTo("nowhere/mine.zip");
    EXPECT_EQ(entries("Rivers/data"), "Rivers.sqlite|documents|orgcharts");
}

TEST_F(BackupCommandsJourney, MakeANewCollectionOfAnArchive)
{
    start(true);
    backUpTo("archives/mine.tar.zst");
    for (int steps = 0; steps < 12; ++steps) {
        journey.desktop.works.cancelAfter = steps;
        restore(path("archives/mine.tar.zst"));
        EXPECT_EQ(entries(""), "Rivers|archives|data|test.sqlite") << "something is left after " << steps;
    }
    journey.desktop.works.cancelAfter.reset();
    EXPECT_EQ(journey.program->state().session.fileName(), path("Rivers/data/Rivers.sqlite"));

    expectRestored(
        "mine.tar.zst", "Rivers 2",
        "3 files were compared and are as they were when they were backed up, on 06/15/2005 at 12:00.");
    restore(path("archives/mine.tar.zst"));
    EXPECT_EQ(journey.program->state().session.fileName(), path("Rivers 2/data/Rivers.sqlite"));
    EXPECT_FALSE(journey.program->state().session.isReadOnly());
    EXPECT_EQ(filesIn("Rivers 2"), filesIn("Rivers"));
    Q_EMIT journey.find<QMenu>("mnuNavigate").aboutToShow();
    EXPECT_EQ(journey.find<QMenu>("mnuRecentDatabases").actions().size(), 2);
}

TEST_F(BackupCommandsJourney, RefuseADamagedArchiveAlsoWhileNothingIsOpen)
{
    start();
    backUpTo("archives/mine.zip");
    QByteArray content = contentOf(path("archives/mine.zip"));
    content[content.size() / 2] = static_cast<char>(content[content.size() / 2] ^ 1);
    writeFile(path("archives/mine.zip"), content);
    QDir(path("Rivers")).removeRecursively();
    messages().expectMessageBeginning(u"Form_Load Error (14): "_s);
    start();
    messages().finish();
    EXPECT_FALSE(journey.find<QAction>("mnuBackUp").isEnabled());
    EXPECT_TRUE(journey.find<QAction>("mnuBackUp").toolTip().endsWith(u"\nNo database is open."_s));
    messages().expectMessageBeginning(u"restoreBackup Error ("_s);
    restore(path("archives/mine.zip"));
    EXPECT_EQ(entries(""), "archives|data|test.sqlite");
    EXPECT_FALSE(journey.program->state().session.isOpen());
}

TEST_F(BackupCommandsJourney, BringTheFilesAlongToABackupOfTheDatabaseAlone)
{
    KeptBackups(ProgramFolder(path("Rivers")))
        .add(path("Rivers/data/Rivers.sqlite"), ProgramFolder(path("Rivers")), journey.desktop.clock.now());
    const QString backup = path("Rivers/backups/Rivers 2005-06-15 120000.tar.zst");
    start();
    for (const bool copies : {false, true}) {
        messages().expectQuestion(
            u"The backup holds the database alone. Its collection in the folder %1 has 2 files (30 "
            u"kB).\n\nDo "
            "you want to copy them into the new collection? The originals stay unchanged."_s.arg(
                path("Rivers")),
            copies);
        expectRestored(
            "Rivers 2005-06-15 120000.tar.zst", copies ? "Rivers 3" : "Rivers 2",
            qPrintable(u"The database was compared and is as it was when it was backed up, on "
                       "06/15/2005 at 12:00."_s +
                       (copies ? u" 2 files were copied from %1."_s.arg(path("Rivers")) : QString())));
        restore(backup);
    }
    EXPECT_EQ(filesIn("Rivers 2").size(), 0U);
    EXPECT_EQ(filesIn("Rivers 3/data"), filesIn("Rivers/data"));
}

class AutomaticBackupJourney : public BackupJourney
{
protected:
    AutomaticBackupJourney()
    {
        journey.database.runFile("journeys/rows/Lists.sql");
        journey.addDocuments(40);
        journey.database.run("INSERT INTO DocumentTypes SELECT DocumentID, 3 FROM Document "
                             "WHERE DocumentID BETWEEN 130 AND 137");
    }

    void pass(int seconds) { journey.desktop.clock.moment = journey.desktop.clock.moment.addSecs(seconds); }

    void deleteDocuments(int count)
    {
        journey.trigger("mnuViewDocuments");
        const QAbstractItemModel& model = *journey.list().model();
        const QItemSelection rows(model.index(2, 0), model.index(count + 1, 0));
        journey.list().selectionModel()->select(rows, QItemSelectionModel::ClearAndSelect |
                                                          QItemSelectionModel::Rows);
        const bool isOne = count == 1;
        messages().expectQuestion(
            isOne ? u"Are you sure you want to delete the Document \"%1\"?"_s.arg(
                        model.index(2, 0).data().toString())
                  : u"Are you sure you want to delete the %1 selected Documents?"_s.arg(count),
            true, Question::Loss);
        if (!failure.isEmpty()) messages().expectMessageBeginning(failure);
        messages().expectMessageBeginning(isOne ? u"Document ID "_s
                                                : u"%1 Documents successfully deleted.\n"_s.arg(count));
        journey.trigger("mnuRecordDelete");
        messages().finish();
    }

    void merge(OpenDialog& lists, const QString& from)
    {
        lists.type("txtFilter", from);
        messages().expectQuestion(u"Are you sure you want to merge \"%1\" into \"Map\"?"_s.arg(from), true,
                                  Question::Loss);
        lists.inDialog("frmMergeEntry", "cmdMerge", [](OpenDialog& target) {
            target.type("txtFilter", u"Map"_s);
            target.click("cmdOK");
        });
    }

    void exit()
    {
        messages().expectQuestion(u"Are you sure you want to exit?"_s, true, Question::Loss);
        journey.trigger("mnuNavigateExit");
        messages().finish();
        EXPECT_FALSE(journey.program->window()->isVisible());
    }

    [[nodiscard]] std::string kept() const { return entries("backups"); }

    QString failure; ///< the beginning of a message before the deletion
};

TEST_F(AutomaticBackupJourney, ComesBeforeMoreThanTenRecordsAreDeletedOrMerged)
{
    journey.start();
    deleteDocuments(10);
    EXPECT_EQ(kept(), "");
    deleteDocuments(11);
    ASSERT_EQ(kept(), "test 2005-06-15 120000.tar.zst");
    CollectionRestore restore(path("backups/test 2005-06-15 120000.tar.zst"), path("again"));
    while (restore.step()) {
    }
    EXPECT_EQ(TestDatabase::answer(restore.database(),
                                   u"SELECT count(*) FROM Document WHERE dStatus = 'DELETED'"_s),
              u"11"_s)
        << "the ten and the one of before";
    pass(1);
    journey.desktop.works.cancelAfter = 1;
    deleteDocuments(11);
    EXPECT_EQ(kept(), "test 2005-06-15 120000.tar.zst") << "cancelled, which stops nothing";
    journey.desktop.works.cancelAfter.reset();
    journey.inDialog("frmLists", "mnuRecordLists", [&](OpenDialog& lists) {
        merge(lists, u"Report"_s);
        EXPECT_EQ(kept(), "test 2005-06-15 120000.tar.zst") << "one record";
        merge(lists, u"Study"_s);
        EXPECT_EQ(kept(), "test 2005-06-15 120000.tar.zst|test 2005-06-15 120001.tar.zst");
        lists.click("cmdClose");
    });
}

TEST_F(AutomaticBackupJourney, ThatFindsTheDiskFullStopsNothing)
{
    // room within the file for the deletion, but none for a second file as large
    journey.database.run("CREATE TABLE Large AS SELECT zeroblob(3000000) AS Content;"
                         "CREATE TABLE Last AS SELECT zeroblob(9000) AS Content; DROP TABLE Large");
    journey.start();
    failure = u"The database could not be backed up: "_s;
    {
        const SizeLimit full(static_cast<rlim_t>(QFileInfo(journey.database.fileName()).size() - 4096));
        deleteDocuments(11);
    }
    EXPECT_FALSE(QFileInfo::exists(path("backups")));
    EXPECT_EQ(journey.rows("SELECT count(*) FROM Document WHERE dStatus = 'DELETED'"), "12");
}

TEST_F(AutomaticBackupJourney, ComesAtTheEndOnceADayIfSomethingWasChanged)
{
    constexpr int day = 24 * 60 * 60;
    struct Case
    {
        const char* what;
        int later; ///< seconds after the case before
        bool changes;
        std::size_t kept;
    };
    const Case cases[] = {
        {"nothing was ever changed", 0, false, 0},   {"a change", 5, true, 1},
        {"another one on the same day", 5, true, 1}, {"which the next day takes along", day, false, 2},
        {"nothing is new", day, false, 2},           {"the clock is put back", -400 * day, true, 3},
        {"and nothing is new", day, false, 3},       {"a change before the others", day, true, 4},
    };
    for (const auto& [what, later, changes, count] : cases) {
        SCOPED_TRACE(what);
        pass(later);
        journey.start();
        if (changes) deleteDocuments(1);
        pass(1);
        exit();
        EXPECT_EQ(QDir(path("backups")).entryList(QDir::Files).size(), static_cast<qsizetype>(count));
        journey.program.reset();
    }
    StartRequest toRead;
    toRead.readOnly = true;
    pass(day);
    journey.database.run(
        "INSERT INTO Journal SELECT Number + 1000, Step, '2004-12-31 00:00:00', What, Kind, "
        "Identifier, Title, Reverses, UndoStep, RedoStep, Before, After FROM Journal LIMIT 1");
    journey.start(u"test.sqlite"_s, toRead);
    exit();
    EXPECT_EQ(QDir(path("backups")).entryList(QDir::Files).size(), 4) << "who only reads changes nothing";
}

TEST_F(AutomaticBackupJourney, ComesAlsoWhenAnotherDatabaseIsOpened)
{
    writeFile(path("other/data/other.sqlite"), contentOf(journey.database.fileName()));
    journey.start();
    deleteDocuments(1);
    journey.desktop.fileDialogs.files = {path("other/data/other.sqlite")};
    journey.trigger("mnuOpenDatabase");
    EXPECT_EQ(journey.program->state().session.fileName(), path("other/data/other.sqlite"));
    EXPECT_EQ(kept(), "test 2005-06-15 120000.tar.zst");
}

} // namespace

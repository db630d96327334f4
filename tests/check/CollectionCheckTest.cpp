// SPDX-License-Identifier: GPL-3.0-or-later

#include "check/CheckedCollection.h"
#include "check/FileByHash.h"
#include "check/FindingSteps.h"
#include "journal/UndoSteps.h"
#include "support/AsPlainUser.h"
#include "support/CaseFile.h"

#include <QCryptographicHash>

#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

using testing::HasSubstr;

namespace {

QByteArray sha256(const QByteArray& content)
{
    return QCryptographicHash::hash(content, QCryptographicHash::Sha256);
}

/// What lies in a folder, with moments and contents.
std::map<QString, QByteArray> filesIn(const QString& folder)
{
    std::map<QString, QByteArray> files;
    QDirIterator entries(folder, QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
    while (entries.hasNext()) {
        const QString file = entries.next();
        files[file] =
            QByteArray::number(entries.fileInfo().lastModified().toMSecsSinceEpoch()) + contentOf(file);
    }
    return files;
}

const char* const records =
    "INSERT INTO Document (DocumentID, DocumentName, dStatus) VALUES (57, 'Levees', 'ACTIVE'), (58, 'Old', "
    "'DELETED');"
    "INSERT INTO Event (EventID, EventName, Status, StartDate, StartTime, EndDate, EndTime) "
    "VALUES (9, 'Flood', 'ACTIVE', '2005-06-15', '07:30', '2005-06-16', '07:30:15');"
    "INSERT INTO Organization (OrganizationID, OrganizationName, Status) VALUES (7, 'Board', 'ACTIVE');"
    "INSERT INTO Venue VALUES (3, 'Capitol');";

TEST(CollectionCheck, NamesWhatIsWrong)
{
    for (const auto& [statements, expected] : casesIn("check/cases/faults.txt", 20)) {
        SCOPED_TRACE(statements.toStdString());
        CheckedCollection collection;
        collection.run(QString::fromLatin1(records) + statements);
        std::string found;
        for (CheckResult& result : collection.check()) // SQLite has its own words for what refers to nothing
            if (result.topic != CheckTopic::ForeignKeys) found += CheckedCollection::textOf({result});
        EXPECT_EQ(found, expected.toStdString());
    }
}

TEST(CollectionCheck, AnUndoneAdditionIsNoFault)
{
    CheckedCollection collection;
    const qint64 document = collection.addDocument(u"Levees"_s, "a report");
    const ProgramFolder folder = collection.files();
    UndoSteps undo(collection.session(), collection.clock(), folder);
    EXPECT_EQ(collection.found(), "");
    ASSERT_TRUE(undo.undo().isDone());
    EXPECT_EQ(collection.found(), "");
    collection.run(u"DELETE FROM Journal WHERE Number = 2"_s);
    EXPECT_THAT(collection.found(),
                HasSubstr("history: The journal tells of document " + std::to_string(document)));
}

TEST(CollectionCheck, KnowsTheFilesOfRecordsFromOthers)
{
    CheckedCollection collection;
    collection.run(QString::fromLatin1(records));
    collection.run(u"UPDATE Document SET FileLocation = DocumentID || '.html';"
                   "INSERT INTO Document_HIST (DocumentID, FileLocation) VALUES (57, '57.PDF')"_s);
    for (const char* own : {"documents/57.htm", "documents/57_files/a/b.gif", "documents/58.html",
                            "documents/57.pdf", "documents/.upload-60", "documents/Thumbs.db",
                            "orgcharts/.DS_Store", "orgcharts/former/.replaced-7-0a.pdf"})
        writeFile(collection.data() + QString::fromLatin1(own), "x");
    for (const char* stray : {"documents/59.htm", "documents/59_files/a.gif", "orgcharts/7.pdf",
                              "orgcharts/former/7-0a.pdf", "documents/notes/a.txt"})
        writeFile(collection.data() + QString::fromLatin1(stray), "x");
    std::set<QString> files;
    for (const CheckResult& result : collection.check(CheckScope::Structure)) {
        if (result.topic != CheckTopic::StrayFiles) continue;
        for (const Finding& finding : result.findings)
            files.insert(finding.file);
    }
    const std::set<QString> expected{u"documents/59.htm"_s,
                                     u"documents/59_files"_s,
                                     u"documents/notes"_s,
                                     u"orgcharts/7.pdf"_s,
                                     u"orgcharts/former/.replaced-7-0a.pdf"_s,
                                     u"orgcharts/former/7-0a.pdf"_s};
    EXPECT_EQ(files, expected);
    for (const QString& file : files) {
        const QString aside = FindingSteps::putAside(collection.files(), file);
        EXPECT_TRUE(QFileInfo::exists(aside)) << file.toStdString();
    }
    writeFile(collection.data() + u"documents/59.htm"_s, "another");
    EXPECT_TRUE(FindingSteps::putAside(collection.files(), u"documents/59.htm"_s)
                    .endsWith(u"aside/documents/59-2.htm"_s));
    EXPECT_THAT(collection.found(CheckScope::Structure), testing::Not(HasSubstr("stray")));
    EXPECT_THROW(
        static_cast<void>(FindingSteps::putAside(collection.files(), u"documents/../Rivers.sqlite"_s)),
        Error);
    EXPECT_THROW(static_cast<void>(FindingSteps::putAside(collection.files(), u"Rivers.sqlite"_s)), Error);
}

TEST(CollectionCheck, TellsWhichFilesChangedAndFindsThemAgain)
{
    CheckedCollection collection;
    writeFile(collection.folder() + u"/in/page_files/a.gif"_s, "a picture");
    writeFile(collection.folder() + u"/in/page_files/b.css"_s, "a style");
    const QString page =
        QString::number(collection.addDocument(u"Page"_s, "<img src='page_files/a.gif'>", u"page.htm"_s));
    const QString report = QString::number(collection.addDocument(u"Levees"_s, "a report"));
    EXPECT_EQ(collection.found(), "");
    QDir(collection.folder()).rename(u"in"_s, u"kept"_s);
    writeFile(collection.folder() + u"/kept/empty"_s);

    writeFile(collection.data() + u"documents/%1.txt"_s.arg(report), "a rewort");
    QFile::remove(collection.data() + u"documents/%1_files/a.gif"_s.arg(page));
    writeFile(collection.data() + u"documents/%1_files/b.css"_s.arg(page), "a stile");
    EXPECT_EQ(collection.found(CheckScope::Structure), "");
    EXPECT_EQ(
        collection.found(),
        u"changed-files: Document \"Levees\" (%2): the file documents/%2.txt is not what it was when it was "
        u"taken in.\n"
        "changed-files: Document \"Page\" (%1): the file documents/%1_files/a.gif of its page is missing.\n"
        "changed-files: Document \"Page\" (%1): the file documents/%1_files/b.css is not what it was when it was taken in.\n"_s
            .arg(page, report)
            .toStdString());

    const std::vector<CheckResult> results = collection.check();
    for (const Finding& finding : results.back().findings) {
        FileByHash search(collection.folder() + u"/kept"_s, finding.sha256);
        while (search.step()) {
        }
        ASSERT_TRUE(search.found()) << finding.text.toStdString();
        FindingSteps::bringBack(collection.files(), finding.file, finding.sha256, *search.found());
    }
    EXPECT_EQ(collection.found(), "");
    EXPECT_EQ(contentOf(collection.data() + u"aside/documents/%1.txt"_s.arg(report)), "a rewort");
    FileByHash other(collection.folder(), sha256("in none of them"));
    while (other.step()) {
    }
    EXPECT_FALSE(other.found());
}

/// A file of which nothing is known is read and counted; one that was replaced is known anew, and Undo stays
/// at the step before.
TEST(CollectionCheck, KnowsAFileThatWasReplacedAlone)
{
    CheckedCollection collection;
    const qint64 document = collection.addDocument(u"Levees"_s, "a report");
    const ProgramFolder folder = collection.files();
    DocumentStore store(collection.session(), folder, collection.clock());
    UndoSteps undo(collection.session(), collection.clock(), folder);
    const auto undone = undo.undoable();
    writeFile(collection.folder() + u"/in/a.txt"_s, "a new report");
    DocumentRecord record = store.load(document).record;
    record.takesFile = true;
    ASSERT_FALSE(store.updateDocument(record));
    EXPECT_EQ(collection.found(), "");
    EXPECT_EQ(undo.undoable()->number, undone->number);
    EXPECT_FALSE(undo.redoable());
    ASSERT_TRUE(undo.undo().isDone());
    ASSERT_TRUE(undo.redo().isDone());
    EXPECT_EQ(collection.found(), "");
    collection.run(u"DELETE FROM Journal WHERE Kind = 'Uploads'"_s);
    EXPECT_THAT(collection.found(), HasSubstr("changed-files: "));
    collection.run(u"DELETE FROM Journal"_s);
    EXPECT_EQ(collection.found(), "");
    EXPECT_EQ(collection.check().back().remark.left(12), u"1 file could");
}

TEST(CollectionCheck, TellsOfRecordsThatChangedBehindTheJournal)
{
    CheckedCollection collection;
    const QString id = QString::number(collection.addDocument(u"Levees"_s, "a report"));
    collection.run(u"UPDATE Document SET Author = 'Nobody'"_s);
    EXPECT_EQ(
        collection.found(),
        u"changed-records: Document \"Levees\" (%1) differs from what the journal says was saved last: Author.\n"_s
            .arg(id)
            .toStdString());
    // a change to a list may have done that
    collection.run(u"INSERT INTO Journal VALUES (2, 2, '2005-06-15 12:00:00', 'list', 'Venue', 3, 'Capitol', "
                   u"NULL, 2, 0, "
                   "'{\"DocumentVenues\":[{\"DocumentID\":%1,\"VenueID\":3}]}', NULL)"_s.arg(id));
    EXPECT_EQ(collection.found(), "");
    collection.run(u"UPDATE Journal SET After = '{' WHERE Number = 1"_s);
    EXPECT_EQ(collection.found(), "changed-records: Step 1 of the journal, \"Levees\", cannot be read.\n");
}

TEST(CollectionCheck, GoesOnWhereItWasGivenUp)
{
    CheckedCollection collection;
    for (int i = 0; i < 3; ++i)
        collection.addDocument(u"Document %1"_s.arg(i), "report " + QByteArray::number(i));
    const QString notes = collection.folder() + u"/cache/notes.txt"_s;
    const auto readUntil = [&](qsizetype lines) {
        CollectionCheck check(collection.database(), collection.files(), CheckScope::StructureAndFiles,
                              notes);
        while (check.step()) {
            if (check.text() != checkCaption(CheckTopic::ChangedFiles) || lines < 0) continue;
            if (--lines == 0) return;
        }
    };
    readUntil(6); // the journal, the list, the first file
    const QByteArray noted = contentOf(notes);
    EXPECT_EQ(noted.count('\n'), 1);
    // who reads a file again finds what happened to it since; who goes on does not, unless its time tells
    const QString name = QString::fromUtf8(noted.split('\t').last().trimmed());
    const QString file = collection.data() + name;
    const QDateTime modified = QFileInfo(file).lastModified();
    QByteArray content = contentOf(file);
    content[0] = 'R';
    writeFile(file, content);
    QFile changed(file);
    ASSERT_TRUE(changed.open(QIODevice::ReadWrite));
    ASSERT_TRUE(changed.setFileTime(modified, QFileDevice::FileModificationTime));
    changed.close();
    EXPECT_EQ(CheckedCollection::textOf(collection.check(CheckScope::StructureAndFiles, notes)), "");
    EXPECT_FALSE(QFileInfo::exists(notes)) << "the check came to its end";
    EXPECT_THAT(CheckedCollection::textOf(collection.check(CheckScope::StructureAndFiles, notes)),
                HasSubstr(name.toStdString()));
}

TEST(CollectionCheck, ChangesNothing)
{
    CheckedCollection collection;
    collection.run(QString::fromLatin1(records));
    collection.addDocument(u"Dikes"_s, "a report");
    collection.session().close();
    const auto expectUnchanged = [&](const char* what) {
        SCOPED_TRACE(what);
        const auto before = filesIn(collection.folder());
        EXPECT_EQ(collection.found(), "");
        EXPECT_EQ(filesIn(collection.folder()), before);
    };
    expectUnchanged("a usual file");
    const auto killed = [&](const char* statements) {
        if (fork() == 0) {
            SQLite::Database database(QFile::encodeName(collection.database()).toStdString(),
                                      SQLite::OPEN_READWRITE);
            database.exec(statements);
            _exit(0);
        }
        int status = 0;
        wait(&status);
    };
    killed("PRAGMA cache_size = 1; BEGIN; UPDATE Document SET DocumentName = DocumentName || "
           "printf('%5000c', 'x'); "
           "UPDATE Event SET StartDate = printf('%5000c', 'x'); INSERT INTO EventVenues VALUES (812, 44)");
    ASSERT_GT(QFileInfo(collection.database() + u"-journal"_s).size(), 0);
    expectUnchanged("a change that was not finished");
    collection.run(u"SELECT 1; DELETE FROM EventVenues"_s);
    killed("PRAGMA journal_mode = WAL; UPDATE Event SET Notes = 'n'; INSERT INTO Venue VALUES (8, 'Dock')");
    ASSERT_GT(QFileInfo(collection.database() + u"-wal"_s).size(), 0);
    QFile::remove(collection.database() + u"-shm"_s);
    expectUnchanged("changes in a file of their own");
    collection.run(u"PRAGMA journal_mode = WAL; PRAGMA wal_checkpoint(TRUNCATE)"_s);
    expectUnchanged("write-ahead mode at rest");

    QDirIterator entries(collection.folder(), QDir::Dirs | QDir::NoDotAndDotDot,
                         QDirIterator::Subdirectories);
    QStringList folders{collection.folder()};
    while (entries.hasNext())
        folders << entries.next();
    for (const QString& folder : folders)
        ASSERT_EQ(chmod(QFile::encodeName(folder).constData(), 0555), 0);
    {
        const AsPlainUser user;
        expectUnchanged("a folder that is read-only");
    }
    for (const QString& folder : folders)
        ASSERT_EQ(chmod(QFile::encodeName(folder).constData(), 0755), 0);
}

/// Each check goes as far as it can and says why it ended.
TEST(CollectionCheck, SaysWhatHinderedIt)
{
    CheckedCollection collection;
    collection.run(QString::fromLatin1(records) + u"INSERT INTO DocumentEvents VALUES (57, 812)"_s);
    const QByteArray sound = contentOf(collection.database());
    const struct
    {
        const char* what;
        QByteArray content;
    } cases[] = {{"empty", QByteArray()},
                 {"no database", QByteArray(20000, 'x')},
                 {"cut off", sound.first(sound.size() / 3)},
                 {"damaged schema",
                  QByteArray(sound).replace("CREATE TABLE Document_HIST", "CREATE TABLE Docum(nt_HIST")}};
    for (const auto& [what, content] : cases) {
        SCOPED_TRACE(what);
        writeFile(collection.database(), content);
        CollectionCheck check(collection.database(), collection.files(), CheckScope::StructureAndFiles);
        while (check.step()) {
        }
        EXPECT_FALSE(check.isSound());
        for (const CheckResult& result : check.results())
            EXPECT_TRUE(result.isDone) << checkName(result.topic).toStdString();
        EXPECT_EQ(contentOf(collection.database()), content);
    }
    QFile::remove(collection.database());
    EXPECT_THAT(collection.found(), HasSubstr("changed-files: ! "));

    // a table that cannot be read does not keep the next ones from being looked through
    writeFile(collection.database(), sound);
    const qint64 page = TestDatabase::answer(collection.database(),
                                             u"SELECT rootpage FROM sqlite_master WHERE name = 'Document'"_s)
                            .toLongLong();
    QByteArray damaged = sound;
    damaged.replace((page - 1) * 4096, 8, QByteArray(8, '\0'));
    writeFile(collection.database(), damaged);
    const std::string found = collection.found();
    EXPECT_THAT(found, HasSubstr("links: ! "));
    EXPECT_THAT(found, HasSubstr("integrity: "));
}

TEST(CollectionCheck, TellsOfManyFindingsByTheirNumber)
{
    CheckedCollection collection;
    collection.run(u"WITH RECURSIVE n(i) AS (SELECT 2 UNION ALL SELECT i + 1 FROM n WHERE i < 1251) "
                   "INSERT INTO DocumentEvents SELECT i, i FROM n"_s);
    for (const CheckResult& result : collection.check(CheckScope::Structure)) {
        if (result.topic != CheckTopic::LinksWithoutRecord) continue;
        EXPECT_EQ(result.findings.size(), 1000U);
        EXPECT_EQ(result.count(), 1250);
        EXPECT_THAT(result.remark.toStdString(), HasSubstr("Only the first 1,000 of 1,250 findings"));
    }
}

} // namespace

// SPDX-License-Identifier: GPL-3.0-or-later

#include "files/OldFolder.h"
#include "support/AsPlainUser.h"
#include "support/CaseFile.h"

#include <QElapsedTimer>

#include <chrono>
#include <csignal>
#include <filesystem>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

TEST(SharedFolderSplit, TakesTheFilesThatRecordsNameAndCopiesWhatOthersMayNeed)
{
    // what the databases a, b and c name, the files in their folder, and what is where afterwards
    for (const auto& [what, lines] : casesIn("files/cases/split.txt", 10)) {
        SCOPED_TRACE(what.toStdString());
        QStringList texts = lines.split(u'\n');
        for (QString& text : texts)
            text = text.section(u": "_s, 1);
        const OldFolder folder;
        folder.addDatabase(u"a.sqlite"_s, texts[0]);
        folder.addDatabase(u"b.sqlite"_s, texts[1]);
        folder.addDatabase(u"c.sqlite"_s, texts[2]);
        folder.addFiles(texts[3]);
        const auto result = folder.split(u"a.sqlite"_s);
        EXPECT_EQ(folder.all(), texts[4].toStdString());
        EXPECT_TRUE(result.failed.empty());
        ASSERT_EQ(result.moved.size(), 2);
        EXPECT_EQ(result.moved[1].from, folder.file(u"c.sqlite"_s));
        EXPECT_EQ(result.moved[1].to, folder.place() + u"/c/data/c.sqlite"_s);
        EXPECT_TRUE(folder.split(u"a.sqlite"_s).moved.empty()) << "once";
    }
}

TEST(SharedFolderSplit, LeavesOneDatabaseOfTheProgramInTheFolderAndNoOtherFileElsewhere)
{
    const OldFolder folder;
    folder.addDatabase(u"a.sqlite"_s, u"2.pdf"_s);
    folder.addDatabase(u"x.part"_s, {});
    folder.addDatabase(u"a.version1"_s, {});
    folder.addDatabase(u"a.sqlite.filetext"_s, {});
    folder.addFiles(u"documents/2.pdf"_s);
    writeFile(folder.file(u"old.mdb"_s), "old.Standard Jet DB\nend");
    SQLite::Database(folder.file(u"notes.sqlite"_s).toStdString(),
                     SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE)
        .exec("CREATE TABLE Venue (VenueID, VenueName); INSERT INTO Venue VALUES (1, 'notes.sqlite')");
    const QStringList alone = folder.filesIn(folder.data());
    EXPECT_TRUE(folder.split(u"a.sqlite"_s).stays.isEmpty());
    EXPECT_EQ(folder.filesIn(folder.data()), alone);
    EXPECT_FALSE(QFile::exists(folder.place()));

    // the named one keeps the folder; what is taken keeps its name; a second name is no second database; no
    // index is left without its database
    folder.addDatabase(u"b.db"_s, u"2.pdf"_s);
    folder.addDatabase(u"b.db.filetext"_s, {});
    folder.addDatabase(u"c"_s, {});
    writeFile(folder.place() + u"/a/mine.txt"_s, "a/mine.txt\nend");
    QFile::link(u"b.db"_s, folder.file(u"al.db"_s));
    const auto result = folder.split(u"a.sqlite"_s, u"b.db"_s);
    EXPECT_EQ(result.stays, folder.file(u"b.db"_s));
    EXPECT_EQ(result.movedFiles, 0);
    EXPECT_EQ(result.copiedFiles, 1);
    EXPECT_EQ(folder.filesIn(folder.data()).join(u' ').toStdString(),
              "a.version1 al.db=b.db b.db b.db.filetext documents/2.pdf notes.sqlite old.mdb=old.Standard "
              "Jet DB x.part");
    EXPECT_EQ(folder.filesIn(folder.place()).join(u' ').toStdString(),
              "a 2/data/a.sqlite a 2/data/documents/2.pdf a/mine.txt c/data/c");
}

void allow(mode_t mode, const QStringList& paths)
{
    for (const QString& path : paths)
        ASSERT_EQ(::chmod(QFile::encodeName(path).constData(), mode), 0) << path.toStdString();
}

TEST(SharedFolderSplit, LeavesEverythingAsItWasIfItCannotBeDone)
{
    const OldFolder folder;
    folder.addDatabase(u"a.sqlite"_s, u"2.pdf"_s);
    folder.addDatabase(u"b.sqlite"_s, u"2.pdf 3.pdf"_s, true);
    folder.addDatabase(u"c.sqlite"_s, u"3.pdf 4.pdf"_s, true);
    folder.addFiles(u"documents/2.pdf documents/3.pdf documents/4.pdf"_s);
    // a database that another program changes, of whatever version
    {
        SQLite::Database other(folder.file(u"b.sqlite"_s).toStdString(), SQLite::OPEN_READWRITE);
        other.exec("BEGIN IMMEDIATE");
        const auto result = folder.split(u"a.sqlite"_s);
        ASSERT_EQ(result.failed.size(), 1);
        EXPECT_EQ(result.failed[0].database, folder.file(u"b.sqlite"_s));
    }
    const std::string partly = "a.sqlite b.sqlite documents/2.pdf documents/3.pdf | c/data/c.sqlite "
                               "c/data/documents/3.pdf c/data/documents/4.pdf";
    EXPECT_EQ(folder.all(), partly);

    // a place that cannot be written is told; of a folder that cannot, nothing is said
    allow(0777, {QFileInfo(folder.data()).path() + u"/.."_s, QFileInfo(folder.place()).path(), folder.data(),
                 folder.file(u"documents"_s), folder.file(u"a.sqlite"_s), folder.file(u"b.sqlite"_s),
                 folder.place()});
    for (const bool isTold : {true, false}) {
        allow(0555, {isTold ? folder.place() : folder.data()});
        const AsPlainUser user;
        EXPECT_EQ(folder.split(u"a.sqlite"_s).failed.size(), isTold ? 1 : 0);
        EXPECT_EQ(folder.all(), partly);
    }
    // files that cannot leave their folder are copied
    allow(0777, {folder.data(), folder.place()});
    allow(0555, {folder.file(u"documents"_s)});
    const AsPlainUser user;
    EXPECT_TRUE(folder.split(u"a.sqlite"_s).failed.empty());
    EXPECT_EQ(folder.all(),
              "a.sqlite documents/2.pdf documents/3.pdf | b/data/b.sqlite b/data/documents/2.pdf "
              "b/data/documents/3.pdf c/data/c.sqlite c/data/documents/3.pdf c/data/documents/4.pdf");
}

TEST(SharedFolderSplit, MovesLaterWhatCannotBeMovedNow)
{
    const OldFolder folder;
    folder.addDatabase(u"a.sqlite"_s, {});
    folder.addDatabase(u"b.sqlite"_s, u"2.htm 3.htm"_s);
    folder.addFiles(u"documents/2.htm documents/2_files/x.css documents/3_files/y.css"_s);
    allow(0777, {QFileInfo(folder.data()).path() + u"/.."_s, QFileInfo(folder.place()).path() + u"/."_s,
                 folder.data(), folder.file(u"documents"_s), folder.file(u"a.sqlite"_s),
                 folder.file(u"b.sqlite"_s)});
    {
        const AsPlainUser user;
        const auto result = folder.split(u"a.sqlite"_s);
        ASSERT_EQ(result.failed.size(), 1);
        EXPECT_EQ(result.moved.size(), 1);
        EXPECT_EQ(result.movedFiles, 1);
    }
    // meanwhile a file of that name has come, and another database
    writeFile(folder.place() + u"/b/data/documents/3_files/y.css"_s, "new\nend");
    folder.addDatabase(u"c.sqlite"_s, {});
    EXPECT_TRUE(folder.split(u"a.sqlite"_s).failed.empty());
    EXPECT_EQ(folder.all(),
              "a.sqlite documents/3_files/y.css | b/data/b.sqlite b/data/documents/2.htm "
              "b/data/documents/2_files/x.css b/data/documents/3_files/y.css=new c/data/c.sqlite");
    EXPECT_TRUE(folder.split(u"a.sqlite"_s).moved.empty());
}

TEST(SharedFolderSplit, TakesWhatIsOnlyInAJournalAndFollowsNoLinks)
{
    const OldFolder folder;
    const OldFolder elsewhere;
    folder.addDatabase(u"a.sqlite"_s, {});
    folder.addDatabase(u"b.sqlite"_s, {});
    elsewhere.addDatabase(u"far.sqlite"_s, u"4.pdf"_s);
    elsewhere.addFiles(u"5.pdf"_s);
    QFile::link(elsewhere.file(u"far.sqlite"_s), folder.file(u"c.sqlite"_s));
    folder.addFiles(u"documents/2.pdf documents/4.pdf documents/6_files/y.css"_s);
    QFile::link(u"2.pdf"_s, folder.file(u"documents/3.pdf"_s));
    QFile::link(elsewhere.file(u"5.pdf"_s), folder.file(u"documents/5.pdf"_s));
    QFile::link(elsewhere.file(u"5.pdf"_s), folder.file(u"documents/6_files/x.css"_s));
    SQLite::Database open(folder.file(u"b.sqlite"_s).toStdString(), SQLite::OPEN_READWRITE);
    open.exec("PRAGMA journal_mode = WAL");
    for (const char* name : {"3.pdf", "5.pdf", "6.htm"})
        open.exec(rowOf(QString::fromLatin1(name)).toStdString());

    EXPECT_TRUE(folder.split(u"a.sqlite"_s).failed.empty());
    EXPECT_EQ(folder.all(),
              "a.sqlite documents/2.pdf documents/3.pdf=documents/2.pdf documents/5.pdf "
              "documents/6_files/x.css=5.pdf | b/data/b.sqlite b/data/documents/3.pdf=documents/2.pdf "
              "b/data/documents/6_files/y.css c/data/c.sqlite=far.sqlite c/data/documents/4.pdf");
    EXPECT_EQ(QFile::symLinkTarget(folder.place() + u"/c/data/c.sqlite"_s), elsewhere.file(u"far.sqlite"_s));
    EXPECT_FALSE(QFileInfo(folder.place() + u"/b/data/documents/3.pdf"_s).isSymLink());
    SQLite::Database moved((folder.place() + u"/b/data/b.sqlite"_s).toStdString());
    EXPECT_EQ(moved.execAndGet("SELECT count(*) FROM Document WHERE FileLocation <> ''").getInt(), 3);
}

/// Splits in a process of its own that is killed after some time. Returns whether it was.
bool splitAndKill(const OldFolder& folder, std::chrono::microseconds after)
{
    const pid_t child = fork();
    if (child == 0) {
        const auto result = folder.split(u"a.sqlite"_s);
        _exit(result.failed.empty() ? 0 : 1);
    }
    ::usleep(static_cast<useconds_t>(after.count()));
    ::kill(child, SIGKILL);
    int status = 0;
    ::waitpid(child, &status, 0);
    EXPECT_TRUE(WIFSIGNALED(status) || WEXITSTATUS(status) == 0);
    return WIFSIGNALED(status);
}

/// Whether each of the files is whole in the old folder or in a new one.
void expectWhole(const QStringList& files, const OldFolder& folder)
{
    QStringList whole;
    for (const QString& file : folder.filesIn(folder.data()) + folder.filesIn(folder.place()))
        whole << file.section(u"data/"_s, -1);
    for (const QString& file : files)
        EXPECT_TRUE(whole.contains(file)) << file.toStdString() << " of " << folder.all();
}

TEST(SharedFolderSplit, HasEveryFileWholeSomewhereWheneverItIsKilledAndIsFinishedByTheNextStart)
{
    const OldFolder before;
    before.addDatabase(u"a.sqlite"_s, u"2.pdf"_s);
    before.addDatabase(u"b.sqlite"_s, u"2.pdf 3.pdf 4.htm 9.pdf chart:7:"_s);
    before.addDatabase(u"c.sqlite"_s, u"2.pdf 5.pdf 6.pdf 9.pdf"_s);
    before.addFiles(
        u"documents/2.pdf documents/3.pdf documents/4.htm documents/4_files/x.css documents/5.pdf "
        "documents/6.pdf documents/8.pdf documents/9.pdf orgcharts/7.pdf"_s);
    const QStringList files = before.filesIn(before.data());
    const std::string undisturbed =
        "a.sqlite documents/2.pdf documents/8.pdf documents/9.pdf | b/data/b.sqlite b/data/documents/2.pdf "
        "b/data/documents/3.pdf b/data/documents/4.htm b/data/documents/4_files/x.css b/data/documents/9.pdf "
        "b/data/orgcharts/7.pdf c/data/c.sqlite c/data/documents/2.pdf c/data/documents/5.pdf "
        "c/data/documents/6.pdf c/data/documents/9.pdf";
    std::mt19937 random(20);
    int killed = 0;
    std::array<qint64, 2> longest{};
    for (int i = -4; i < 200; ++i) {
        const bool isAcross = i % 10 == 9 || i == -1;
        const OldFolder folder(isAcross ? QDir::tempPath() : memory());
        std::filesystem::copy(before.data().toStdString(), folder.data().toStdString(),
                              std::filesystem::copy_options::recursive);
        qint64& time = longest.at(isAcross ? 1 : 0);
        if (i < 0) {
            QElapsedTimer timer;
            timer.start();
            folder.split(u"a.sqlite"_s);
            time = std::max(time, timer.nsecsElapsed() / 1000);
        } else {
            std::uniform_int_distribution<qint64> moment(0, time);
            killed += splitAndKill(folder, std::chrono::microseconds(moment(random))) ? 1 : 0;
            expectWhole(files, folder);
            EXPECT_TRUE(folder.split(u"a.sqlite"_s).failed.empty());
        }
        EXPECT_EQ(folder.all(), undisturbed);
        if (HasFailure()) return;
    }
    EXPECT_GT(killed, 0);
}

} // namespace

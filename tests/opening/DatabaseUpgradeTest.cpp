// SPDX-License-Identifier: GPL-3.0-or-later

#include "opening/DatabaseUpgrade.h"

#include "data/DatabaseSession.h"
#include "files/SplitPlanner.h"
#include "files/VersionCopies.h"
#include "opening/NewDatabaseFile.h"
#include "support/AsPlainUser.h"
#include "support/TestDatabase.h"

#include <sys/stat.h>

namespace {

constexpr int busy = 5;
constexpr int notADatabase = 26;

/// A database of the version before the journal in a folder of its own.
class OldFile
{
public:
    OldFile()
    {
        SQLite::Database database(file().toStdString(), SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE);
        database.exec("PRAGMA synchronous = OFF");
        database.exec(contentOf(QStringLiteral(ORVIK_OLD_DATABASE)).toStdString());
    }

    [[nodiscard]] QString folder() const { return m_folder.path(); }
    [[nodiscard]] QString file() const { return m_folder.filePath(u"old.sqlite"_s); }
    [[nodiscard]] QStringList names() const { return QDir(folder()).entryList(QDir::Files, QDir::Name); }

    void run(const char* statements) const
    {
        SQLite::Database(file().toStdString(), SQLite::OPEN_READWRITE).exec(statements);
    }

private:
    QTemporaryDir m_folder;
};

/// All that a file holds but the journal: its soundness, the definitions, and the bytes of each value of each
/// row.
std::string rowsIn(const QString& file)
{
    SQLite::Database database(file.toStdString());
    std::string all;
    const auto add = [&](const std::string& statement) {
        SQLite::Statement rows(database, statement);
        while (rows.executeStep())
            all += rows.getColumn(0).getString() + '\n';
    };
    add("PRAGMA integrity_check");
    add("SELECT type || name || ifnull(sql, '') FROM sqlite_master WHERE tbl_name <> 'Journal' ORDER BY 1");
    SQLite::Statement tables(
        database, "SELECT m.name, group_concat('quote(\"' || c.name || '\")', '||') FROM sqlite_master "
                  "AS m, pragma_table_info(m.name) AS c WHERE m.type = 'table' AND m.name <> 'Journal' "
                  "GROUP BY m.name");
    while (tables.executeStep())
        add("SELECT rowid || " + tables.getColumn(1).getString() + " FROM \"" +
            tables.getColumn(0).getString() + "\" ORDER BY rowid");
    return all;
}

/// The version that a file names, and how many tables and indexes of the journal it has.
std::string versionOf(const QString& file)
{
    return (TestDatabase::answer(file, u"PRAGMA user_version"_s) + u' ' +
            TestDatabase::answer(file, u"SELECT count(*) FROM sqlite_master WHERE tbl_name = 'Journal'"_s))
        .toStdString();
}

TEST(DatabaseUpgrade, AddsTheJournalOnceAfterACopyWasPutBesideTheFile)
{
    const OldFile old;
    const std::string before = rowsIn(old.file());
    ASSERT_EQ(chmod(qPrintable(old.file()), 0600), 0);
    EXPECT_FALSE(DatabaseUpgrade::bringUpToDate(old.file()));

    const QString copy = old.file() + u".version1"_s;
    EXPECT_EQ(old.names(), (QStringList{u"old.sqlite"_s, u"old.sqlite.version1"_s}));
    EXPECT_EQ(versionOf(old.file()), "2 3");
    EXPECT_EQ(versionOf(copy), "1 0");
    EXPECT_EQ(rowsIn(old.file()), before);
    EXPECT_EQ(rowsIn(copy), before);
    EXPECT_EQ(QFile::permissions(copy), QFile::permissions(old.file())) << "it is as private";
    const auto definition = u"SELECT group_concat(sql) FROM sqlite_master WHERE tbl_name = 'Journal'"_s;
    EXPECT_EQ(TestDatabase::answer(old.file(), definition), TestDatabase().ask(definition));

    EXPECT_FALSE(SplitPlanner(old.folder() + u'/', old.folder()).mayBeNeeded());
    DatabaseSession session;
    session.open(old.file());
    EXPECT_FALSE(session.isReadOnly());
    EXPECT_TRUE(session.keepsJournal());
    session.close();
    const QByteArray after = contentOf(old.file());
    EXPECT_FALSE(DatabaseUpgrade::bringUpToDate(old.file()));
    EXPECT_EQ(old.names().size(), 2);
    EXPECT_TRUE(contentOf(old.file()) == after);
}

TEST(DatabaseUpgrade, TakesAnyOlderFile)
{
    const QString ours = TestDatabase().ask("SELECT sql FROM sqlite_master WHERE name = 'Journal'");
    const std::pair<std::string, const char*> cases[] = {
        {"PRAGMA user_version = 0", "old.sqlite.version0"},
        {"PRAGMA user_version = 2", "old.sqlite.version2"},
        {"PRAGMA journal_mode = WAL", "old.sqlite.version1"},
        {"PRAGMA user_version = 0; " + ours.toStdString(), "old.sqlite.version0"},
        {"ALTER TABLE Event ADD COLUMN KeptDate DATETIME TEXT; UPDATE Event SET KeptDate = '2001-02-03';"
         "CREATE TABLE Halls (Name TEXT, Plan BLOB); INSERT INTO Halls VALUES ('Great Hall', x'00FF');"
         "CREATE TABLE ImportedValues (TableName TEXT, RecordRow INTEGER, ColumnName TEXT, Value)",
         "old.sqlite.version1"},
    };
    for (const auto& [statements, copy] : cases) {
        SCOPED_TRACE(statements);
        const OldFile old;
        old.run(statements.c_str());
        const std::string before = rowsIn(old.file());
        EXPECT_FALSE(DatabaseUpgrade::bringUpToDate(old.file()));
        EXPECT_EQ(old.names(), (QStringList{u"old.sqlite"_s, QString::fromUtf8(copy)}));
        EXPECT_EQ(versionOf(old.file()), "2 3");
        EXPECT_EQ(rowsIn(old.file()), before);
        EXPECT_EQ(rowsIn(old.folder() + u'/' + QString::fromUtf8(copy)), before);
    }
}

TEST(DatabaseUpgrade, ReplacesNoEarlierCopyAndClearsAnUnfinishedOne)
{
    const OldFile old;
    writeFile(old.file() + u".version1"_s, "earlier");
    for (const char* ending : {".part", ".part-journal", ".part-wal"})
        writeFile(old.file() + u".version1-2"_s + QString::fromUtf8(ending), "unfinished");
    EXPECT_FALSE(DatabaseUpgrade::bringUpToDate(old.file()));
    EXPECT_EQ(old.names(),
              (QStringList{u"old.sqlite"_s, u"old.sqlite.version1"_s, u"old.sqlite.version1-2"_s}));
    EXPECT_EQ(contentOf(old.file() + u".version1"_s), "earlier");
    EXPECT_EQ(versionOf(old.file() + u".version1-2"_s), "1 0");
}

TEST(DatabaseUpgrade, PutsTheCopyBesideTheFileItselfNotBesideALinkToIt)
{
    const OldFile old;
    const QTemporaryDir other;
    const QString link = other.filePath(u"link.sqlite"_s);
    ASSERT_TRUE(QFile::link(old.file(), link));
    EXPECT_FALSE(DatabaseUpgrade::bringUpToDate(link));
    EXPECT_EQ(versionOf(link), "2 3");
    EXPECT_EQ(old.names().size(), 2);
    EXPECT_EQ(QDir(other.path()).entryList(QDir::Files).size(), 1);
}

TEST(DatabaseUpgrade, LeavesAloneWhatItCannotOrNeedNotUpgrade)
{
    std::optional<SQLite::Database> locking;
    const auto mode = [](const QString& path, mode_t bits) { chmod(qPrintable(path), bits); };
    const std::tuple<const char*, std::function<void(const OldFile&)>, int> cases[] = {
        {"newer", [](const OldFile& old) { old.run("PRAGMA user_version = 3"); }, 0},
        {"a file that is read-only", [&](const OldFile& old) { mode(old.file(), 0444); }, 0},
        {"a folder that is read-only",
         [&](const OldFile& old) {
             mode(old.file(), 0666);
             mode(old.folder(), 0555);
         },
         0},
        {"missing", [](const OldFile& old) { QFile::remove(old.file()); }, 0},
        {"foreign", [](const OldFile& old) { old.run("DROP TABLE Venue"); }, 1},
        {"no database", [](const OldFile& old) { writeFile(old.file(), QByteArray(5000, 'x')); },
         notADatabase},
        {"written to by another program",
         [&](const OldFile& old) {
             locking.emplace(old.file().toStdString(), SQLite::OPEN_READWRITE).exec("BEGIN IMMEDIATE");
         },
         busy},
    };
    for (const auto& [what, prepare, number] : cases) {
        SCOPED_TRACE(what);
        const OldFile old;
        mode(old.folder(), 0777);
        mode(old.file(), 0666);
        prepare(old);
        const QByteArray before = contentOf(old.file());
        const QStringList names = old.names();
        {
            const AsPlainUser plainUser;
            EXPECT_EQ(errorNumberOf([&] { EXPECT_FALSE(DatabaseUpgrade::bringUpToDate(old.file())); }),
                      number);
        }
        EXPECT_TRUE(contentOf(old.file()) == before);
        EXPECT_EQ(old.names(), names);
        mode(old.folder(), 0755);
    }
}

TEST(DatabaseUpgrade, LeavesATableOrQueryOfTheSameNameAlone)
{
    for (const char* statement : {"CREATE TABLE Journal (Day TEXT, Entry TEXT)", "CREATE TABLE JOURNAL (x)",
                                  "CREATE VIEW Journal AS SELECT * FROM Venue"}) {
        SCOPED_TRACE(statement);
        const OldFile old;
        old.run(statement);
        const QByteArray before = contentOf(old.file());
        const auto hindrance = DatabaseUpgrade::bringUpToDate(old.file());
        ASSERT_TRUE(hindrance);
        EXPECT_EQ(
            hindrance->description(),
            u"It has a table or query named Journal, which is not the program's. (%1)"_s.arg(old.file()));
        EXPECT_TRUE(contentOf(old.file()) == before);
        EXPECT_EQ(old.names(), QStringList{u"old.sqlite"_s});
    }
}

TEST(NewDatabaseFile, TakesTheListsOfAnOlderFile)
{
    const OldFile old;
    const QByteArray before = contentOf(old.file());
    const QString file = old.folder() + u"/new.sqlite"_s;
    NewDatabaseFile::make(file, old.file());
    EXPECT_EQ(versionOf(file), "2 3");
    const auto venues = u"SELECT VenueID, VenueName FROM Venue"_s;
    EXPECT_EQ(TestDatabase::answer(file, venues), TestDatabase::answer(old.file(), venues));
    EXPECT_TRUE(contentOf(old.file()) == before);
}

TEST(VersionCopies, AreKnownByTheirNames)
{
    for (const QString& name : {u"a.sqlite.version1"_s, u"/x/a.version0-12"_s}) {
        EXPECT_TRUE(VersionCopies::isCopy(name)) << name.toStdString();
    }
    for (const QString& name : {u"a.sqlite"_s, u"version1"_s, u"a.version1.sqlite"_s, u"a.version"_s,
                                u"a.version1-"_s, u"a.version1.part"_s}) {
        EXPECT_FALSE(VersionCopies::isCopy(name)) << name.toStdString();
    }
    EXPECT_EQ(VersionCopies::originalName(u"/x/a b.sqlite.version1-2"_s), u"a b.sqlite"_s);
    EXPECT_EQ(VersionCopies::originalName(u"/x/a.sqlite"_s), u"a.sqlite"_s);
}

} // namespace

// SPDX-License-Identifier: GPL-3.0-or-later

#include "backup/AutomaticBackups.h"
#include "backup/CollectionBackup.h"
#include "backup/CollectionRestore.h"
#include "files/ProgramFolder.h"
#include "support/ScriptedPlatform.h"
#include "support/TestDatabase.h"
#include "support/TestFiles.h"

#include <QDirIterator>
#include <QProcess>

#include <gmock/gmock.h>

#include <map>

using namespace Qt::StringLiterals;
using testing::HasSubstr;

namespace {

/// A collection with a few files, and a folder for archives and what comes out of them.
class Backup : public testing::Test
{
protected:
    Backup()
    {
        m_database.run("INSERT INTO Document (DocumentID, DocumentName) VALUES (2, 'Levées')");
        QDir().mkpath(data());
        QFile::copy(m_database.fileName(), data() + u"Rivers.sqlite"_s);
        writeFile(data() + u"documents/2.pdf"_s, "a report");
        writeFile(data() + u"documents/3_files/Bild 1 \u00e9.gif"_s, QByteArray(3'000'000, 'x'));
        writeFile(data() + u"orgcharts/2.pdf"_s, "");
        writeFile(data() + u"orgcharts/former/2-0a.pdf"_s, "former");
    }

    [[nodiscard]] QString path(const QString& name) const { return m_database.folder() + u'/' + name; }
    [[nodiscard]] QString data() const { return path(u"Rivers/data/"_s); }

    void backUp(const QString& archive) const
    {
        CollectionBackup work(data() + u"Rivers.sqlite"_s, ProgramFolder(path(u"Rivers"_s)), archive,
                              QDateTime::currentDateTime());
        while (work.step()) {
        }
    }

    static void restore(const QString& archive, const QString& target)
    {
        QDir(target).removeRecursively();
        CollectionRestore work(archive, target);
        while (work.step()) {
        }
    }

    /// What the restoring of an archive says; empty if it worked.
    static std::string refusalOf(const QString& archive, const QString& target)
    {
        try {
            restore(archive, target);
        } catch (const Error& error) {
            return error.description().toStdString();
        }
        return {};
    }

    /// All files below a folder with what they hold; of a database, what matters.
    static std::map<QString, QByteArray> filesIn(const QString& folder)
    {
        std::map<QString, QByteArray> files;
        QDirIterator entries(folder, QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
        while (entries.hasNext()) {
            const QString file = entries.next();
            files[QDir(folder).relativeFilePath(file)] =
                file.endsWith(u".sqlite"_s)
                    ? TestDatabase::answer(file,
                                           u"SELECT *, (SELECT count(*) FROM sqlite_master) FROM Document"_s)
                          .toUtf8()
                    : contentOf(file);
        }
        return files;
    }

    TestDatabase m_database;
};

TEST_F(Backup, ComesBackAsItWasInEachFormat)
{
    for (const QString& name : {u"rivers.zip"_s, u"rivers.tar.zst"_s}) {
        SCOPED_TRACE(name.toStdString());
        backUp(path(name));
        restore(path(name), path(u"again"_s));
        EXPECT_EQ(filesIn(path(u"again"_s)), filesIn(path(u"Rivers"_s)));
        EXPECT_EQ(CollectionRestore::manifestOf(path(name)).rows.value(u"Document"_s), 1);
    }
    // what stock programs unpack is the same
    ASSERT_EQ(QProcess::execute(u"python3"_s,
                                {u"-m"_s, u"zipfile"_s, u"-e"_s, path(u"rivers.zip"_s), path(u"by-hand"_s)}),
              0);
    EXPECT_EQ(filesIn(path(u"by-hand/Rivers/data"_s)), filesIn(data()));
}

TEST_F(Backup, LeavesNothingWhenItIsGivenUp)
{
    writeFile(path(u"archives/rivers.zip"_s), "the one of yesterday");
    for (int steps = 0; steps < 12; ++steps) {
        CollectionBackup work(data() + u"Rivers.sqlite"_s, ProgramFolder(path(u"Rivers"_s)),
                              path(u"archives/rivers.zip"_s), QDateTime::currentDateTime());
        for (int i = 0; i < steps; ++i)
            work.step();
        while (work.undoStep()) {
        }
        const std::map<QString, QByteArray> expected{{u"rivers.zip"_s, "the one of yesterday"}};
        EXPECT_EQ(filesIn(path(u"archives"_s)), expected) << steps;
    }
}

TEST_F(Backup, FindsEveryChangedByte)
{
    const QString archive = path(u"rivers.tar.zst"_s);
    backUp(archive);
    const std::map<QString, QByteArray> whole = filesIn(path(u"Rivers"_s));
    const QByteArray content = contentOf(archive);
    int unharmed = 0;
    for (int i = 0; i < 120; ++i) {
        QByteArray changed = content;
        const auto at = static_cast<qsizetype>((static_cast<quint64>(i) * 2654435761U) %
                                               static_cast<quint64>(content.size()));
        changed[at] = static_cast<char>(changed[at] ^ 0x10);
        writeFile(path(u"changed.tar.zst"_s), changed);
        if (!refusalOf(path(u"changed.tar.zst"_s), path(u"again"_s)).empty()) continue;
        ++unharmed;
        EXPECT_EQ(filesIn(path(u"again"_s)), whole) << at;
    }
    EXPECT_LT(unharmed, 12) << "of a container, hardly a byte may be without a meaning";
    for (const qsizetype length : {qsizetype(0), qsizetype(100), content.size() / 2, content.size() - 1}) {
        writeFile(path(u"changed.tar.zst"_s), content.first(length));
        EXPECT_NE(refusalOf(path(u"changed.tar.zst"_s), path(u"again"_s)), "") << length;
    }
}

/// Archives that were made to do harm, each by a line of Python that has `z`, an open archive with a
/// manifest.
TEST_F(Backup, AHostileArchiveReachesNothingOutside)
{
    const struct
    {
        const char* line;
        const char* message;
    } cases[] = {
        {"z.writestr('Rivers/data/../../../out.txt', 'x')", "tampered"},
        {"z.writestr('/out.txt', 'x')", "tampered"},
        {"z.writestr('Rivers/data/documents/..\\\\..\\\\out.txt', 'x')", "tampered"},
        {"z.writestr('Rivers/bin/out.txt', 'x')", "tampered"},
        {"i = zipfile.ZipInfo('Rivers/data/documents/link'); i.create_system = 3; "
         "i.external_attr = 0o120777 << 16; z.writestr(i, '/etc/passwd')",
         "tampered"},
        {"z.writestr('Rivers/data/documents/2.pdf', 'x')", "twice"},
        {"z.writestr('Rivers/data/documents/9.pdf', 'x')", "not on its list"},
        {"z.writestr('Rivers/data/documents/9.pdf', bytes(400 * 1024 * 1024), zipfile.ZIP_DEFLATED)",
         "far more"},
    };
    const QString archive = path(u"rivers.zip"_s);
    backUp(archive);
    const QByteArray whole = contentOf(archive);
    const QStringList before = QDir(m_database.folder()).entryList(QDir::Files);
    for (const auto& [line, message] : cases) {
        SCOPED_TRACE(line);
        writeFile(archive, whole);
        const QString script = u"import sys, zipfile\nwith zipfile.ZipFile(sys.argv[1], 'a') as z:\n    "_s +
                               QString::fromUtf8(line);
        ASSERT_EQ(QProcess::execute(u"python3"_s, {u"-W"_s, u"ignore"_s, u"-c"_s, script, archive}), 0);
        EXPECT_THAT(refusalOf(archive, path(u"a/b/again"_s)), HasSubstr(message));
        EXPECT_EQ(QDir(m_database.folder()).entryList(QDir::Files), before);
        EXPECT_FALSE(QFile::exists(u"/out.txt"_s));
    }
}

/// Whether a backup is due, by the backups there are, the last change and the time; all in local time.
TEST(AutomaticBackups, AreDueByWhatIsThere)
{
    const auto moment = [](const char* text) {
        return QDateTime::fromString(QString::fromUtf8(text), u"yyyy-MM-dd HH:mm"_s);
    };
    const struct
    {
        const char* what;
        std::vector<const char*> kept;
        const char* change;
        bool isDue;
    } cases[] = {
        {"nothing was ever changed", {}, "", false},
        {"there is none", {}, "2026-05-01 10:00", true},
        {"the newest came before", {"2026-05-09 18:00", "2026-04-01 18:00"}, "2026-05-10 10:00", true},
        {"perhaps in the same second", {"2026-05-09 18:00"}, "2026-05-09 18:00", true},
        {"the newest came after", {"2026-05-09 18:00"}, "2026-05-09 17:59", false},
        {"there is one of today", {"2026-05-10 00:01"}, "2026-05-10 10:00", false},
        {"or of later today", {"2026-05-10 23:00"}, "2026-05-10 10:00", false},
        {"those to come say nothing", {"2027-05-10 18:00", "2026-05-01 18:00"}, "2026-05-09 10:00", true},
        {"but of a change to come", {"2027-05-10 18:00"}, "2027-05-10 10:00", false},
        {"unless it came later", {"2027-05-10 18:00"}, "2027-05-11 10:00", true},
    };
    for (const auto& [what, moments, change, isDue] : cases) {
        std::vector<KeptBackups::Kept> kept;
        for (const char* made : moments)
            kept.push_back({{}, moment(made), 1});
        EXPECT_EQ(AutomaticBackups::isDue(kept, moment(change), moment("2026-05-10 20:00")), isDue) << what;
    }
}

TEST_F(Backup, AreKeptBesideADatabaseAndSurviveAClockThatIsPutBack)
{
    const ProgramFolder home(path(u"home"_s));
    for (const auto& [database, folder] : {std::pair("Rivers/data/a.sqlite", "Rivers/backups"),
                                           std::pair("stick/a.sqlite", "stick/backups")}) {
        const ProgramFolder of = home.ofDatabase(path(QString::fromUtf8(database)));
        EXPECT_EQ(KeptBackups(of).folder(), path(QString::fromUtf8(folder)));
    }
    const KeptBackups kept{ProgramFolder(path(u"Rivers"_s))};
    const auto made = [&](const char* moment) {
        writeFile(kept.folder() + u"/Rivers %1.tar.zst"_s.arg(QString::fromUtf8(moment)));
    };
    for (int day = 10; day < 25; ++day)
        made(qPrintable(u"2027-03-%1 120000"_s.arg(day)));
    made("2026-03-01 120000");
    made("2026-03-02 120000");
    kept.tidy(QDateTime(QDate(2026, 3, 2), QTime(12, 0)));
    EXPECT_EQ(kept.list().size(), 17U) << "what is to come counts for nothing";
    kept.tidy(QDateTime(QDate(2027, 3, 24), QTime(12, 0)));
    EXPECT_EQ(kept.list().size(), 11U);
    EXPECT_EQ(kept.list().back().made.date(), QDate(2026, 3, 2)) << "the last one of its month";
}

TEST_F(Backup, OfADamagedDatabaseDoesNotPushOutTheOthers)
{
    const QString database = data() + u"Rivers.sqlite"_s;
    const ProgramFolder folder(path(u"Rivers"_s));
    ScriptedPlatform desktop;
    const AutomaticBackups backups(desktop.platform(), database, folder);
    backups.beforeChange(11);
    // a page that a copy of all pages takes along
    QByteArray content = contentOf(database);
    const qsizetype page = TestDatabase::answer(database, u"SELECT rootpage FROM sqlite_master "
                                                          "WHERE name = 'CityLocations'"_s)
                               .toInt() -
                           1;
    const qsizetype pageSize = TestDatabase::answer(database, u"PRAGMA page_size"_s).toInt();
    content.replace(page * pageSize, 100, QByteArray(100, 'x'));
    writeFile(database, content);
    desktop.clock.moment = desktop.clock.moment.addDays(1);
    desktop.messages.expectMessageBeginning(
        u"The database could not be backed up: The database is damaged. "_s);
    backups.beforeChange(11);
    ASSERT_EQ(KeptBackups(folder).list().size(), 1U);
    EXPECT_EQ(KeptBackups(folder).list().front().made, QDateTime(QDate(2005, 6, 15), QTime(12, 0)));
}

} // namespace

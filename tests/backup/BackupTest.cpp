// SPDX-License-Identifier: GPL-3.0-or-later

#include "backup/CollectionBackup.h"
#include "backup/CollectionRestore.h"
#include "backup/KeptBackups.h"
#include "files/ProgramFolder.h"
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

TEST_F(Backup, IsKeptWhenTheClockWasSetBack)
{
    const ProgramFolder collection(path(u"Rivers"_s));
    const KeptBackups backups(collection);
    const QDateTime before(QDate(2005, 6, 15), QTime(12, 0));
    for (int minute = 0; minute < 12; ++minute)
        backups.add(data() + u"Rivers.sqlite"_s, collection, before.addSecs(minute * 60));
    EXPECT_EQ(backups.list().size(), 10U);
    const QDateTime now = before.addDays(-3);
    backups.add(data() + u"Rivers.sqlite"_s, collection, now);
    EXPECT_EQ(backups.list().back().made, now);
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
        {"z.writestr('Rivers/data/documents/2.PDF', 'x')", "twice"},
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

} // namespace

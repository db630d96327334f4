// SPDX-License-Identifier: GPL-3.0-or-later

#include "backup/CollectionBackup.h"
#include "backup/CollectionRestore.h"
#include "backup/KeptBackups.h"
#include "files/ProgramFolder.h"
#include "support/AsPlainUser.h"
#include "support/CaseFile.h"
#include "support/ScriptedPlatform.h"
#include "support/SizeLimit.h"
#include "support/TestDatabase.h"

#include <QtEndian>

#include <cstdio>
#include <fstream>

using testing::AnyOf;
using testing::HasSubstr;
using testing::StartsWith;

/// If the disk is full, libarchive does not free what it compresses a .zip with.
// NOLINTNEXTLINE(bugprone-reserved-identifier,cert-dcl37-c,cert-dcl51-cpp,readability-identifier-naming)
extern "C" const char* __lsan_default_suppressions()
{
    return "leak:deflateInit2_";
}

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

    static Manifest restore(const QString& archive, const QString& target)
    {
        QDir(target).removeRecursively();
        CollectionRestore work(archive, target);
        while (work.step()) {
        }
        return work.manifest();
    }

    /// What a call says that fails; empty if it worked.
    static std::string refusalOf(const std::function<void()>& call)
    {
        try {
            call();
        } catch (const Error& error) {
            return error.description().toStdString();
        }
        return {};
    }

    static std::string refusalOf(const QString& archive, const QString& target)
    {
        return refusalOf([&] { restore(archive, target); });
    }

    /// The file of a collection whose content a place in a zip archive holds; empty if there is none.
    static QString fileAround(const QByteArray& zip, qsizetype at)
    {
        constexpr qsizetype lengthPlace = 26;
        constexpr qsizetype namePlace = 30;
        const qsizetype head = zip.lastIndexOf("PK\3\4", at);
        if (head < 0 || at >= zip.indexOf("PK\1\2")) return {};
        const qsizetype length = qFromLittleEndian<quint16>(zip.constData() + head + lengthPlace);
        if (at < head + namePlace + length) return {};
        return QString::fromUtf8(zip.mid(head + namePlace, length)).section(u'/', 1);
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
    const QString page = data() + u"documents/3_files/"_s;
    writeFile(data() + u"documents/2.PDF"_s, "another report on a system with letter cases");
    writeFile(data() + u"documents/.upload-7"_s, "unfinished");
    writeFile(page + u".upload-notes.txt"_s, "of such a name by chance");
    writeFile(data() + u"documents/.replaced-4_files/a.gif"_s, "the next start brings it back");
    writeFile(data() + u"orgcharts/former/.replaced-3-0b.pdf"_s, "the only one if the program was killed");
    writeFile(page + QString(120, QChar(0x6cb3)).left(80) + u".gif"_s, "a long name");
    writeFile(path(u"outside.pdf"_s), "not of the collection");
    QFile::link(page + u"Bild 1 \u00e9.gif"_s, page + u"again.gif"_s);
    QFile::link(path(u"outside.pdf"_s), data() + u"documents/4.pdf"_s);
    QFile::link(path(u"Rivers"_s), data() + u"documents/all"_s);
    const std::string latin = page.toStdString() + "Bild \xe9.gif";
    std::ofstream(latin) << "named elsewhere";
    const QDateTime modified(QDate(1998, 7, 3), QTime(4, 5, 6), Qt::UTC);
    QFile report(data() + u"documents/2.pdf"_s);
    ASSERT_TRUE(report.open(QIODevice::ReadWrite) &&
                report.setFileTime(modified, QFile::FileModificationTime));
    report.close();

    const QString index = u"Rivers.sqlite.filetext"_s;
    writeFile(data() + index, "can be made again");
    std::map<QString, QByteArray> expected = filesIn(data());
    for (const QString& name : {u"documents/.upload-7"_s, u"documents/4.pdf"_s, index})
        EXPECT_EQ(expected.erase(name), 1U) << name.toStdString();
    expected[u"documents/3_files/Bild %E9.gif"_s] = "named elsewhere";
    for (const QString& name : {u"rivers.zip"_s, u"rivers.tar.zst"_s}) {
        SCOPED_TRACE(name.toStdString());
        backUp(path(name));
        EXPECT_EQ(restore(path(name), path(u"again"_s)).rows.value(u"Document"_s), 1);
        EXPECT_EQ(filesIn(path(u"again/data"_s)), expected);
        EXPECT_EQ(QFileInfo(path(u"again/data/documents/2.pdf"_s)).lastModified(), modified);
    }
    // what stock programs unpack is the same
    ASSERT_EQ(QProcess::execute(u"python3"_s,
                                {u"-m"_s, u"zipfile"_s, u"-e"_s, path(u"rivers.zip"_s), path(u"by-hand"_s)}),
              0);
    EXPECT_EQ(filesIn(path(u"by-hand/Rivers/data"_s)), expected);
    std::remove(latin.c_str()); // Qt cannot
}

TEST_F(Backup, TakesDatabasesOfEveryKindFromAnyFolder)
{
    const struct
    {
        const char* folder; ///< of the database
        const char* statements;
        const char* name; ///< of the collection
    } cases[] = {
        {"Rivers/data/", "DROP TABLE Journal; PRAGMA user_version = 1", "Rivers"},
        {"Lakes/", "PRAGMA user_version = 2", "Lakes"},
        {"Seas/data/", "PRAGMA journal_mode = WAL; UPDATE Document SET DocumentName = 'x'", "Seas"},
    };
    for (const auto& [folder, statements, name] : cases) {
        SCOPED_TRACE(folder);
        const QString place = path(QString::fromUtf8(folder));
        const QString database = place + u"Rivers.sqlite"_s;
        const QString archive = path(u"rivers.tar.zst"_s);
        writeFile(place + u"documents/8.pdf"_s, "eight");
        QFile::copy(m_database.fileName(), database);
        SQLite::Database(database.toStdString(), SQLite::OPEN_READWRITE).exec(statements);
        CollectionBackup work(database, ProgramFolder({}).ofDatabase(database), archive,
                              QDateTime::currentDateTime());
        while (work.step()) {
        }
        restore(archive, path(u"again"_s));
        EXPECT_EQ(CollectionRestore::collectionIn(archive), QString::fromUtf8(name));
        EXPECT_EQ(contentOf(path(u"again/data/documents/8.pdf"_s)), "eight");
        EXPECT_EQ(QDir(path(u"again/data"_s)).entryList(QDir::Files), QStringList{u"Rivers.sqlite"_s});
    }
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

/// What goes wrong is said with the name of the file, and leaves nothing.
TEST_F(Backup, SaysWhyItFails)
{
    const QString report = data() + u"documents/9.pdf"_s;
    QByteArray content(3'000'000, '\0');
    std::generate(content.begin(), content.end(), std::minstd_rand());
    writeFile(report, content);
    writeFile(path(u"archives/old.zip"_s), "the one of yesterday");
    const std::map<QString, QByteArray> before = filesIn(path(u"archives"_s));
    const auto failure = [&](
                             const QString& archive, const std::function<void()>& meanwhile = [] {}) {
        try {
            CollectionBackup work(data() + u"Rivers.sqlite"_s, ProgramFolder(path(u"Rivers"_s)), archive,
                                  QDateTime::currentDateTime());
            for (bool goesOn = true; goesOn;) {
                goesOn = work.step();
                const auto bytes = work.bytes();
                if (bytes && bytes->done > content.size()) meanwhile();
            }
        } catch (const Error& error) {
            EXPECT_EQ(filesIn(path(u"archives"_s)), before);
            return error.description().toStdString();
        }
        return std::string();
    };
    const QString archive = path(u"archives/old.zip"_s);
    EXPECT_THAT(failure(data() + u"documents/rivers.zip"_s), HasSubstr("among the files of its collection"));
    EXPECT_THAT(failure(data() + u"rivers.zip"_s), HasSubstr("among the files of its collection"));
    EXPECT_THAT(failure(path(u"nowhere/rivers.zip"_s)), HasSubstr("nowhere/rivers.zip"));
    EXPECT_THAT(failure(path(u"archives"_s)), HasSubstr("archives"));
    EXPECT_THAT(failure(archive,
                        [&] {
                            QFile file(report);
                            file.open(QIODevice::Append);
                            file.write("more");
                        }),
                HasSubstr("9.pdf"));
    EXPECT_THAT(failure(archive, [&] { QFile::resize(report, 10); }), HasSubstr("was changed"));
    {
        const ArchiveWriter other(archive);
        EXPECT_THAT(refusalOf([&] { ArchiveWriter writer(archive); }), HasSubstr("Another program"));
    }
    writeFile(report, content);
    {
        const SizeLimit full(2'000'000);
        EXPECT_THAT(failure(archive), HasSubstr("old.zip"));
    }
    for (const QString& folder : {m_database.folder(), path(u"archives"_s)})
        QFile::setPermissions(folder, QFile::Permissions(0x7777));
    QFile::setPermissions(report, {});
    const AsPlainUser user;
    EXPECT_THAT(failure(archive), HasSubstr("9.pdf"));
}

/// One byte changed, at 250 places of each format: the restore says which file is damaged, or that the
/// archive is, or everything comes back as it was.
TEST_F(Backup, FindsEveryChangedByte)
{
    writeFile(data() + u"documents/3_files/Bild 1 \u00e9.gif"_s, QByteArray(3'000, 'x'));
    const std::map<QString, QByteArray> whole = filesIn(data());
    for (const QString& ending : {u"zip"_s, u"tar.zst"_s}) {
        const QString changed = path(u"changed."_s + ending);
        backUp(changed);
        const QByteArray content = contentOf(changed);
        int unharmed = 0;
        for (quint64 i = 0; i < 250; ++i) {
            SCOPED_TRACE(i);
            QByteArray other = content;
            const auto at = static_cast<qsizetype>(i * 2654435761U % static_cast<quint64>(content.size()));
            other[at] = static_cast<char>(other[at] ^ (1 << i % 8));
            writeFile(changed, other);
            const std::string refusal = refusalOf(changed, path(u"again"_s));
            if (refusal.empty()) {
                ++unharmed;
                EXPECT_EQ(filesIn(path(u"again/data"_s)), whole) << at;
                continue;
            }
            EXPECT_THAT(refusal,
                        AnyOf(HasSubstr("damaged"), HasSubstr("cannot be read"), HasSubstr("twice"),
                              HasSubstr("missing"), HasSubstr("tampered"), HasSubstr("not on its list"),
                              HasSubstr("as many rows"), HasSubstr("newer version"), HasSubstr("holds"),
                              HasSubstr("encrypted"), HasSubstr("far more"), HasSubstr("too long")));
            const QString harmed = fileAround(content, at);
            if (refusal.find(" is damaged in the backup") != std::string::npos && !harmed.isEmpty()) {
                EXPECT_THAT(refusal, StartsWith(harmed.toStdString()));
            }
        }
        EXPECT_LT(unharmed, 50) << "of a container, hardly a byte may be without a meaning";
        for (const qsizetype length :
             {qsizetype(0), qsizetype(100), content.size() / 2, content.size() * 9 / 10}) {
            writeFile(changed, content.first(length));
            EXPECT_NE(refusalOf(changed, path(u"again"_s)), "") << length;
        }
    }
}

/// Archives that were made to do harm, each by a line of Python that has `z`, an open archive with a
/// manifest.
TEST_F(Backup, AHostileArchiveReachesNothingOutside)
{
    const QString archive = path(u"rivers.zip"_s);
    backUp(archive);
    const QByteArray whole = contentOf(archive);
    const QStringList before = QDir(m_database.folder()).entryList(QDir::Files);
    for (const auto& [line, message] : casesIn("backup/cases/hostile.txt", 13)) {
        SCOPED_TRACE(line.toStdString());
        writeFile(archive, whole);
        const QString script =
            u"import sys, zipfile\nwith zipfile.ZipFile(sys.argv[1], 'a') as z:\n    "_s + line;
        ASSERT_EQ(QProcess::execute(u"python3"_s, {u"-W"_s, u"ignore"_s, u"-c"_s, script, archive}), 0);
        EXPECT_THAT(refusalOf(archive, path(u"a/b/again"_s)), HasSubstr(message.chopped(1).toStdString()));
        EXPECT_EQ(QDir(m_database.folder()).entryList(QDir::Files), before);
        EXPECT_FALSE(QFile::exists(u"/out.txt"_s));
    }
}

} // namespace

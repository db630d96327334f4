// SPDX-License-Identifier: GPL-3.0-or-later

#include "index/IndexedFolder.h"
#include "support/Testing.h"

#include <cstdlib>
#include <unistd.h>

namespace {

using Contents = QMap<QString, QString>;

/// Stands in for `pdftotext`: its text is the file, and it notes which files it read.
class Reader
{
public:
    explicit Reader(IndexedFolder& folder) : m_notes(folder.index() + u".read"_s)
    {
        folder.replacePdfReader("echo \"${3##*/}\" >>'" + m_notes.toUtf8() + "'\nexec /bin/cat \"$3\"\n");
    }

    /// The files that were read since it was asked last, in any order.
    QStringList read() const
    {
        QStringList names = QString::fromUtf8(contentOf(m_notes)).split(u'\n', Qt::SkipEmptyParts);
        names.sort();
        writeFile(m_notes);
        return names;
    }

private:
    QString m_notes;
};

} // namespace

TEST(IndexUpkeepTest, OnlyWhatChangedIsReadAgain)
{
    IndexedFolder folder;
    const Reader reader(folder);
    folder.write(u"1.pdf"_s, "%PDF-a");
    folder.write(u"2.pdf"_s, "%PDF-b");
    const QStringList both{u"1.pdf"_s, u"2.pdf"_s};
    struct Step
    {
        const char* what;
        std::function<void()> change;
        QStringList names;
        QStringList read;
        Contents contents;
    };
    const QString first = u"%PDF-a"_s;
    const QString second = u"%PDF-b"_s;
    const Contents start{{both[0], first}, {both[1], second}};
    const Step steps[] = {
        {"nothing there before", [] {}, both, both, start},
        {"nothing changed", [] {}, both, {}, start},
        {"another time", [&] { folder.write(u"1.pdf"_s, "%PDF-a", 10); }, both, {}, start},
        {"another content of that size and time, which nothing tells of",
         [&] { folder.write(u"1.pdf"_s, "%PDF-x", 10); },
         both,
         {},
         start},
        {"another time and content",
         [&] { folder.write(u"1.pdf"_s, "%PDF-b", 20); },
         both,
         {both[0]},
         {{both[0], second}, {both[1], second}}},
        {"another size",
         [&] { folder.write(u"1.pdf"_s, "%PDF-longer", 20); },
         both,
         {both[0]},
         {{both[0], u"%PDF-longer"_s}, {both[1], second}}},
        {"no longer named", [] {}, {both[0]}, {}, {{both[0], u"%PDF-longer"_s}}},
        {"named again", [] {}, both, {both[1]}, {{both[0], u"%PDF-longer"_s}, {both[1], second}}},
        {"deleted, and written just now",
         [&] {
             QFile::remove(folder.path(both[0]));
             writeFile(folder.path(both[1]), "%PDF-c");
         },
         both,
         {both[1]},
         {{both[1], u"%PDF-c"_s}}},
        {"once more in the same moment",
         [&] {
             const QDateTime moment = QFileInfo(folder.path(both[1])).lastModified();
             writeFile(folder.path(both[1]), "%PDF-d");
             QFile file(folder.path(both[1]));
             EXPECT_TRUE(file.open(QIODevice::ReadWrite));
             EXPECT_TRUE(file.setFileTime(moment, QFile::FileModificationTime));
         },
         both,
         {both[1]},
         {{both[1], u"%PDF-d"_s}}},
        {"nothing named", [] {}, {}, {}, {}},
    };
    for (const Step& step : steps) {
        SCOPED_TRACE(step.what);
        step.change();
        const IndexRun run = folder.run(step.names);
        EXPECT_EQ(run.status, 0);
        EXPECT_EQ(reader.read(), step.read);
        EXPECT_EQ(folder.contents(), step.contents);
    }
}

TEST(IndexUpkeepTest, WhatCannotBeReadNowIsReadOnceItCan)
{
    IndexedFolder folder;
    folder.write(u"1.pdf"_s, "%PDF-a");
    folder.write(u"2.txt"_s, "text");
    const QStringList names{u"1.pdf"_s, u"2.txt"_s};
    const auto heldAfterRun = [&] {
        EXPECT_EQ(folder.run(names).status, 0);
        return folder.contents();
    };
    folder.replacePdfReader({});
    EXPECT_EQ(heldAfterRun()[u"1.pdf"_s], u"! The program that reads it is not installed: pdftotext"_s);
    folder.replacePdfReader("kill -SEGV $$");
    EXPECT_EQ(heldAfterRun()[u"1.pdf"_s], u"! The program that reads it failed."_s);
    const Reader reader(folder);
    folder.write(u"1.pdf"_s, "%PDF-a", 10);
    EXPECT_EQ(heldAfterRun()[u"1.pdf"_s], u"! The program that reads it failed."_s); // the file is the same
    folder.write(u"1.pdf"_s, "%PDF-b", 20);
    EXPECT_EQ(heldAfterRun(), (Contents{{u"1.pdf"_s, u"%PDF-b"_s}, {u"2.txt"_s, u"text"_s}}));
}

TEST(IndexUpkeepTest, WhatTheUserMayNotReadIsReadOnceTheyMay)
{
    const IndexedFolder folder;
    folder.write(u"1.txt"_s, "text");
    constexpr QFile::Permissions all(0x7777);
    const QString file = folder.path(u"1.txt"_s);
    QFile::setPermissions(QFileInfo(folder.index()).path(), all);
    QFile::setPermissions(file, {});
    QProcess process;
    process.setChildProcessModifier([] { // for the superuser nothing is unreadable
        constexpr uid_t nobody = 65534;
        if (geteuid() == 0 && setuid(nobody) != 0) std::abort();
    });
    folder.start(process, {u"1.txt"_s});
    process.waitForFinished();
    EXPECT_EQ(process.exitCode(), 0);
    EXPECT_EQ(folder.contents(), (Contents{{u"1.txt"_s, u"! It cannot be read."_s}}));
    QFile::setPermissions(file, all);
    EXPECT_EQ(folder.run({u"1.txt"_s}).status, 0);
    EXPECT_EQ(folder.contents(), (Contents{{u"1.txt"_s, u"text"_s}}));
}

TEST(IndexUpkeepTest, AKillLeavesAnIndexThatTheNextRunGoesOnWith)
{
    constexpr int files = 40;
    IndexedFolder folder;
    const Reader reader(folder);
    QStringList names;
    Contents expected;
    for (int number = 0; number < files; ++number) {
        const QString name = QString::number(number) + u".pdf"_s;
        const QString text = u"%PDF-"_s + QString::number(number);
        folder.write(name, text.toUtf8());
        names += name;
        expected[name] = text;
    }
    for (const int milliseconds : {1, 5, 10, 20, 40, 80}) {
        QProcess process;
        folder.start(process, names);
        process.waitForFinished(milliseconds);
        process.kill();
        process.waitForFinished();
        EXPECT_TRUE(!QFile::exists(folder.index()) || folder.isWhole());
        EXPECT_EQ(folder.run(names).status, 0);
        EXPECT_EQ(folder.contents(), expected);
        QFile::remove(folder.index());
    }
}

TEST(IndexUpkeepTest, WhatIsNoIndexOfThisVersionIsMadeAnew)
{
    const Contents expected{{u"1.txt"_s, u"text"_s}};
    const auto change = [](const IndexedFolder& folder, const char* statement) {
        SQLite::Database(folder.index().toStdString(), SQLite::OPEN_READWRITE).exec(statement);
    };
    const std::function<void(const IndexedFolder&)> changes[] = {
        [](const IndexedFolder& folder) { writeFile(folder.index(), QByteArray(5000, 'x')); },
        [](const IndexedFolder& folder) { writeFile(folder.index()); },
        [](const IndexedFolder& folder) {
            QByteArray content = contentOf(folder.index());
            content = content.first(4096) + QByteArray(content.size() - 4096, '\x7f');
            writeFile(folder.index(), content);
        },
        [&](const IndexedFolder& folder) { change(folder, "PRAGMA user_version = 99; DROP TABLE File"); },
    };
    for (const auto& each : changes) {
        const IndexedFolder folder;
        folder.write(u"1.txt"_s, "text");
        EXPECT_EQ(folder.run({u"1.txt"_s}).status, 0);
        each(folder);
        EXPECT_EQ(folder.run({u"1.txt"_s}).status, 0);
        EXPECT_EQ(folder.contents(), expected);
    }
}

TEST(IndexUpkeepTest, AnythingButAnIndexIsLeftAlone)
{
    const QTemporaryDir folder;
    const QString database = folder.filePath(u"c.sqlite"_s);
    SQLite::Database(database.toStdString(), SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE)
        .exec("CREATE TABLE T (A)");
    const QByteArray before = contentOf(database);
    const auto statusOf = [&folder](const QString& index) {
        QProcess process;
        process.setStandardInputFile(QProcess::nullDevice());
        process.start(QStringLiteral(ORVIK_INDEX_TOOL), {index, folder.path()});
        process.waitForFinished();
        return process.exitCode();
    };
    EXPECT_EQ(statusOf(database), 2);
    EXPECT_EQ(contentOf(database), before);
    EXPECT_EQ(statusOf(folder.filePath(u"no/such.filetext"_s)), 1);
    const QString empty = folder.filePath(u"empty"_s);
    writeFile(empty);
    for (const QString& target : {database, empty}) {
        const QString link = folder.filePath(u"link.filetext"_s);
        ASSERT_TRUE(QFile::link(target, link));
        EXPECT_EQ(statusOf(link), 0);
        EXPECT_FALSE(QFileInfo(link).isSymLink());
        QFile::remove(link);
    }
    EXPECT_EQ(contentOf(database), before);
    EXPECT_EQ(contentOf(empty), QByteArray());
}

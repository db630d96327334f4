// SPDX-License-Identifier: GPL-3.0-or-later
// The commands that make or change collections.

#include "console/Tool.h"
#include "export/ExportFormats.h"
#include "platform/WindowDoor.h"
#include "support/TestDatabase.h"

#include <QJsonArray>
#include <QRandomGenerator>

#include <csignal>

namespace {

class CollectionCommands : public testing::Test
{
protected:
    CollectionCommands() { qputenv("XDG_RUNTIME_DIR", QFile::encodeName(m_running.path())); }

    [[nodiscard]] ToolRun run(const QStringList& arguments, const ToolHooks& hooks = {}) const
    {
        return runTool(arguments, collections.path({}), hooks);
    }

    /// Runs a command and has it end once something of the name lies in the folder.
    [[nodiscard]] ToolRun runUntil(const QStringList& arguments, const QString& name) const
    {
        ToolHooks hooks;
        hooks.onStart = [&](QProcess& process) {
            while (process.state() != QProcess::NotRunning && !names().contains(name))
                process.waitForFinished(1);
            ::kill(static_cast<pid_t>(process.processId()), SIGINT);
        };
        return run(arguments, hooks);
    }

    [[nodiscard]] QStringList names() const
    {
        return QDir(collections.path({})).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
    }

    Collections collections;

private:
    QTemporaryDir m_running;
};

TEST_F(CollectionCommands, ABackupBecomesACollectionAgain)
{
    for (const QString& archive : {u"a.zip"_s, u"a.tar.zst"_s}) {
        SCOPED_TRACE(archive.toStdString());
        const QJsonObject made = run({u"backup"_s, u"Rivers"_s, archive, u"--json"_s}).json();
        EXPECT_EQ(made[u"archive"_s], collections.path(archive));
        EXPECT_EQ(made[u"files"_s], 3);
        EXPECT_EQ(made[u"rows"_s].toObject()[u"Document"_s], 4);
        const QString folder = u"of "_s + archive;
        const QJsonObject restored = run({u"restore"_s, archive, folder, u"--json"_s}).json();
        EXPECT_EQ(restored[u"collection"_s], collections.path(folder));
        EXPECT_EQ(contentOf(collections.path(folder + u"/data/documents/2.pdf"_s)), "a report");
        EXPECT_EQ(run({u"list"_s, folder, u"documents"_s, u"--json"_s}).output,
                  run({u"list"_s, u"Rivers"_s, u"documents"_s, u"--json"_s}).output);
    }
}

TEST_F(CollectionCommands, AnExportHasAllRecordsButTheDeletedOnes)
{
    for (const ExportFormat& format : exportFormats()) {
        SCOPED_TRACE(format.name.toStdString());
        const bool isOfDocuments = format.isFor(RecordKind::Document);
        const RecordKind kind = isOfDocuments ? RecordKind::Document : *format.kind;
        const QString word = recordNames(kind).record.toLower() + u's';
        const QString file = u"out"_s + format.ending;
        const QJsonObject made = run({u"export"_s, u"Rivers"_s, word, format.name, file, u"--json"_s}).json();
        EXPECT_EQ(made[u"file"_s], collections.path(file));
        EXPECT_EQ(made[u"records"_s].toInt(-1), kind == RecordKind::Document ? 2
                                                : kind == RecordKind::Event  ? 1
                                                                             : 0);
        EXPECT_GT(contentOf(collections.path(file)).size(), 20);
    }
    EXPECT_EQ(contentOf(collections.path(u"out.csv"_s)).count("gone"), 0);
    EXPECT_EQ(
        run({u"export"_s, u"Old"_s, u"events"_s, u"csv"_s, u"old.csv"_s, u"--spreadsheet"_s}).output.left(20),
        u"Exported: "_s + collections.path(u"old.csv"_s).left(10));
    EXPECT_TRUE(contentOf(collections.path(u"old.csv"_s)).startsWith("\xEF\xBB\xBFID,Title,"));
}

TEST_F(CollectionCommands, RefuseWhatWouldReplaceSomething)
{
    writeFile(collections.path(u"old.zip"_s), "precious");
    ASSERT_EQ(run({u"backup"_s, u"Rivers"_s, u"a.zip"_s}).status, 0);
    const QString access = QStringLiteral(ORVIK_ACCESS_FILES "/small.mdb");
    const QStringList before = collections.everything();
    for (const FileCase& each : casesIn("console/cases/refused.txt", 18)) {
        QStringList arguments = each.asked.split(u' ');
        arguments.replaceInStrings(u"ACCESS"_s, access).replaceInStrings(u"LONG"_s, QString(300, u'a'));
        expectAnswer(run(arguments), each);
        EXPECT_EQ(collections.everything(), before) << each.asked.toStdString();
    }
}

TEST_F(CollectionCommands, AnInterruptionOrAFullDiskLeavesNoTrace)
{
    QByteArray content(20'000'000, '\0');
    QRandomGenerator random(1);
    random.generate(reinterpret_cast<quint32*>(content.data()),
                    reinterpret_cast<quint32*>(content.data() + content.size()));
    writeFile(collections.path(u"Rivers/data/documents/3.pdf"_s), content);
    const QString error = u"orvik-tool: Stopped; nothing was left behind.\n"_s;
    SQLite::Database(collections.path(u"Rivers/data/rivers.sqlite"_s).toStdString(), SQLite::OPEN_READWRITE)
        .exec("INSERT INTO Event (EventName, Status) WITH RECURSIVE number (n) AS (SELECT 1 UNION ALL SELECT "
              "n + 1 "
              "FROM number WHERE n < 100000) SELECT 'Flood ' || n, 'ACTIVE' FROM number");
    const QStringList before = collections.everything();
    const ToolRun exported =
        runUntil({u"export"_s, u"Rivers"_s, u"events"_s, u"json"_s, u"a.json"_s}, u"a.json.part"_s);
    EXPECT_EQ(exported.status, 2);
    EXPECT_EQ(exported.error, error);
    EXPECT_EQ(collections.everything(), before);
    EXPECT_EQ(outputOf(u"bash"_s,
                       {u"-c"_s, u"cd '%1'; ulimit -f 100; '%2' export Rivers events csv a.csv 2>&1; "
                                 "echo status $?"_s.arg(collections.path({}), QStringLiteral(ORVIK_TOOL))}),
              u"orvik-tool: File too large (%1)\nstatus 2\n"_s.arg(collections.path(u"a.csv"_s)));
    EXPECT_EQ(collections.everything(), before);
    const ToolRun backup = runUntil({u"backup"_s, u"Rivers"_s, u"a.zip"_s}, u"a.zip.part"_s);
    EXPECT_EQ(backup.status, 2);
    EXPECT_EQ(backup.error, error);
    EXPECT_EQ(collections.everything(), before);

    ASSERT_EQ(run({u"backup"_s, u"Rivers"_s, u"a.zip"_s}).status, 0);
    const QStringList withArchive = collections.everything();
    const std::pair<QStringList, QString> cases[] = {
        {{u"restore"_s, u"a.zip"_s, u"New"_s}, u"New.new"_s},
        {{u"restore"_s, u"a.zip"_s, u"Far/away/New"_s}, u"Far"_s},
        {{u"import"_s, QStringLiteral(ORVIK_ACCESS_FILES "/large.mdb"), u"New"_s}, u"New.new"_s}};
    for (const auto& [arguments, begun] : cases) {
        SCOPED_TRACE(arguments.join(u' ').toStdString());
        const ToolRun result = runUntil(arguments, begun);
        EXPECT_EQ(result.status, 2);
        EXPECT_EQ(result.error, error);
        EXPECT_EQ(collections.everything(), withArchive);
    }
}

TEST_F(CollectionCommands, AnAccessFileBecomesACollectionWithTheFilesBesideIt)
{
    ASSERT_TRUE(
        QFile::copy(QStringLiteral(ORVIK_ACCESS_FILES "/small.mdb"), collections.path(u"small.mdb"_s)));
    writeFile(collections.path(u"Documents/7.pdf"_s), "beside");
    const ToolRun result = run({u"import"_s, u"small.mdb"_s, u"Small"_s, u"--json"_s});
    ASSERT_EQ(result.status, 0) << result.error.toStdString();
    EXPECT_EQ(result.json()[u"database"_s], collections.path(u"Small/data/small.sqlite"_s));
    EXPECT_TRUE(
        result.json()[u"report"_s].toArray()[0].toString().endsWith(u"were taken over and checked."_s));
    EXPECT_EQ(contentOf(collections.path(u"Small/data/documents/7.pdf"_s)), "beside");
    EXPECT_EQ(run({u"check"_s, u"Small"_s}).output.left(40), u"Structure of the database: nothing found"_s);
}

TEST_F(CollectionCommands, AnOldDatabaseIsBroughtUpToDateUnlessAWindowHasItOpen)
{
    const QString database = collections.path(u"Old/data/old.sqlite"_s);
    const QStringList before = collections.everything();
    {
        WindowDoor window(WindowDoor::folder(), database);
        ASSERT_TRUE(window.take());
        const ToolRun refused = run({u"upgrade"_s, u"Old"_s});
        EXPECT_EQ(refused.status, 2);
        EXPECT_EQ(refused.error,
                  u"orvik-tool: The collection is open in a window; please close that first. (%1)\n"_s.arg(
                      database));
        EXPECT_EQ(collections.everything(), before);
    }
    EXPECT_EQ(run({u"upgrade"_s, u"Old"_s}).output, u"Brought up to date: %1\n"_s.arg(database));
    EXPECT_EQ(TestDatabase::answer(database, u"PRAGMA user_version"_s), u"2"_s);
    EXPECT_TRUE(QFile::exists(database + u".version1"_s));
    const QStringList after = collections.everything();
    EXPECT_EQ(run({u"upgrade"_s, u"Old"_s, u"--json"_s}).json()[u"upgraded"_s], false);
    EXPECT_EQ(collections.everything(), after);

    TestDatabase newer;
    newer.run("PRAGMA user_version = 9");
    const ToolRun refused = run({u"upgrade"_s, newer.fileName()});
    EXPECT_EQ(refused.status, 2);
    EXPECT_TRUE(refused.error.startsWith(u"orvik-tool: The database was made by a newer version"_s));
}

} // namespace

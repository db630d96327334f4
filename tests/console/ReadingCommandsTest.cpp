// SPDX-License-Identifier: GPL-3.0-or-later
// The commands that only read: what they print, that it is what the window's lists hold, and that they leave
// nothing behind.

#include "console/Tool.h"
#include "data/DatabaseSession.h"
#include "search/SearchResults.h"
#include "support/TestFileTexts.h"
#include "support/Testing.h"
#include "views/StandardQueries.h"

#include <QJsonArray>

#include <filesystem>
#include <unistd.h>

namespace {

class ReadingCommands : public testing::Test
{
    QTemporaryDir m_cache;

protected:
    ReadingCommands()
    {
        qputenv("XDG_CACHE_HOME", QFile::encodeName(m_cache.path()));
        writeFileTexts(collections.path(u"Rivers/data/rivers.sqlite"_s), {{"2.pdf", "of a Brídge"}});
    }

    [[nodiscard]] ToolRun run(const QString& arguments) const
    {
        return runTool(arguments.split(u' '), collections.path({}));
    }

    Collections collections;
};

TEST_F(ReadingCommands, PrintWhatPeopleRead)
{
    for (const FileCase& each : casesIn("console/cases/reading.txt", 25)) {
        const ToolRun result = run(each.asked);
        expectAnswer(result, each);
        EXPECT_FALSE(result.output.contains(u'\x1b')) << "it would command the terminal";
    }
}

TEST_F(ReadingCommands, WriteDocumentsForPrograms)
{
    const QJsonObject shown = run(u"show Rivers documents:2 --json"_s).json();
    EXPECT_EQ(shown[u"kind"_s], u"documents"_s);
    EXPECT_EQ(shown[u"name"_s], u"Levées of the \"Ohio\"\t"_s);
    const QJsonObject fields = shown[u"fields"_s].toObject();
    EXPECT_EQ(fields[u"DocumentDescription"_s], u"two\nlines \x1b[31m"_s);
    EXPECT_EQ(fields[u"KeyDocument"_s], true);
    EXPECT_TRUE(fields[u"Notes"_s].isNull());
    EXPECT_EQ(fields[u"OrganizationID"_s].toObject()[u"name"_s], u"None"_s);
    EXPECT_EQ(shown[u"links"_s].toObject()[u"DocumentVenues"_s],
              QJsonArray({QJsonObject({{u"id"_s, 2}, {u"name"_s, u"Valley"_s}})}));

    const QJsonArray versions = run(u"history Rivers events:2 --json"_s).json()[u"versions"_s].toArray();
    ASSERT_EQ(versions.size(), 2);
    EXPECT_EQ(versions[0][u"what"_s], u"changed"_s);
    EXPECT_TRUE(
        QDateTime::fromString(versions[0][u"moment"_s].toString(), u"yyyy-MM-dd HH:mm:ss"_s).isValid());
    const QJsonObject change = versions[0][u"changes"_s].toArray()[0].toObject();
    EXPECT_EQ(change[u"field"_s], u"EventName"_s);
    EXPECT_EQ(change[u"older"_s], u"Great flood"_s);
    EXPECT_EQ(change[u"newer"_s], u"Great Ohio flood"_s);

    const QJsonObject checked = run(u"check Rivers --json"_s).json();
    EXPECT_TRUE(checked[u"sound"_s].toBool());
    EXPECT_EQ(checked[u"checks"_s].toArray()[0][u"name"_s], u"integrity"_s);
}

/// The identifiers of an array of records.
QList<qint64> identifiersIn(const QJsonValue& records)
{
    QList<qint64> identifiers;
    for (const auto& each : records.toArray())
        identifiers << each.toObject()[u"id"_s].toInteger();
    return identifiers;
}

QList<qint64> identifiersOf(DatabaseSession& session, const SharedQuery& query)
{
    QList<qint64> identifiers;
    RecordSet rows = session.read(query->sqlStr());
    while (rows.next())
        identifiers << rows.integer(0);
    return identifiers;
}

TEST_F(ReadingCommands, FindWhatTheWindowFindsInItsOrder)
{
    DatabaseSession session;
    session.open(collections.path(u"Old/data/old.sqlite"_s), Access::Read);
    const StandardQueries queries;
    const SearchResults found = SearchResults::read(session, queries, u"hurricane"_s);
    ASSERT_GT(found.total(), 1);
    const QJsonObject results = run(u"search Old hurricane --json"_s).json();
    for (const SearchResults::Kind& kind : found.kinds) {
        const QString word = QString(recordNames(kind.kind).record).toLower() + u's';
        const QJsonObject list = run(u"list Old %1 --json"_s.arg(word)).json();
        EXPECT_EQ(identifiersIn(list[u"records"_s]), identifiersOf(session, queries.of(kind.kind)));
        EXPECT_FALSE(identifiersIn(list[u"records"_s]).isEmpty());
        EXPECT_EQ(identifiersIn(results[word]), identifiersOf(session, kind.query));
    }
}

TEST_F(ReadingCommands, TellOfADamagedDatabase)
{
    {
        QFile file(collections.path(u"Rivers/data/rivers.sqlite"_s));
        ASSERT_TRUE(file.open(QIODevice::ReadWrite));
        for (qint64 page = 4096; page < file.size(); page += 4096) {
            file.seek(page);
            file.write(QByteArray(8, '\xff'));
        }
    }
    const ToolRun check = run(u"check Rivers --json"_s);
    EXPECT_EQ(check.status, 1);
    EXPECT_EQ(check.json()[u"sound"_s], false);
    EXPECT_EQ(run(u"list Rivers documents"_s).status, 2);
    const QStringList before = collections.everything();
    const ToolRun exported = run(u"export Rivers documents csv a.csv"_s);
    EXPECT_EQ(exported.status, 2);
    EXPECT_EQ(exported.output, QString());
    EXPECT_EQ(collections.everything(), before);
}

TEST_F(ReadingCommands, LeaveAChangeAloneThatWasNeverFinished)
{
    const QString file = collections.path(u"Rivers/data/rivers.sqlite"_s);
    SQLite::Database writer(file.toStdString(), SQLite::OPEN_READWRITE);
    writer.exec("PRAGMA cache_size = 1; BEGIN; UPDATE Document SET Notes = hex(zeroblob(5000));"
                "UPDATE Event SET Notes = hex(zeroblob(5000))");
    const QString killed = collections.path(u"Killed/data/rivers.sqlite"_s);
    writeFile(killed, contentOf(file));
    writeFile(killed + u"-journal"_s, contentOf(file + u"-journal"_s));
    const QStringList before = collections.everything();
    const ToolRun list = run(u"list Killed documents"_s);
    EXPECT_EQ(list.status, 2);
    EXPECT_TRUE(
        list.error.startsWith(u"orvik-tool: A change of the database was begun and never finished."_s));
    EXPECT_EQ(run(u"check Killed"_s).status, 1);
    EXPECT_EQ(collections.everything(), before);
}

TEST_F(ReadingCommands, FailIfTheOutputDoes)
{
    ToolHooks hooks;
    hooks.prepare = [](QProcess& process) { process.setStandardOutputFile(u"/dev/full"_s); };
    const ToolRun full = runTool({u"list"_s, u"Rivers"_s, u"events"_s}, collections.path({}), hooks);
    EXPECT_EQ(full.status, 2);
    EXPECT_EQ(full.error, u"orvik-tool: The output cannot be written: No space left on device\n"_s);
    EXPECT_EQ(outputOf(u"bash"_s,
                       {u"-c"_s,
                        u"exec 3>&1; { sleep 0.2; cd '%1'; '%2' list Rivers events 2>/dev/null; "
                        "echo status $? >&3; } | :"_s.arg(collections.path({}), QStringLiteral(ORVIK_TOOL))}),
              u"status 2\n"_s);
}

void makeReadOnly(const QString& folder, bool isReadOnly)
{
    namespace fs = std::filesystem;
    const fs::path root = folder.toStdString();
    const auto change = isReadOnly ? fs::perm_options::remove : fs::perm_options::add;
    for (const auto& entry : fs::recursive_directory_iterator(root))
        fs::permissions(entry, fs::perms::owner_write, change);
    fs::permissions(root, fs::perms::owner_write, change);
}

/// For the superuser nothing is read-only.
void becomePlainUser()
{
    constexpr uid_t nobody = 65534;
    if (::getuid() == 0 && ::setuid(nobody) != 0) ::_exit(99);
}

TEST_F(ReadingCommands, LeaveNothingBehindAlsoWhereNothingCanBeWritten)
{
    const QString commands[] = {u"check %1"_s,
                                u"check %1 --files"_s,
                                u"list %1 documents"_s,
                                u"list %1 events"_s,
                                u"search %1 flood"_s,
                                u"search %1 --in-files flood"_s,
                                u"show %1 documents:2"_s,
                                u"show %1 events:2"_s,
                                u"history %1 events:2"_s};
    writeFileTexts(collections.path(u"Old/data/old.sqlite"_s), {{"2.pdf", "of a flood"}});
    std::filesystem::permissions(collections.path({}).toStdString(), std::filesystem::perms(0755));
    const QTemporaryDir elsewhere;
    for (const bool isReadOnly : {false, true}) {
        makeReadOnly(collections.path({}), isReadOnly);
        const QStringList before = collections.everything();
        ToolHooks hooks;
        if (isReadOnly)
            hooks.prepare = [](QProcess& process) { process.setChildProcessModifier(&becomePlainUser); };
        for (const QString& name : {u"Rivers"_s, u"Old"_s}) {
            for (const QString& command : commands) {
                SCOPED_TRACE(command.arg(name).toStdString());
                const ToolRun result = runTool(command.arg(name).split(u' '), collections.path({}), hooks);
                EXPECT_EQ(result.error, QString());
                EXPECT_NE(result.status, 2);
                EXPECT_EQ(collections.everything(), before);
            }
            const QString archive = elsewhere.filePath(name + (isReadOnly ? u"2.zip"_s : u".zip"_s));
            EXPECT_EQ(runTool({u"backup"_s, name, archive}, collections.path({})).status, 0);
            for (const QString& kind : {u"documents"_s, u"organizations"_s}) {
                const ToolRun exported =
                    runTool({u"export"_s, name, kind, u"csv"_s, archive + kind}, collections.path({}));
                EXPECT_EQ(exported.status, 0) << exported.error.toStdString();
            }
            EXPECT_EQ(collections.everything(), before);
        }
    }
    makeReadOnly(collections.path({}), false);
}

} // namespace

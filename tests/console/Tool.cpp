// SPDX-License-Identifier: GPL-3.0-or-later

#include "console/Tool.h"

#include "data/DatabaseSession.h"
#include "opening/NewDatabaseFile.h"
#include "platform/Clock.h"
#include "records/EventStore.h"

#include <QCryptographicHash>
#include <QDateTime>

#include <sys/stat.h>

namespace {

constexpr int patience = 60'000; ///< milliseconds

} // namespace

ToolRun runTool(const QStringList& arguments, const QString& folder, const ToolHooks& hooks)
{
    QProcess process;
    process.setWorkingDirectory(folder);
    if (hooks.prepare) hooks.prepare(process);
    process.start(QStringLiteral(ORVIK_TOOL), arguments);
    if (hooks.onStart) hooks.onStart(process);
    ToolRun run;
    if (!process.waitForFinished(patience)) return run;
    if (process.exitStatus() == QProcess::NormalExit) run.status = process.exitCode();
    run.output = QString::fromUtf8(process.readAllStandardOutput());
    run.error = QString::fromUtf8(process.readAllStandardError());
    return run;
}

void expectAnswer(const ToolRun& run, const FileCase& expected)
{
    SCOPED_TRACE(expected.asked.toStdString());
    const bool fails = expected.expected.startsWith(u'!');
    QString answer = fails ? u"orvik-tool:"_s + expected.expected.mid(1) : expected.expected;
    if (answer.endsWith(u"…\n")) answer.chop(2);
    EXPECT_EQ(run.status, fails ? 2 : 0);
    EXPECT_EQ((fails ? run.error : run.output).left(answer.size()), answer);
    EXPECT_EQ(fails ? run.output : run.error, QString());
    EXPECT_EQ(run.error.count(u'\n'), fails ? 1 : 0);
}

QString outputOf(const QString& program, const QStringList& arguments)
{
    QProcess process;
    process.start(program, arguments);
    process.waitForFinished(patience);
    return QString::fromUtf8(process.readAllStandardOutput());
}

Collections::Collections()
{
    const QString rivers = path(u"Rivers/data/rivers.sqlite"_s);
    writeFile(path(u"Rivers/data/documents/2.pdf"_s), "a report");
    writeFile(path(u"Rivers/data/documents/3.pdf"_s), "a letter");
    NewDatabaseFile::make(rivers, {});
    SQLite::Database(rivers.toStdString(), SQLite::OPEN_READWRITE)
        .exec(
            "INSERT INTO Venue (VenueID, VenueName) VALUES (2, 'Valley');"
            "INSERT INTO Document (DocumentID, DocumentName, KeyDocument, FileTypeID, OrganizationID, "
            "dStatus, "
            "DocumentDescription, FileLocation, DocumentDate) VALUES "
            "(2, 'Levées of the \"Ohio\"\t', 1, 2, 1, 'ACTIVE', 'two\nlines \x1b[31m', '2.pdf', 'May 1937'), "
            "(3, 'Ärger', 0, 2, 1, 'ACTIVE', 'flood', '3.pdf', NULL), "
            "(4, 'gone', 0, 2, 1, 'DELETED', 'flood', '3.pdf', NULL);"
            "INSERT INTO Event (EventID, EventName, Status, StartDate, StartTime) VALUES "
            "(2, 'Great flood', 'ACTIVE', '1937-01-05', '06:30');"
            "INSERT INTO DocumentVenues (DocumentID, VenueID) VALUES (2, 2)");
    DatabaseSession session;
    session.open(rivers);
    const SystemClock clock;
    EventStore store(session, clock);
    EventRecord event = store.load(2).record;
    event.eventName = u"Great Ohio flood"_s;
    event.eventDescription = u"in January"_s;
    if (store.updateEvent(event)) throw std::logic_error("the event was changed meanwhile");
    session.close();

    writeFile(path(u"Old/data/documents/2.pdf"_s), "a report");
    SQLite::Database(path(u"Old/data/old.sqlite"_s).toStdString(),
                     SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE)
        .exec(contentOf(QStringLiteral(ORVIK_OLD_DATABASE)).toStdString());
}

QStringList Collections::everything() const
{
    QStringList all;
    QDirIterator entries(m_folder.path(), QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot,
                         QDirIterator::Subdirectories);
    while (entries.hasNext()) {
        const QString path = entries.next();
        struct stat status = {};
        ::stat(QFile::encodeName(path).constData(), &status);
        const QByteArray hash =
            entries.fileInfo().isFile()
                ? QCryptographicHash::hash(contentOf(path), QCryptographicHash::Sha256).toHex()
                : QByteArray();
        all << u"%1 %2.%3 %4"_s.arg(path)
                   .arg(status.st_mtim.tv_sec)
                   .arg(status.st_mtim.tv_nsec)
                   .arg(QString::fromLatin1(hash));
    }
    all.sort();
    return all;
}

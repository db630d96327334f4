// SPDX-License-Identifier: GPL-3.0-or-later

#include "files/DatabaseFile.h"

#include "data/DatabaseSession.h"
#include "data/EngineError.h"
#include "data/RollbackJournal.h"
#include "files/FilesTexts.h"
#include "util/Error.h"
#include "util/Logging.h"

#include <QByteArray>
#include <QFile>

#include <SQLiteCpp/Backup.h>
#include <SQLiteCpp/SQLiteCpp.h>

#include <cerrno>
#include <cstdio>

namespace {

constexpr qint64 headLength = 32;
constexpr int lockPatienceMilliseconds = 1000;

/// Removes a file that was not finished.
class Unfinished
{
public:
    explicit Unfinished(QString file) : m_file(std::move(file)) { remove(); }
    ~Unfinished() { remove(); }
    Unfinished(const Unfinished&) = delete;
    Unfinished& operator=(const Unfinished&) = delete;

private:
    void remove() const
    {
        for (const char* ending : {"", "-journal", "-wal", "-shm"})
            QFile::remove(m_file + QLatin1String(ending));
    }

    QString m_file;
};

void backUp(const QString& source, const QString& copy)
{
    SQLite::Database from(QFile::encodeName(source).toStdString(), SQLite::OPEN_READONLY,
                          lockPatienceMilliseconds);
    SQLite::Database to(QFile::encodeName(copy).toStdString(), SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE,
                        lockPatienceMilliseconds);
    const int result = SQLite::Backup(to, from).executeStep(-1);
    // to the wrapper, a file that another program locks is no failure
    if (result != SQLITE_DONE) throw Error(SQLITE_BUSY, QString::fromUtf8(sqlite3_errstr(SQLITE_BUSY)));
}

void copyFile(const QString& source, const QString& copy)
{
    QFile file(source);
    if (file.copy(copy)) return;
    throw Error(EIO, FilesTexts::tr("The file cannot be copied: %1 (%2)").arg(file.errorString(), source));
}

/// A change that was never finished is undone in the copy when that is first opened; the source keeps its
/// journal. The journal is copied last: undoing twice what another program undoes meanwhile does no harm.
void copyWithJournal(const QString& source, const QString& copy)
{
    QFile::remove(copy);
    copyFile(source, copy);
    QFile::setPermissions(copy, QFile::permissions(copy) | QFile::ReadOwner | QFile::WriteOwner);
    copyFile(rollbackJournalOf(source), rollbackJournalOf(copy));
}

/// Copies what the source holds, and changes nothing there.
void copyUnchanged(const QString& source, const QString& copy)
{
    try {
        backUp(source, copy);
    } catch (const SQLite::Exception& exception) {
        if (exception.getErrorCode() != SQLITE_READONLY_ROLLBACK) throwEngineError(exception);
        copyWithJournal(source, copy);
    }
}

} // namespace

DatabaseFileKind kindOfDatabaseFile(const QString& file)
{
    QFile content(file);
    if (!content.open(QIODevice::ReadOnly)) return DatabaseFileKind::Other;
    const QByteArray head = content.read(headLength);
    if (head.startsWith("SQLite format 3")) return DatabaseFileKind::Orvik;
    const QByteArray maker = head.mid(4, 15);
    const bool isAccess = maker == "Standard Jet DB" || maker == "Standard ACE DB";
    return isAccess ? DatabaseFileKind::Access : DatabaseFileKind::Other;
}

void copyDatabase(const QString& source, const QString& target)
{
    const QString copy = target + QStringLiteral(".part");
    const Unfinished unfinished(copy);
    try {
        refuseForeignJournal(source);
        copyUnchanged(source, copy);
        DatabaseSession().open(copy);
    } catch (const Error& error) {
        // the user knows the file by the name it was chosen by
        QString description = error.description();
        description.replace(copy, source);
        if (!description.contains(source)) description += QStringLiteral(" (%1)").arg(source);
        throw Error(error.number(), description);
    }
    // what the old file left behind would be played back into the new one
    for (const char* leftover : {"-journal", "-wal", "-shm"})
        QFile::remove(target + QLatin1String(leftover));
    if (std::rename(QFile::encodeName(copy).constData(), QFile::encodeName(target).constData()) != 0) {
        throw Error(errno, FilesTexts::tr("The file cannot be made. (%1)").arg(target));
    }
    qCInfo(filesLog).noquote() << "copied:" << source << "to" << target;
}

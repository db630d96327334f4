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
#include <sqlite3.h>

#include <cerrno>
#include <cstdio>

namespace {

constexpr qint64 headLength = 32;
constexpr int pagesAtOnce = 512;
constexpr int stepWait = 50; ///< milliseconds that a step waits for another process
constexpr int longestWait = 3'000;

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

} // namespace

DatabaseFileKind kindOfDatabaseFile(const QString& file)
{
    QFile content(file);
    if (file.endsWith(fileTextEnding) || !content.open(QIODevice::ReadOnly)) return DatabaseFileKind::Other;
    const QByteArray head = content.read(headLength);
    if (head.startsWith("SQLite format 3")) return DatabaseFileKind::Orvik;
    const QByteArray maker = head.mid(4, 15);
    const bool isAccess = maker == "Standard Jet DB" || maker == "Standard ACE DB";
    return isAccess ? DatabaseFileKind::Access : DatabaseFileKind::Other;
}

/// A file that is removed unless it gets its name.
class DatabaseCopy::Unfinished
{
public:
    explicit Unfinished(QString file) : m_file(std::move(file)) { remove(); }
    ~Unfinished() { remove(); }
    Unfinished(const Unfinished&) = delete;
    Unfinished& operator=(const Unfinished&) = delete;

    [[nodiscard]] const QString& file() const { return m_file; }

private:
    void remove() const
    {
        for (const char* ending : {"", "-journal", "-wal", "-shm"})
            QFile::remove(m_file + QLatin1String(ending));
    }

    QString m_file;
};

/// SQLite begins again by itself if somebody else writes to the source between two steps.
struct DatabaseCopy::Pages
{
    Pages(const QString& source, const QString& copy)
        : from(QFile::encodeName(source).toStdString(), SQLite::OPEN_READONLY, stepWait),
          to(QFile::encodeName(copy).toStdString(), SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE),
          backup(to, from)
    {
    }

    SQLite::Database from;
    SQLite::Database to;
    SQLite::Backup backup;
};

DatabaseCopy::DatabaseCopy(const QString& source, const QString& target)
    : m_source(source),
      m_target(target),
      m_copy(std::make_unique<Unfinished>(target + QStringLiteral(".part")))
{
}

DatabaseCopy::~DatabaseCopy() = default;

bool DatabaseCopy::step()
{
    try {
        if (copyPages()) return true;
        DatabaseSession().open(m_copy->file());
    } catch (const Error& error) {
        // the user knows the file by the name it was chosen by
        QString description = error.description();
        description.replace(m_copy->file(), m_source);
        if (!description.contains(m_source)) description += QStringLiteral(" (%1)").arg(m_source);
        throw Error(error.number(), description);
    }
    complete();
    return false;
}

/// Returns false once all are copied. Changes nothing in the source.
bool DatabaseCopy::copyPages()
{
    try {
        if (!m_pages) {
            refuseForeignJournal(m_source);
            m_pages = std::make_unique<Pages>(m_source, m_copy->file());
        }
        const int result = m_pages->backup.executeStep(pagesAtOnce);
        if (result == SQLITE_DONE) {
            m_pages.reset();
            return false;
        }
        if (result == SQLITE_OK)
            m_hindered.invalidate();
        else if (!m_hindered.isValid())
            m_hindered.start();
        else if (m_hindered.hasExpired(longestWait))
            throw SQLite::Exception(sqlite3_errstr(result), result);
        return true;
    } catch (const SQLite::Exception& exception) {
        if (exception.getErrorCode() != SQLITE_READONLY_ROLLBACK) throwEngineError(exception);
        m_pages.reset();
        copyWithJournal(m_source, m_copy->file());
        return false;
    }
}

void DatabaseCopy::complete()
{
    // what the old file left behind would be played back into the new one
    for (const char* leftover : {"-journal", "-wal", "-shm"})
        QFile::remove(m_target + QLatin1String(leftover));
    if (std::rename(QFile::encodeName(m_copy->file()).constData(), QFile::encodeName(m_target).constData()) !=
        0) {
        throw Error(errno, FilesTexts::tr("The file cannot be made. (%1)").arg(m_target));
    }
    qCInfo(filesLog).noquote() << "copied:" << m_source << "to" << m_target;
}

void copyDatabase(const QString& source, const QString& target)
{
    DatabaseCopy copy(source, target);
    while (copy.step()) {
    }
}

bool isSound(const QString& database)
{
    try {
        SQLite::Database file(QFile::encodeName(database).toStdString(), SQLite::OPEN_READONLY, longestWait);
        SQLite::Statement check(file, "PRAGMA quick_check(1)");
        return check.executeStep() && check.getColumn(0).getString() == "ok";
    } catch (const SQLite::Exception& exception) {
        if (exception.getErrorCode() == SQLITE_CORRUPT || exception.getErrorCode() == SQLITE_NOTADB)
            return false;
        throwEngineError(exception);
    }
}

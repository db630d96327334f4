// SPDX-License-Identifier: GPL-3.0-or-later

#include "check/CheckedDatabase.h"

#include "check/CheckTexts.h"
#include "data/EngineError.h"
#include "data/RollbackJournal.h"
#include "files/FileBlocks.h"
#include "util/Error.h"

#include <QFile>
#include <QFileInfo>

#include <cerrno>

using namespace Qt::StringLiterals;

namespace {

/// Whether the file says that its changes are in a file of their own beside it.
bool hasWriteAheadLog(const QString& file)
{
    constexpr qint64 writerVersion = 18;
    QFile content(file);
    return content.open(QIODevice::ReadOnly) && content.seek(writerVersion) && content.read(1) == "\2";
}

/// Whether a change was begun by a program that did not live to finish it, so that it has to be undone first.
bool hasUnfinishedChange(const QString& file)
{
    try {
        SQLite::Database database(QFile::encodeName(file).toStdString(), SQLite::OPEN_READONLY);
        sqlite3_busy_timeout(database.getHandle(), 1000);
        database.execAndGet("SELECT count(*) FROM sqlite_master");
    } catch (const SQLite::Exception& exception) {
        return exception.getExtendedErrorCode() == SQLITE_READONLY_ROLLBACK;
    }
    return false;
}

} // namespace

bool CheckedDatabase::prepare()
{
    if (m_copying) {
        if (m_copying->step() == 0) m_copying.reset();
        return true;
    }
    if (!m_toCopy.empty()) {
        const auto [from, to] = m_toCopy.back();
        m_toCopy.pop_back();
        if (QFileInfo::exists(from)) m_copying.emplace(FileBlocks::pathOf(from), FileBlocks::pathOf(to));
        return true;
    }
    if (std::exchange(m_isBegun, true)) {
        if (!m_copy.isEmpty()) finishCopy();
        return false;
    }
    if (!QFileInfo::exists(m_file)) FileBlocks::fail(ENOENT, FileBlocks::pathOf(m_file));
    refuseForeignJournal(m_file);
    const QString real = QFileInfo(m_file).canonicalFilePath();
    if (hasWriteAheadLog(real)) {
        // whoever has the file open has both of these there, and reading then makes no other
        const bool isInUse = QFileInfo::exists(real + u"-wal"_s) && QFileInfo::exists(real + u"-shm"_s);
        if (!isInUse) beginCopy(u"-wal"_s);
    } else if (QFileInfo(rollbackJournalOf(m_file)).size() > 0 && hasUnfinishedChange(real)) {
        beginCopy(u"-journal"_s);
    }
    return true;
}

void CheckedDatabase::beginCopy(const QString& beside)
{
    m_folder.emplace();
    if (!m_folder->isValid())
        throw Error(
            EIO,
            CheckTexts::tr("There is no room for a copy of the database: %1").arg(m_folder->errorString()));
    const QString real = QFileInfo(m_file).canonicalFilePath();
    m_copy = m_folder->filePath(QFileInfo(real).fileName());
    m_toCopy = {{real + beside, m_copy + beside}, {real, m_copy}};
}

/// Has SQLite take over, or undo, what lies beside the copy. If it cannot, the checks say why.
void CheckedDatabase::finishCopy() const
{
    try {
        SQLite::Database database(QFile::encodeName(m_copy).toStdString(), SQLite::OPEN_READWRITE);
        database.exec("PRAGMA journal_mode = DELETE");
    } catch (const SQLite::Exception&) {
        return;
    }
}

DatabaseSession& CheckedDatabase::session()
{
    if (!m_session.isOpen()) m_session.open(path(), Access::Read);
    return m_session;
}

// SPDX-License-Identifier: GPL-3.0-or-later

#include "data/EngineError.h"

#include "data/DataTexts.h"
#include "util/Error.h"
#include "util/FileAccess.h"

#include <QFile>
#include <QFileInfo>

namespace {

constexpr int primaryCodeMask = 0xFF;

QString withPath(const QString& description, const QString& path)
{
    return QStringLiteral("%1 (%2)").arg(description, path);
}

/// What prevents writing, or opening what is needed to write; empty if the file does not show it.
QString hindranceOf(int code, const QString& path)
{
    if (path.isEmpty()) return {};
    const QFileInfo file(path);
    if (!file.exists())
        return withPath(DataTexts::tr("The database was moved or deleted while it was open."), path);
    if (code == SQLITE_READONLY_DBMOVED)
        return withPath(DataTexts::tr("The database was replaced by another file while it was open."), path);
    if (!isWritable(path)) return withPath(DataTexts::tr("The file of the database is read-only."), path);
    if (!isWritable(file.path()))
        return withPath(DataTexts::tr("The database cannot be changed: its folder is read-only."),
                        file.path());
    return {};
}

/// Whether an error is one of the file, about which the user can do nothing without its name.
bool isOfFile(int primary)
{
    switch (primary) {
    case SQLITE_READONLY:
    case SQLITE_CANTOPEN:
    case SQLITE_IOERR:
    case SQLITE_FULL:
    case SQLITE_CORRUPT:
    case SQLITE_NOTADB:
        return true;
    default:
        return false;
    }
}

QString describe(int code, const char* message)
{
    if (code == SQLITE_INTERRUPT) return DataTexts::tr("The statement took too long and was stopped.");
    return QString::fromUtf8(message);
}

} // namespace

void throwEngineError(sqlite3* database)
{
    const int code = sqlite3_extended_errcode(database);
    const int primary = code & primaryCodeMask;
    QString description = describe(primary, sqlite3_errmsg(database));
    if (isOfFile(primary)) {
        const QString path = QFile::decodeName(sqlite3_db_filename(database, "main"));
        const bool isOfDisk = primary != SQLITE_FULL && primary != SQLITE_CORRUPT && primary != SQLITE_NOTADB;
        const QString hindrance = isOfDisk ? hindranceOf(code, path) : QString();
        if (!hindrance.isEmpty()) throw Error(primary, hindrance);
        if (!path.isEmpty()) description = withPath(description, path);
    }
    throw Error(primary, description);
}

void throwEngineError(const SQLite::Exception& exception)
{
    if (exception.getExtendedErrorCode() == SQLITE_READONLY_ROLLBACK) {
        throw Error(SQLITE_READONLY,
                    DataTexts::tr("A change of the database was begun and never finished. It is undone when "
                                  "the database is opened for writing; before that, it cannot be read."));
    }
    const int primary = exception.getErrorCode() & primaryCodeMask;
    throw Error(primary, describe(primary, exception.what()));
}

bool isCommitted(int extendedCode)
{
    return extendedCode == SQLITE_IOERR_UNLOCK || extendedCode == SQLITE_IOERR_RDLOCK;
}

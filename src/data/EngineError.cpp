#include "data/EngineError.h"

#include "util/Error.h"

namespace {

constexpr int primaryCodeMask = 0xFF;

QString describe(int code, const char* message)
{
    if (code == SQLITE_INTERRUPT) return QStringLiteral("The statement took too long and was stopped.");
    return QString::fromUtf8(message);
}

} // namespace

void throwEngineError(sqlite3* database, int code)
{
    const int primary = code & primaryCodeMask;
    throw Error(primary, describe(primary, sqlite3_errmsg(database)));
}

void throwEngineError(const SQLite::Exception& exception)
{
    const int primary = exception.getErrorCode() & primaryCodeMask;
    throw Error(primary, describe(primary, exception.what()));
}

#pragma once

#include <SQLiteCpp/SQLiteCpp.h>
#include <sqlite3.h>

/// Reports what the engine says as the program's own error: its primary code and its message.
[[noreturn]] void throwEngineError(sqlite3* database, int code);
[[noreturn]] void throwEngineError(const SQLite::Exception& exception);

/// Runs what calls the engine through its wrapper, and turns the wrapper's exceptions into errors.
template <typename Call>
auto callEngine(Call&& call) -> decltype(call())
{
    try {
        return call();
    } catch (const SQLite::Exception& exception) {
        throwEngineError(exception);
    }
}

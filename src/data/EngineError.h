// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <SQLiteCpp/SQLiteCpp.h>
#include <sqlite3.h>

/// Throws what SQLite reports as the program's own error: its primary code, and its message or, if the
/// message hides what happened to the file of the connection, what did.
[[noreturn]] void throwEngineError(sqlite3* database);
[[noreturn]] void throwEngineError(const SQLite::Exception& exception);

/// Whether a commit that failed with this extended code has written everything: SQLite only could not let go
/// of its locks as it should.
[[nodiscard]] bool isCommitted(int extendedCode);

/// Runs what calls SQLite through SQLiteCpp, and turns the wrapper's exceptions into errors.
template <typename Call>
auto callEngine(Call&& call) -> decltype(call())
{
    try {
        return call();
    } catch (const SQLite::Exception& exception) {
        throwEngineError(exception);
    }
}

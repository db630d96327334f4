// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <SQLiteCpp/SQLiteCpp.h>

/// What a file holds beside the records depends on the version of the program that made it, which the file
/// names as `PRAGMA user_version`.
namespace SchemaVersion {

/// The version of this program.
constexpr int current = 2;

enum class Age
{
    Older, ///< or without the journal that the version has
    Current,
    Newer
};

/// The number that the file names. Throws SQLite::Exception, as all here do.
[[nodiscard]] int numberOf(SQLite::Database& database);

/// Whether the file has the table of the journal: none of the same name that something else made.
[[nodiscard]] bool hasJournal(SQLite::Database& database);

[[nodiscard]] Age ageOf(SQLite::Database& database);

} // namespace SchemaVersion

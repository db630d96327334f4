// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>

/// The index of the files' texts: a database of its own beside that of the collection. It holds nothing that
/// cannot be read from the files again, so it can be deleted at any time.
namespace FileTextIndex {

/// The index of a database; both are paths of the machine.
[[nodiscard]] QString pathOf(const QString& database);

/// Whether a path can be that of an index: nothing else may be made anew as one.
[[nodiscard]] bool isPath(const QString& path);

/// The `user_version` of an index that this program reads; another one is made anew.
inline constexpr int version = 1;

/// Makes the tables of an empty index. The rows of `FileText` have the keys of `File`. The name of a file is
/// that of its records, letter by letter; `Changed` is in milliseconds since 1970, UTC; `Failure` says why
/// the file has no text, and is NULL if it has. What does not exist has no row.
inline constexpr const char* tables =
    "CREATE TABLE File (FileID INTEGER PRIMARY KEY, Name TEXT NOT NULL UNIQUE, Size INTEGER, "
    "Changed INTEGER, Hash BLOB, Failure TEXT);"
    "CREATE VIRTUAL TABLE FileText USING fts5 (Text, tokenize = 'unicode61 remove_diacritics 2')";

} // namespace FileTextIndex

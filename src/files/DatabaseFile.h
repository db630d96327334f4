// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>

/// The kind of a file, judged by its content alone.
enum class DatabaseFileKind
{
    Access,
    Orvik,
    Other
};

/// A file that is missing, a folder or cannot be read is `Other`. Whether an SQLite file holds the program's
/// tables shows when it is opened.
DatabaseFileKind kindOfDatabaseFile(const QString& file);

/// Copies a database of the program, complete even while another process writes to it, and opens the
/// copy once to check it. The copy is made under a temporary name and renamed, and replaces an existing
/// `target`. Throws Error; the target is then as it was.
void copyDatabase(const QString& source, const QString& target);

/// Whether SQLite finds the structure of a database sound. Reads the whole file. Throws Error if it cannot be
/// read for other reasons.
[[nodiscard]] bool isSound(const QString& database);

#pragma once

#include <QString>

/// What a file is, by its content and whatever its name.
enum class DatabaseFileKind
{
    Access,
    Orvik,
    Other
};

/// A file that is missing, a folder or cannot be read is `Other`; whether a file of the engine really holds
/// the program's tables shows when it is opened.
DatabaseFileKind kindOfDatabaseFile(const QString& file);

/// Copies a database of the program, complete also where another process writes to it, and opens the copy
/// once to see that it is one. Made under a temporary name and renamed; replaces an existing `target`. Throws
/// Error; the target is then as it was.
void copyDatabase(const QString& source, const QString& target);

// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QElapsedTimer>
#include <QString>

#include <memory>
#include <optional>

/// How the name of the index of a database's documents ends, which lies beside it and can be made again at
/// any time. SQLite writes it, too, but it is no database of the program.
inline constexpr QLatin1String fileTextEnding(".filetext");

/// The kind of a file, judged by its content; an index is of no kind.
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
/// `target`. Until then the target is as it was; what is unfinished goes with the object.
class DatabaseCopy
{
public:
    DatabaseCopy(const QString& source, const QString& target);
    ~DatabaseCopy();
    DatabaseCopy(const DatabaseCopy&) = delete;
    DatabaseCopy& operator=(const DatabaseCopy&) = delete;

    /// Copies some pages. Returns false once the copy is complete. Throws Error, also if another process does
    /// not let go of the source for some seconds.
    bool step();

private:
    class Unfinished;
    struct Pages;

    bool copyPages();
    void complete();

    QString m_source;
    QString m_target;
    std::unique_ptr<Unfinished> m_copy;
    std::unique_ptr<Pages> m_pages; ///< null until the first step
    QElapsedTimer m_hindered;       ///< since when another process holds the source; invalid if none does
};

/// Makes such a copy at once. Throws Error.
void copyDatabase(const QString& source, const QString& target);

/// Whether SQLite finds the structure of a database sound. Reads the whole file. Throws Error if it cannot be
/// read for other reasons.
[[nodiscard]] bool isSound(const QString& database);

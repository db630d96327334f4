// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QByteArray>
#include <QHash>
#include <QString>

#include <SQLiteCpp/SQLiteCpp.h>

#include <memory>
#include <optional>

/// What the index knows of a file.
struct IndexedFile
{
    std::optional<qint64> size;    ///< bytes
    std::optional<qint64> changed; ///< milliseconds since 1970, UTC; none: is looked at again next time
    QByteArray hash;               ///< SHA-256; empty: is read again next time
    QString failure;               ///< why it has no text; empty if it has

    bool operator==(const IndexedFile&) const = default;
};

/// The index as it is written. What was changed is in it once it is kept; a process that is killed before
/// leaves what was there. All throws SQLite::Exception.
class IndexFile
{
public:
    /// Makes the index if there is none, or if it is of another version.
    explicit IndexFile(const QString& path);

    /// Deletes the index with all that SQLite laid beside it.
    static void remove(const QString& path);

    /// All files of the index by their names.
    [[nodiscard]] QHash<QString, IndexedFile> files();

    /// Writes what is known of a file and leaves its text as it is.
    void note(const QString& name, const IndexedFile& file);

    /// Writes what is known of a file with its text, which is left out if there is a failure.
    void store(const QString& name, const IndexedFile& file, const QString& text);

    /// Takes a file with its text out of the index.
    void forget(const QString& name);

    [[nodiscard]] bool hasChanges() const { return m_transaction != nullptr; }

    /// Brings all changes to the disk.
    void keep();

private:
    void change();
    [[nodiscard]] std::optional<qint64> keyOf(const QString& name);

    SQLite::Database m_database;
    std::unique_ptr<SQLite::Transaction> m_transaction;
};

// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>

#include <SQLiteCpp/SQLiteCpp.h>

#include <memory>

/// Keeps all others from writing to a database of any version as long as it lives. They can still read it.
class DatabaseLock
{
public:
    /// Throws Error, which names the file, if that cannot be opened or if another program writes to it.
    explicit DatabaseLock(const QString& file);
    ~DatabaseLock();
    DatabaseLock(const DatabaseLock&) = delete;
    DatabaseLock& operator=(const DatabaseLock&) = delete;

    /// The connection in whose transaction the file is locked.
    [[nodiscard]] SQLite::Database& database() const { return *m_database; }

    /// Writes what was changed, and ends the lock. Throws SQLite::Exception; then nothing was changed.
    void commit();

private:
    std::unique_ptr<SQLite::Database> m_database;
    std::unique_ptr<SQLite::Transaction> m_transaction; ///< takes back what was not committed
};

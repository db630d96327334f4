// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <sqlite3.h>

#include <chrono>

/// What a statement may do while it is prepared.
enum class Access
{
    Read,
    Write,       ///< all but records, their links and the journal
    WriteRecords ///< all, while a save keeps the journal; but what the journal says stays as it is
};

/// Stops a statement that would keep the user waiting for ever: measures how long SQLite has worked since it
/// was last asked for a row.
class StatementWatch
{
public:
    void setPatience(std::chrono::milliseconds patience) { m_patience = patience; }

    /// To be called before SQLite is asked for something.
    void beginStep() { m_fresh = true; }

    /// Called by SQLite now and then while it works.
    bool isOverdue();

private:
    std::chrono::milliseconds m_patience{30000};
    std::chrono::steady_clock::time_point m_since;
    bool m_fresh = true;
};

/// Adds the program's rules for text to a connection: the collation `ORVIK`, and `LIKE` without regard to
/// case in every script, and `lower` that folds every letter. The file never depends on them.
void addTextRules(sqlite3* connection);

/// Bounds what reading the schema of a file may cost, which may have been made to hang the program: the
/// length of each definition, and the time for all of them together, which the watch, which must outlive the
/// connection, begins to count at its next step. To be called before the first look into the file, and
/// `addLimits` after it.
void addSchemaLimits(sqlite3* connection, StatementWatch* watch);

/// Bounds what a statement may cost, and turns off what no statement of the program needs: attached
/// files, triggers, double quotes as names, changes to the schema's own tables, modules of SQLite.
void addLimits(sqlite3* connection);

/// Lets the connection prepare only what `*access` allows; `access` must outlive the connection. Reading
/// covers the rows of the file's tables and a few functions, writing adds rows and transactions. Nothing
/// reaches the schema, another file, a setting or an extension, and nothing changes a row of the journal.
void addAuthorizer(sqlite3* connection, const Access* access);

/// Stops statements that the watch reports as overdue. It must outlive the connection.
void addWatch(sqlite3* connection, StatementWatch* watch);

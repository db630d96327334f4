// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "data/Catalog.h"
#include "data/EditableRecordSet.h"
#include "data/EngineRules.h"
#include "data/PreparedStatements.h"
#include "data/RecordSet.h"
#include "data/SchemaVersion.h"

#include <QString>

#include <SQLiteCpp/SQLiteCpp.h>

#include <map>
#include <memory>
#include <utility>

/// The single session with the database file, for the whole run of the program.
///
/// Takes statements in the program's own dialect (dates between `#`, texts in single or double quotes, names
/// qualified with a table over a stored query) and answers without regard to the case of letters. A
/// statement opened for reading can only read. Every failure is an Error with SQLite's number; while no
/// database is open, every call but `open` fails with one.
class DatabaseSession
{
public:
    DatabaseSession();
    ~DatabaseSession();
    DatabaseSession(const DatabaseSession&) = delete;
    DatabaseSession& operator=(const DatabaseSession&) = delete;

    /// Opens a file that exists, which nothing can change if it is opened for reading or if it is not of this
    /// version of the program. Throws Error; what was open before then stays open.
    void open(const QString& file, Access access = Access::Write);
    void close();

    [[nodiscard]] bool isOpen() const { return m_database != nullptr; }
    [[nodiscard]] const QString& fileName() const { return m_fileName; }

    /// Whether the open file can be read but not changed: because it was opened for reading, because of its
    /// version, because of the file itself, or because of its folder, which has to take the journal of a
    /// change.
    [[nodiscard]] bool isReadOnly() const;

    /// Whether a statement has met a part of the open file that SQLite cannot read.
    [[nodiscard]] bool isDamaged() const { return m_database && m_database->isDamaged; }

    /// Throws an Error that names the cause if the open file can be read but not changed.
    void requireWritable() const;

    /// How old the open file is, seen from this version of the program.
    [[nodiscard]] SchemaVersion::Age age() const { return m_age; }

    /// Whether the open file has a journal of its changes, as every file has that can be changed.
    [[nodiscard]] bool keepsJournal() const { return m_keepsJournal; }

    /// Whether what is written now waits for its commit.
    [[nodiscard]] bool isInTransaction() const;

    /// Notes no changes until the file is opened again: what the journal costs is measured so. The program
    /// itself never does this.
    void stopJournal() { m_keepsJournal = false; }

    /// Whether another program has changed the open file since this was asked last or, the first time, since
    /// it was opened. If another file has taken its place, opens that. Throws Error if the file cannot be
    /// read.
    [[nodiscard]] bool wasChangedOutside();

    /// The tables and stored queries of the open file; empty while none is open.
    [[nodiscard]] const Catalog& catalog() const { return m_catalog; }

    /// Opens a statement for reading, row by row.
    RecordSet read(const QString& statement);

    /// Reads all rows of a statement.
    RecordTable readAll(const QString& statement);

    /// Opens `SELECT * FROM` one table, with or without a condition, for changing its rows and adding to
    /// them.
    EditableRecordSet edit(const QString& statement);

    /// Runs an `UPDATE` or `DELETE FROM`; returns the number of rows changed.
    int execute(const QString& statement);

    /// The longest time that SQLite may work before it returns a row, 30 seconds unless set.
    void setPatience(std::chrono::milliseconds patience) { m_watch.setPatience(patience); }

private:
    friend class EditableRecordSet;
    friend class HeldRows;
    friend class RecordWriting;
    friend class Transaction;

    PreparedStatements::Loan prepareToRead(const QString& statement);
    PreparedStatements::Loan prepareOnce(const QString& engineStatement);
    RecordSet readOnce(const QString& engineStatement, const QString& built = {});
    PreparedStatements::Loan prepareHeld(const QString& engineStatement, Access access);
    EngineStatement prepare(const QString& engineStatement, Access access);
    void runInEngine(const QString& engineStatement);

    void requireSameVersion();
    [[nodiscard]] Access writeAccess() const
    {
        return m_writesRecords ? Access::WriteRecords : Access::Write;
    }

    /// Runs a prepared statement that changes something. `built` is what it was made of, if anything.
    void run(EngineStatement& statement, const QString& built = {});
    const std::shared_ptr<EngineConnection>& database() const;
    std::shared_ptr<EngineConnection> connect(const QString& path, Access access);
    qint64 setting(const char* statement);
    [[nodiscard]] QString hindrance() const;
    [[nodiscard]] bool hasReadOnlyFile() const;
    [[nodiscard]] QString folder() const; ///< of the open file, where SQLite keeps its journal

    std::shared_ptr<EngineConnection> m_database; ///< shared with the statements that still read
    Catalog m_catalog;
    std::shared_ptr<PreparedStatements> m_prepared; ///< of the open file
    std::map<Access, std::shared_ptr<PreparedStatements>>
        m_heldPrepared; ///< those of HeldRows, by what they may do
    QString m_fileName;
    Access m_access = Access::Read;
    Access m_opened = Access::Write; ///< what the file was opened for
    SchemaVersion::Age m_age = SchemaVersion::Age::Current;
    bool m_keepsJournal = false;
    bool m_writesRecords = false; ///< while there is a RecordWriting
    qint64 m_fileVersion = 0;     ///< the number of it
    qint64 m_dataVersion = 0;     ///< of SQLite; stays the same until another connection writes
    StatementWatch m_watch;
};

/// Holds together what a save writes: the file shows all of it or, should the process die, none. What was
/// written before a trapped error is kept, so leaving the scope commits as `commit()` does.
class Transaction
{
public:
    explicit Transaction(DatabaseSession& session);
    ~Transaction();
    Transaction(const Transaction&) = delete;
    Transaction& operator=(const Transaction&) = delete;

    /// Throws Error if the file cannot take the rows; then none of them is in it.
    void commit();

    /// Takes back what was written since the transaction began.
    void rollBack();

private:
    DatabaseSession& m_session;
    bool m_open = true;
};

/// Lets the session change records and their links, and add to the journal, for as long as it lives. Only
/// what keeps the journal makes one, so that no change is missing there.
class RecordWriting
{
public:
    /// The session must outlive it.
    explicit RecordWriting(DatabaseSession& session)
        : m_session(session), m_before(std::exchange(session.m_writesRecords, true))
    {
    }
    ~RecordWriting() { m_session.m_writesRecords = m_before; }
    RecordWriting(const RecordWriting&) = delete;
    RecordWriting& operator=(const RecordWriting&) = delete;

private:
    DatabaseSession& m_session;
    bool m_before;
};

/// Runs `write` in a transaction of its own: if it throws, nothing of it is in the file.
template <typename Write>
void writeWholly(DatabaseSession& session, Write&& write)
{
    Transaction transaction(session);
    try {
        write();
    } catch (...) {
        transaction.rollBack();
        throw;
    }
    transaction.commit();
}

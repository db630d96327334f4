// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "data/DatabaseSession.h"
#include "journal/Journal.h"
#include "platform/Clock.h"

#include <QStringList>

#include <map>
#include <vector>

/// Rows of a table that a change to a list may touch. Rows that it adds have to meet the condition, too.
struct TouchedRows
{
    QString table;
    QString condition;
    QStringList columns{}; ///< beside the key, of a table with one; all if empty
};

/// What is done to a list.
struct ListOperation
{
    QString name;      ///< `add`, `change`, `merge` or `delete`
    QString table;     ///< of the list
    QString entryWord; ///< the word for an entry, not translated
    qint64 key = 0;    ///< of the entry
    QString title;     ///< the entry's name; the new one if it is changed
};

/// A change to a list: a transaction in which records and lists can be written, and the row of the journal
/// that tells which rows changed.
///
/// Nothing is written unless `commit` is reached, and nothing is noted if no row changed.
class JournaledListChange
{
public:
    /// Session and clock must outlive it. Throws Error.
    JournaledListChange(DatabaseSession& session, const Clock& clock);
    ~JournaledListChange();
    JournaledListChange(const JournaledListChange&) = delete;
    JournaledListChange& operator=(const JournaledListChange&) = delete;

    /// To be called before anything is written, with each table once. Throws Error.
    void setTouched(const std::vector<TouchedRows>& touched);

    /// Throws Error; then nothing is written.
    void commit(const ListOperation& operation);

private:
    /// Rows by their numbers in the table.
    using NumberedRows = std::map<qint64, HeldRow>;
    struct Watched
    {
        TouchedRows touched;
        QString key; ///< the column; empty for a table of links
        NumberedRows before;
    };

    [[nodiscard]] NumberedRows read(const Watched& watched, const QString& condition) const;
    [[nodiscard]] NumberedRows readAgain(const Watched& watched) const;
    void addDifferences(const Watched& watched, JournalEntry& entry) const;

    DatabaseSession& m_session;
    QDateTime m_moment;
    Transaction m_transaction;
    RecordWriting m_writing;
    std::vector<Watched> m_watched;
    bool m_isOpen = true;
};

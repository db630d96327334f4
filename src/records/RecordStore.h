// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "data/ControlFill.h"
#include "data/DatabaseSession.h"
#include "data/RecordKind.h"
#include "journal/JournaledSave.h"
#include "platform/Clock.h"
#include "records/EditorTypes.h"
#include "records/RecordColumns.h"
#include "records/RecordLinks.h"

#include <QString>

#include <optional>
#include <variant>
#include <vector>

/// A column that holds the same in every record that the program adds.
struct ConstantColumn
{
    QString column;
    Value value;
    History history;
};

/// The entries of a list that is filled by the pick list.
template <typename Record>
struct ListLink
{
    LinkTable table;
    const char* caption;
    std::vector<ListEntry> Record::*entries;
    QString statement; ///< reads keys and texts; the record's identifier completes it
    QString displayColumn;
};

/// The entries of a list with check boxes.
template <typename Record>
struct CheckLink
{
    LinkTable table;
    const char* caption;
    std::vector<CheckEntry> Record::*entries;
    ListSource source;
    bool hasSetting = false; ///< whether there is a row for every entry, with its tick in `Setting`
};

template <typename Record>
using RecordLink = std::variant<ListLink<Record>, CheckLink<Record>>;

/// Where the records of a kind are kept.
template <typename Record>
struct RecordTables
{
    RecordKind kind;
    QString Record::*name;
    QString statusColumn; ///< of the life-cycle status
    ColumnTable<Record> columns;
    std::vector<ConstantColumn> constants;
    std::vector<RecordLink<Record>> links; ///< in the order in which they are written
};

enum class SaveMode
{
    Addition,
    Change
};

/// How the stores of all kinds read and write records. What only one kind has, its store adds by overriding.
///
/// Lives as long as its editor; the session and the clock outlive it. Every failure is an Error. A save is
/// one transaction: what was written before a failure stays, and a process that dies leaves all or nothing.
template <typename Record>
class RecordStore
{
public:
    /// A record for editing or viewing. Throws Error 6 for an identifier beyond 16 bits.
    [[nodiscard]] LoadedRecord<Record> load(qint64 id) const;

protected:
    RecordStore(DatabaseSession& session, const Clock& clock, const RecordTables<Record>& tables)
        : m_session(session), m_clock(clock), m_tables(tables)
    {
    }
    ~RecordStore() = default;
    RecordStore(const RecordStore&) = default;
    RecordStore& operator=(const RecordStore&) = delete;

    /// A record with every entry unchecked and "None" in every list.
    [[nodiscard]] Record emptyRecord() const;

    /// Adds the record, or completes one that a failed save left unfinished. Its identifier is known
    /// afterwards, also if a later step failed. Returns false, and writes nothing, if another active record
    /// has its name.
    [[nodiscard]] bool add(Record& record);

    /// Writes a record that exists; what the user did not change stays as it is stored. If the record was
    /// changed or deleted after it was read, returns what differs and writes nothing. Throws Error if the
    /// record is gone; nothing is written then.
    [[nodiscard]] std::optional<RecordConflict> change(Record& record);

    /// Marks a record as deleted and returns the message that says so. `step` is the one that the deletion
    /// belongs to.
    QString remove(qint64 id, JournalStep* step);

    /// Throws Error, before anything is written, if a value cannot be written.
    virtual void requireWritable(const Record& record) const;

    /// Whether a save writes the columns of the record's file.
    [[nodiscard]] virtual bool takesFile(const Record& /*record*/, SaveMode /*mode*/) const { return true; }

    /// Before the row is written; `id` is its identifier.
    virtual void prepare(Record& /*record*/, SaveMode /*mode*/, qint64 /*id*/, JournaledSave& /*save*/) const
    {
    }

    /// The values that a change writes.
    [[nodiscard]] virtual FieldValues changedFields(const Record& record) const;

    /// Between the row and the links: what else belongs to the record.
    virtual void writeParts(const Record& /*record*/, SaveMode /*mode*/, JournaledSave& /*save*/) {}
    virtual RecordTable readParts(Record& /*record*/) const { return {}; }
    [[nodiscard]] virtual FieldValues partFields(const Record& /*record*/) const { return {}; }

    virtual void readLinks(Record& record) const;
    void readLink(const RecordLink<Record>& link, Record& record) const;

    [[nodiscard]] DatabaseSession& session() const { return m_session; }

private:
    [[nodiscard]] QString statement(const QString& table, qint64 id) const;
    [[nodiscard]] RecordView viewOf(const Record& record, const QString& status) const;
    [[nodiscard]] bool isNameTaken(const Record& record) const;
    void setConstants(EditableRecordSet& rows, const QString& status, bool isHistory) const;
    void writeLinks(const Record& record);
    void beginRow(EditableRecordSet& rows) const;
    void writeHistory(const Record& record, const QString& status);

    DatabaseSession& m_session;
    const Clock& m_clock;
    const RecordTables<Record>& m_tables;
};

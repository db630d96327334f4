// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "data/RecordKind.h"
#include "journal/Snapshot.h"

#include <QDateTime>
#include <QString>

#include <optional>

class DatabaseSession;

/// What was done to a record, or to a list.
enum class JournalAction
{
    Add,
    Change,
    Delete,
    Restore, ///< a deleted record is there again, or a record is as it was in an earlier version
    List
};

/// One row of the journal, without its place there.
struct JournalEntry
{
    JournalAction action = JournalAction::Change;
    QString kind; ///< the table of a kind of record or, of a list, its own
    qint64 identifier = 0;
    QString title;
    Snapshot before;
    Snapshot after;
};

/// A step: what one command did, in one row of the journal or several. Undo and Redo go back and forth by
/// whole steps. The first row gives the step its number; the steps that the commands can take back from then
/// on are those that its rows name.
struct JournalStep
{
    qint64 number = 0;   ///< 0 until its first row is written
    qint64 reverses = 0; ///< the step that this one takes back or does again; 0 for a change of its own
    qint64 undoStep =
        0; ///< the step that Undo takes back next; known beforehand if this one reverses another
    qint64 redoStep = 0; ///< the same of Redo
};

/// Writes and reads the table `Journal`. Rows are only added. Every failure is an Error.
namespace Journal {

/// Adds a row, in the transaction of the change and while there is a RecordWriting. `step` is the one to
/// which the row belongs; a step that something else has come after is begun anew.
void append(DatabaseSession& session, const QDateTime& moment, const JournalEntry& entry, JournalStep& step);

/// Adds a row that belongs to no step: what it tells is not taken back, and neither Undo nor Redo sees it. To
/// be called as `append` is.
void note(DatabaseSession& session, const QDateTime& moment, const JournalEntry& entry);

/// When the last row was added, in local time; invalid if there is none.
[[nodiscard]] QDateTime lastMoment(DatabaseSession& session);

/// The largest identifier that a record, or an entry of a list, of that table has ever had, as far as the
/// journal knows; 0 if it knows of none. Identifiers are not given twice, so that none inherits the past of
/// another one.
[[nodiscard]] qint64 largestIdentifier(DatabaseSession& session, const QString& table);

/// What was done to a record, by its own row before and after it.
[[nodiscard]] JournalAction actionBetween(RecordKind kind, const Snapshot& before, const Snapshot& after);

/// The word for an action in the table, and back; std::nullopt for any other word.
[[nodiscard]] QString wordOf(JournalAction action);
[[nodiscard]] std::optional<JournalAction> actionOf(const QString& word);

} // namespace Journal

// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "data/RecordKind.h"
#include "journal/Snapshot.h"

#include <QDateTime>

class DatabaseSession;

/// Makes rows of the file those of a snapshot. Values are written as they were held. What a snapshot has
/// beside the columns of a table is left out. To be called in a transaction and while there is a
/// RecordWriting. Every failure is an Error.
namespace SnapshotWriter {

/// Makes all that belongs to a record, which is as `found` says, what it was in `target`. Only what differs
/// is written; of a table of links or of the profile, all rows, in the order of the snapshot.
void writeRecord(DatabaseSession& session, RecordKind kind, qint64 identifier, const Snapshot& found,
                 const Snapshot& target);

/// Adds the row that a save adds to the history of a record; none if the record has no row of its own.
void addToHistory(DatabaseSession& session, RecordKind kind, qint64 identifier, const QDateTime& moment);

/// What an exchange of rows did.
struct Exchange
{
    Snapshot removed;   ///< the rows that were replaced or deleted
    Snapshot written;   ///< what came in their place
    Snapshot unmatched; ///< rows to be replaced or deleted that were not there, and rows that were in the way
};

/// Puts the rows of `target` in place of those of `present`, as a change to a list has them. A row with a key
/// is found by it, a link by its content: one link of a record is replaced by another one in its place, so
/// that the order of links stays. What does not match is left as it is.
[[nodiscard]] Exchange exchange(DatabaseSession& session, const Snapshot& present, const Snapshot& target);

/// The rows that the file has now for those of a snapshot of a list: those with the same keys, and all links
/// of the same records.
[[nodiscard]] Snapshot presentRows(DatabaseSession& session, const Snapshot& rows);

} // namespace SnapshotWriter

// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "data/HeldRows.h"
#include "data/RecordKind.h"

#include <QString>

#include <map>
#include <vector>

class DatabaseSession;

/// Rows of several tables at one moment, as the journal keeps them.
///
/// Of a record, all that belongs to it: its row, its links, settings and profile in the order in which they
/// were written, and beside each key the name that it stood for then, under the column of that name. Of a
/// list, the rows that changed. Values are in held form.
struct Snapshot
{
    std::map<QString, std::vector<HeldRow>> tables; ///< tables without rows are left out

    [[nodiscard]] bool isEmpty() const { return tables.empty(); }

    /// The rows of a table; none if it is not here.
    [[nodiscard]] const std::vector<HeldRow>& rows(const QString& table) const;
};

namespace Snapshots {

/// What belongs to a record now, without a row of its own if there is no such record. Throws Error.
[[nodiscard]] Snapshot ofRecord(DatabaseSession& session, RecordKind kind, qint64 identifier);

/// As the journal holds it; null for an empty one.
[[nodiscard]] Value toJson(const Snapshot& snapshot);

/// Throws Error if the text is not what `toJson` makes.
[[nodiscard]] Snapshot fromJson(const Value& json);

/// Whether two snapshots of records of a kind hold the same, whatever the order of links and the names of
/// what the keys stood for.
[[nodiscard]] bool areEqual(RecordKind kind, const Snapshot& one, const Snapshot& other);

} // namespace Snapshots

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
/// list, the rows that changed, with the key and the changed columns of a row that stays. Values are in held
/// form.
///
/// Beside the tables there can be rows that tell of the step: `Operation`, what was done to a list, `Files`,
/// which files a save replaced, and `Uploads`, which files it took in.
struct Snapshot
{
    std::map<QString, std::vector<HeldRow>> tables; ///< tables without rows are left out

    [[nodiscard]] bool isEmpty() const { return tables.empty(); }

    /// The rows of a table; none if it is not here.
    [[nodiscard]] const std::vector<HeldRow>& rows(const QString& table) const;
};

namespace Snapshots {

inline constexpr QStringView operationRows = u"Operation";
inline constexpr QStringView fileRows = u"Files";
inline constexpr QStringView uploadRows = u"Uploads";

/// Whether rows of that name are those of a table of the file.
[[nodiscard]] bool isTable(const QString& name);

/// Whether two values are the same in a column: a number without a fraction is not told from a whole one.
[[nodiscard]] bool areSame(const Value& one, const Value& other);

/// What belongs to a record now, without a row of its own if there is no such record. Throws Error.
[[nodiscard]] Snapshot ofRecord(DatabaseSession& session, RecordKind kind, qint64 identifier);

/// The title or name of a record; empty if it has no row of its own.
[[nodiscard]] QString titleOf(RecordKind kind, const Snapshot& record);

/// As the journal holds it, with what was done to a list, or which files were taken in, before all else; null
/// for an empty one.
[[nodiscard]] Value toJson(const Snapshot& snapshot);

/// Throws Error if the text is not what `toJson` makes.
[[nodiscard]] Snapshot fromJson(const Value& json);

/// Whether two snapshots of records of a kind hold the same, whatever the order of links and the names of
/// what the keys stood for.
[[nodiscard]] bool areEqual(RecordKind kind, const Snapshot& one, const Snapshot& other);

} // namespace Snapshots

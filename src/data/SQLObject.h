// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>

#include <memory>

/// The four clauses of a query and its direction. Views pass these to each other: a list passes its query
/// to the timeline, the map and the chart, and each narrows it by a longer where clause of its own.
struct SQLObject
{
    QString SelectClause; ///< begins with `SELECT`
    QString FromClause;   ///< begins with `FROM`
    QString WhereClause;  ///< begins with `WHERE` and is a complete condition, or is empty
    QString OrderClause;  ///< begins with `ORDER BY`, or is empty
    bool AtoZ = true;     ///< the direction of the last sort key

    /// The complete statement. Empty clauses leave their blanks behind, which mean nothing.
    [[nodiscard]] QString sqlStr() const;
};

/// Queries are shared between the views that show them, and never changed once they are shown.
using SharedQuery = std::shared_ptr<const SQLObject>;

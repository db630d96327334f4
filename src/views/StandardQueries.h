// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "views/clsView.h"

class DatabaseSession;

/// The three queries that show all records of a kind, made once at start-up and never changed. A narrower
/// view builds a query of its own from their clauses.
struct StandardQueries
{
    StandardQueries();

    [[nodiscard]] const SharedQuery& of(RecordKind kind) const;

    /// The query for those records of a kind that also meet a condition, which begins with ` AND `.
    [[nodiscard]] SharedQuery narrowed(RecordKind kind, const QString& condition) const;

    /// The view of all records of a kind.
    [[nodiscard]] clsView all(RecordKind kind) const;

    /// Whether the view of all records of a kind has this one. Throws Error.
    [[nodiscard]] bool has(DatabaseSession& session, RecordKind kind, qint64 identifier) const;

    /// Counts the records of a query of a kind without reading their rows, which would take several times as
    /// long. Throws Error.
    [[nodiscard]] static qint64 count(DatabaseSession& session, RecordKind kind, const SQLObject& query);

    SharedQuery documents;
    SharedQuery events;
    SharedQuery organizations;
};

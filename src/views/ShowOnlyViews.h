// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "views/clsView.h"

#include <QString>

#include <optional>
#include <vector>

class DatabaseSession;
struct StandardQueries;
struct clsCities;

/// The views that the graphics and the details narrow the records to: the documents of one type, the
/// organizations of one state, one city or several places, or one record, each out of all records of its
/// kind, and the organizations of a view that have no place. Every call throws Error if the records cannot be
/// read, as with an apostrophe in a name, which breaks the statement.
class ShowOnlyViews
{
public:
    /// Both must outlive the object.
    ShowOnlyViews(DatabaseSession& session, const StandardQueries& queries)
        : m_session(session), m_queries(queries)
    {
    }

    [[nodiscard]] clsView documentsOfType(const QString& typeName) const;

    /// The place must have a state, or a city for the other view.
    [[nodiscard]] clsView organizationsOfState(const clsCities& place) const;
    [[nodiscard]] clsView organizationsOfCity(const clsCities& place) const;

    /// The organizations with these identifiers, which stand at the places named.
    [[nodiscard]] clsView organizationsAt(const std::vector<qint64>& identifiers,
                                          const QString& places) const;

    /// Those of a query that have no place on the map, which it returns alone.
    [[nodiscard]] clsView organizationsWithoutPlace(const SharedQuery& query) const;

    /// A single record; std::nullopt if it is not there or deleted.
    [[nodiscard]] std::optional<clsView> record(RecordKind kind, qint64 identifier) const;

private:
    [[nodiscard]] clsView organizations(const QString& condition, const QString& caption) const;
    [[nodiscard]] clsView checked(clsView view) const;

    DatabaseSession& m_session;
    const StandardQueries& m_queries;
};

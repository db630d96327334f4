#pragma once

#include "views/StandardQueries.h"
#include "views/clsView.h"

#include <array>
#include <optional>

/// What a search looks through.
enum class SearchScope
{
    All = 0,
    Documents = 1,
    Events = 2,
    Organizations = 3
};

/// The kinds of record, in the order in which a search of all shows them.
inline constexpr std::array searchedKinds{ViewKind::Documents, ViewKind::Events, ViewKind::Organizations};

/// The scope that suits what the main window shows.
constexpr SearchScope scopeOf(ViewKind shown)
{
    switch (shown) {
    case ViewKind::Documents:
        return SearchScope::Documents;
    case ViewKind::Events:
        return SearchScope::Events;
    case ViewKind::Organizations:
        return SearchScope::Organizations;
    case ViewKind::Home:
    case ViewKind::SearchResults:
        break;
    }
    return SearchScope::All;
}

/// The one kind that a scope looks through, or nothing for all.
constexpr std::optional<ViewKind> kindOf(SearchScope scope)
{
    if (scope == SearchScope::All) return std::nullopt;
    return static_cast<ViewKind>(static_cast<int>(scope) - 1);
}

/// What a kind of record is called, in captions and in the tables.
struct RecordNames
{
    QString record; ///< also its table
    QString key;
    QString name;
};

inline RecordNames recordNames(ViewKind kind)
{
    const QString record = kind == ViewKind::Documents ? QStringLiteral("Document")
                           : kind == ViewKind::Events  ? QStringLiteral("Event")
                                                       : QStringLiteral("Organization");
    return {record, record + QStringLiteral("ID"), record + QStringLiteral("Name")};
}

/// The query that shows all records of a kind that has a list.
inline const SQLObject& standardQuery(const StandardQueries& queries, ViewKind kind)
{
    return kind == ViewKind::Documents ? *queries.documents
           : kind == ViewKind::Events  ? *queries.events
                                       : *queries.organizations;
}

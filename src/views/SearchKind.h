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

/// What the tables call a kind of record that has a list.
inline RecordNames recordNames(ViewKind kind)
{
    return recordNames(recordKindOf(kind).value_or(RecordKind::Organization));
}

/// The query that shows all records of a kind that has a list.
inline const SQLObject& standardQuery(const StandardQueries& queries, ViewKind kind)
{
    return kind == ViewKind::Documents ? *queries.documents
           : kind == ViewKind::Events  ? *queries.events
                                       : *queries.organizations;
}

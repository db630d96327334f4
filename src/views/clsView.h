#pragma once

#include "data/SQLObject.h"
#include "records/RecordKind.h"
#include "views/clsAdvSearch.h"

#include <QString>

#include <optional>

/// The kinds of view that the main window shows.
enum class ViewKind
{
    Documents = 0,
    Events = 1,
    Organizations = 2,
    Home = 3,
    SearchResults = 4
};

/// The view that lists the records of a kind.
constexpr ViewKind viewOf(RecordKind kind)
{
    switch (kind) {
    case RecordKind::Document:
        return ViewKind::Documents;
    case RecordKind::Event:
        return ViewKind::Events;
    case RecordKind::Organization:
        break;
    }
    return ViewKind::Organizations;
}

/// The kind of record that a view lists; `std::nullopt` for the home page and the page of search results.
constexpr std::optional<RecordKind> recordKindOf(ViewKind view)
{
    for (const RecordKind kind : recordKinds)
        if (viewOf(kind) == view) return kind;
    return std::nullopt;
}

/// One entry of the history of views. Once added it does not change, so showing it again asks the same query
/// of the data as they are then.
struct clsView
{
    ViewKind viewIndex = ViewKind::Home;
    SharedQuery SQL = std::make_shared<const SQLObject>();
    QString Caption;
    QString Keywords{};       ///< what a keyword search looked for, as typed; else empty
    clsAdvSearch AdvSearch{}; ///< the criteria of the search that made the view; else empty
};

// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "data/RecordKind.h"
#include "data/SQLObject.h"
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

/// Returns the view that lists the records of a kind.
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

/// Returns the kind of record that a view lists, or `std::nullopt` for the home page and the search results.
constexpr std::optional<RecordKind> recordKindOf(ViewKind view)
{
    for (const RecordKind kind : recordKinds)
        if (viewOf(kind) == view) return kind;
    return std::nullopt;
}

/// An entry of the history of views. It never changes once it is added: shown again, it runs the same query
/// on the data of that moment.
struct clsView
{
    ViewKind viewIndex = ViewKind::Home;
    SharedQuery SQL = std::make_shared<const SQLObject>();
    QString Caption;
    QString Keywords{};       ///< the text of the keyword search that made the view, as typed, or empty
    clsAdvSearch AdvSearch{}; ///< the criteria of the advanced search that made the view, or none
    bool alsoInFiles = false; ///< whether the keyword search also looks into the files of documents
    bool onlyInFiles = false; ///< whether it looks nowhere else
};

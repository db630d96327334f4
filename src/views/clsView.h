#pragma once

#include "data/SQLObject.h"
#include "views/clsAdvSearch.h"

#include <QString>

/// The kinds of view that the main window shows.
enum class ViewKind
{
    Documents = 0,
    Events = 1,
    Organizations = 2,
    Home = 3,
    SearchResults = 4
};

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

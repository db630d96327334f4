#pragma once

#include "views/SearchKind.h"

class DatabaseSession;

/// A query for the very records of a keyword search, asked for by their keys where they are few: looking
/// through every description once is enough for the list and the graphic beside it together. Where the
/// records are many, or the search cannot be made, it is the query itself.
///
/// Only for keyword searches: a query by criteria of links means these very links, which a graphic counts.
SharedQuery queryByKeys(DatabaseSession& session, ViewKind kind, const SharedQuery& query);

// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "data/RecordKind.h"
#include "data/SQLObject.h"

class DatabaseSession;

/// Runs a keyword search and returns a query for the same records by their keys, so that the list and its
/// graphic do not both read every description. Returns `query` itself if there are more than 500 records or
/// the search fails.
///
/// For keyword searches only: a query with criteria on links selects the links too, which a graphic counts.
SharedQuery queryByKeys(DatabaseSession& session, RecordKind kind, const SharedQuery& query);

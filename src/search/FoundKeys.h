// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "data/RecordKind.h"
#include "data/SQLObject.h"

#include <vector>

class DatabaseSession;

/// Runs a keyword search and returns a query for the same records by their keys, so that the list and its
/// graphic do not both read every description. Returns `query` itself if there are more than 500 records or
/// the search fails.
///
/// For keyword searches only: a query with criteria on links selects the links too, which a graphic counts.
SharedQuery queryByKeys(DatabaseSession& session, RecordKind kind, const SharedQuery& query);

/// Returns a query for the records of a kind with these keys, and for no others.
SharedQuery queryOfKeys(RecordKind kind, const SharedQuery& query, const std::vector<qint64>& keys);

/// Returns a query for the records that a keyword search finds, and for those with these keys. Returns
/// `query` itself if the search fails.
SharedQuery queryWithKeys(DatabaseSession& session, RecordKind kind, const SharedQuery& query,
                          std::vector<qint64> keys);

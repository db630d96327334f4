// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "data/RecordKind.h"
#include "data/SQLObject.h"

class DatabaseSession;
class JsonWriter;
class Output;

namespace console {

/// Prints the records that a query of the window's lists finds, in its order: the list's own columns.
/// Returns how many there are. Throws Error.
std::size_t writeRows(DatabaseSession& session, RecordKind kind, const SharedQuery& query, Output& output);

/// Writes them as an array of objects, each with all columns of the query as the file holds them.
std::size_t writeRows(DatabaseSession& session, RecordKind kind, const SharedQuery& query, JsonWriter& json);

} // namespace console

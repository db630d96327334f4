// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "lists/ListKind.h"
#include "lists/LookupEntry.h"

#include <vector>

class DatabaseSession;

/// Reads the entries of the lists and what uses them. Every failure is an Error.
namespace ListReader {

/// All entries that can be changed, in the order of the table, without what uses them.
[[nodiscard]] std::vector<LookupEntry> entries(DatabaseSession& session, ListKind list);

/// The same with what uses them.
[[nodiscard]] std::vector<LookupRow> rows(DatabaseSession& session, ListKind list);

/// The condition, to stand behind the standard where clause of the kind, that leaves only the records that
/// use an entry.
[[nodiscard]] QString usersCondition(ListKind list, const ListReference& reference, const LookupEntry& entry);

} // namespace ListReader

// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "lists/ListKind.h"
#include "lists/LookupEntry.h"
#include "views/clsView.h"

struct StandardQueries;

/// An entry as it is named in a sentence: a city with its state.
[[nodiscard]] QString entryLabel(ListKind list, const LookupEntry& entry);

/// Returns the view of the records that use an entry of a list, narrowed from the view of all records of
/// their kind.
[[nodiscard]] clsView viewOfUsers(ListKind list, const ListReference& reference, const LookupEntry& entry,
                                  const StandardQueries& queries);

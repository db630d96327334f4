// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "journal/JournaledListChange.h"
#include "lists/ListKind.h"

#include <vector>

/// The rows that changes to the lists may touch, for the journal.
namespace ListTouches {

/// An entry's own row.
[[nodiscard]] TouchedRows entry(ListKind list, qint64 key);

/// The organizations of a state or a city are changed with it, and the known cities of a state.
[[nodiscard]] std::vector<TouchedRows> ofChange(ListKind list, qint64 key);

[[nodiscard]] std::vector<TouchedRows> ofMerge(ListKind list, qint64 from, qint64 into);
[[nodiscard]] std::vector<TouchedRows> ofRemoval(ListKind list, qint64 key);

} // namespace ListTouches

// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "data/ListEntry.h"
#include "records/PickList.h"

#include <vector>

/// What an editor's list holds, as the pick list takes it. Throws Error 6 beyond 16 bits.
PickedItems pickedItems(const std::vector<ListEntry>& entries);

/// What the pick list returned, as an editor's list shows it: "None" if nothing was chosen.
std::vector<ListEntry> listEntries(const PickedItems& items);

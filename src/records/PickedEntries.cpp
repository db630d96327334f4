// SPDX-License-Identifier: GPL-3.0-or-later

#include "records/PickedEntries.h"

PickedItems pickedItems(const std::vector<ListEntry>& entries)
{
    PickedItems items;
    for (const ListEntry& entry : entries)
        items.push_back(clsPickListItem::of(entry.key, entry.display));
    return items;
}

std::vector<ListEntry> listEntries(const PickedItems& items)
{
    std::vector<ListEntry> entries;
    for (const clsPickListItem& item : items)
        entries.push_back({item.itemName, item.itemID});
    if (entries.empty()) entries.push_back(ListEntry::none());
    return entries;
}

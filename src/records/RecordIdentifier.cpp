// SPDX-License-Identifier: GPL-3.0-or-later

#include "records/RecordIdentifier.h"

#include "records/clsPickListItem.h"

std::int16_t recordIdentifier(qint64 identifier)
{
    return clsPickListItem::of(identifier, {}).itemID;
}

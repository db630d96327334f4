// SPDX-License-Identifier: GPL-3.0-or-later

#include "lists/ListViews.h"

#include "lists/ListReader.h"
#include "lists/ListsTexts.h"
#include "views/StandardQueries.h"

QString entryLabel(ListKind list, const LookupEntry& entry)
{
    return list == ListKind::Cities ? entry.name + QStringLiteral(", ") + entry.detail : entry.name;
}

clsView viewOfUsers(ListKind list, const ListReference& reference, const LookupEntry& entry,
                    const StandardQueries& queries)
{
    return {viewOf(reference.kind),
            queries.narrowed(reference.kind, ListReader::usersCondition(list, reference, entry)),
            ListsTexts::tr(reference.caption).arg(entryLabel(list, entry))};
}

// SPDX-License-Identifier: GPL-3.0-or-later

#include "lists/ListViews.h"

#include "lists/ListReader.h"
#include "lists/ListsTexts.h"
#include "views/StandardQueries.h"

clsView viewOfUsers(ListKind list, const ListReference& reference, const LookupEntry& entry,
                    const StandardQueries& queries)
{
    const QString name =
        list == ListKind::Cities ? entry.name + QStringLiteral(", ") + entry.detail : entry.name;
    return {viewOf(reference.kind),
            queries.narrowed(reference.kind, ListReader::usersCondition(list, reference, entry)),
            ListsTexts::tr(reference.caption).arg(name)};
}

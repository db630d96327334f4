// SPDX-License-Identifier: GPL-3.0-or-later

#include "views/NarrowedQuery.h"

#include <algorithm>
#include <iterator>

namespace {

void makeSet(std::vector<qint64>& keys)
{
    std::ranges::sort(keys);
    keys.erase(std::unique(keys.begin(), keys.end()), keys.end());
}

QString joined(const std::vector<qint64>& keys)
{
    QString text;
    for (const qint64 key : keys)
        text += (text.isEmpty() ? QString() : QStringLiteral(",")) + QString::number(key);
    return text;
}

QString keyColumn(RecordKind kind)
{
    const RecordNames names = recordNames(kind);
    return QStringLiteral(" AND ") + names.record + u'.' + names.key;
}

} // namespace

QString keysAmong(RecordKind kind, const std::vector<qint64>& keys)
{
    return keyColumn(kind) + QStringLiteral(" IN (") + joined(keys) + u')';
}

SharedQuery narrowedTo(RecordKind kind, const SharedQuery& query, std::vector<qint64> shown,
                       std::vector<qint64> all)
{
    makeSet(shown);
    makeSet(all);
    if (shown == all) return query;
    SQLObject narrowed = *query;
    // the fewer keys, the sooner the statement is read
    if (shown.size() <= all.size() / 2) {
        narrowed.WhereClause += keysAmong(kind, shown);
    } else {
        std::vector<qint64> others;
        std::ranges::set_difference(all, shown, std::back_inserter(others));
        narrowed.WhereClause += keyColumn(kind) + QStringLiteral(" NOT IN (") + joined(others) + u')';
    }
    return std::make_shared<const SQLObject>(std::move(narrowed));
}

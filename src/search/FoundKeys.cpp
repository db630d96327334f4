// SPDX-License-Identifier: GPL-3.0-or-later

#include "search/FoundKeys.h"

#include "data/DatabaseSession.h"

#include <QStringList>

#include <limits>
#include <optional>

namespace {

constexpr std::size_t mostKeys = 500;

QString keyColumn(RecordKind kind)
{
    const RecordNames names = recordNames(kind);
    return names.record + u'.' + names.key;
}

/// Returns the keys of the records of a query, or `std::nullopt` if there are more than `most` or they cannot
/// be read: the list runs the same query and reports the failure.
std::optional<std::vector<qint64>> keysOf(DatabaseSession& session, RecordKind kind, const SharedQuery& query,
                                          std::size_t most)
{
    std::vector<qint64> keys;
    try {
        RecordSet rows = session.read(QStringLiteral("SELECT ") + keyColumn(kind) + u' ' + query->FromClause +
                                      u' ' + query->WhereClause);
        while (rows.next()) {
            if (keys.size() == most) return std::nullopt;
            keys.push_back(rows.integer(0));
        }
    } catch (const Error&) {
        return std::nullopt;
    }
    return keys;
}

} // namespace

SharedQuery queryByKeys(DatabaseSession& session, RecordKind kind, const SharedQuery& query)
{
    const auto keys = keysOf(session, kind, query, mostKeys);
    return keys ? queryOfKeys(kind, query, *keys) : query;
}

SharedQuery queryOfKeys(RecordKind kind, const SharedQuery& query, const std::vector<qint64>& keys)
{
    QStringList texts;
    for (const qint64 key : keys)
        texts << QString::number(key);
    SQLObject byKeys = *query;
    byKeys.WhereClause =
        QStringLiteral("WHERE ") + keyColumn(kind) + QStringLiteral(" IN (") + texts.join(u',') + u')';
    return std::make_shared<const SQLObject>(std::move(byKeys));
}

SharedQuery queryWithKeys(DatabaseSession& session, RecordKind kind, const SharedQuery& query,
                          std::vector<qint64> keys)
{
    const auto found = keysOf(session, kind, query, std::numeric_limits<std::size_t>::max());
    if (!found) return query;
    keys.insert(keys.end(), found->begin(), found->end());
    return queryOfKeys(kind, query, keys);
}

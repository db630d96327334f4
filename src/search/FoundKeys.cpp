// SPDX-License-Identifier: GPL-3.0-or-later

#include "search/FoundKeys.h"

#include "data/DatabaseSession.h"

#include <QStringList>

namespace {

constexpr qsizetype mostKeys = 500;

} // namespace

SharedQuery queryByKeys(DatabaseSession& session, RecordKind kind, const SharedQuery& query)
{
    const RecordNames names = recordNames(kind);
    const QString key = names.record + u'.' + names.key;
    QStringList keys;
    try {
        RecordSet rows = session.read(QStringLiteral("SELECT ") + key + u' ' + query->FromClause + u' ' +
                                      query->WhereClause);
        while (rows.next()) {
            if (keys.size() == mostKeys) return query;
            keys << QString::number(rows.integer(0));
        }
    } catch (const Error&) {
        // the list runs the same query and reports the failure
        return query;
    }
    SQLObject byKeys = *query;
    byKeys.WhereClause = QStringLiteral("WHERE ") + key + QStringLiteral(" IN (") + keys.join(u',') + u')';
    return std::make_shared<const SQLObject>(std::move(byKeys));
}

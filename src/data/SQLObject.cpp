// SPDX-License-Identifier: GPL-3.0-or-later

#include "data/SQLObject.h"

QString SQLObject::sqlStr() const
{
    QString clauses = SelectClause + u' ' + FromClause + u' ' + WhereClause + u' ' + OrderClause;
    if (OrderClause.isEmpty()) return clauses;
    return clauses + (AtoZ ? QStringLiteral(" ASC") : QStringLiteral(" DESC"));
}

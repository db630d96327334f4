// SPDX-License-Identifier: GPL-3.0-or-later

#include "data/StatementScope.h"

#include "data/DataTexts.h"
#include "data/SqlTokenizer.h"
#include "util/Error.h"

#include <algorithm>

namespace {

constexpr int unknownTableNumber = 1;

bool same(QStringView a, QStringView b)
{
    return a.compare(b, Qt::CaseInsensitive) == 0;
}

} // namespace

void StatementScope::addSource(const QString& name)
{
    const Source source{name, m_catalog.findTable(name), m_catalog.findStoredQuery(name)};
    if (source.table == nullptr && source.storedQuery == nullptr) {
        throw Error(unknownTableNumber, DataTexts::tr("no such table: %1").arg(name));
    }
    m_sources.push_back(source);
}

const StoredQuery* StatementScope::expanded() const
{
    return m_sources.size() == 1 ? m_sources.front().storedQuery : nullptr;
}

ResolvedColumn StatementScope::resolve(const QString& qualifier, const QString& name)
{
    for (StatementScope* scope = this; scope != nullptr; scope = scope->m_outer) {
        auto found = scope->candidates(qualifier, name);
        if (found.size() == 1) return found.front();
        if (found.size() > 1) return {quoteSqlName(name), ColumnForm::Plain};
    }
    return {qualifier.isEmpty() ? quoteSqlName(name) : quoteSqlName(qualifier) + u'.' + quoteSqlName(name),
            ColumnForm::Plain};
}

std::vector<ResolvedColumn> StatementScope::candidates(const QString& qualifier, const QString& name)
{
    std::vector<ResolvedColumn> found;
    for (const Source& source : m_sources) {
        if (source.table != nullptr && (qualifier.isEmpty() || same(qualifier, source.name))) {
            const CatalogColumn* column = source.table->findColumn(name);
            if (column == nullptr) continue;
            const QString table = m_unqualified ? QString() : quoteSqlName(source.table->name) + u'.';
            found.push_back({table + quoteSqlName(column->name), column->form,
                             same(column->name, source.table->keyColumn)});
        } else if (source.storedQuery != nullptr) {
            const auto* column = source.storedQuery->findColumn(qualifier, name);
            if (column != nullptr) found.push_back(ofStoredQuery(*source.storedQuery, *column));
        }
    }
    return found;
}

ResolvedColumn StatementScope::ofStoredQuery(const StoredQuery& query, const StoredQuery::Column& column)
{
    const QString table = column.qualifiers.size() == 1 ? column.qualifiers.front() : QString();
    ColumnForm form = m_catalog.formByName(column.name);
    const CatalogTable* source = m_catalog.findTable(table);
    const CatalogColumn* origin = source == nullptr ? nullptr : source->findColumn(column.name);
    if (origin != nullptr && column.sql == table + QStringLiteral(" . ") + origin->name) form = origin->form;

    if (expanded() == nullptr) return {quoteSqlName(query.name) + u'.' + quoteSqlName(column.name), form};
    m_joins.insert(column.joins.begin(), column.joins.end());
    return {column.sql, form, isBaseKey(column.sql)};
}

bool StatementScope::isDeterminedBy(const QStringList& expressions, const QString& qualifier,
                                    const QString& name) const
{
    const StoredQuery* query = expanded();
    const StoredQuery::Column* column = query == nullptr ? nullptr : query->findColumn(qualifier, name);
    if (column == nullptr || column->joins.size() != 1) return false;
    const StoredQuery::Join& join = query->joins.at(column->joins.front());
    return join.single && column->qualifiers.size() == 1 && expressions.contains(join.boundTo);
}

QString StatementScope::allColumns()
{
    const StoredQuery* query = expanded();
    if (query == nullptr) return QStringLiteral("*");
    QStringList columns;
    for (const auto& column : query->columns) {
        columns << ofStoredQuery(*query, column).sql + QStringLiteral(" AS ") + quoteSqlName(column.name);
    }
    return columns.join(QStringLiteral(", "));
}

bool StatementScope::isBaseKey(const QString& sql) const
{
    const StoredQuery* query = expanded();
    return query != nullptr && !query->baseKey.isEmpty() &&
           same(sql, query->baseTable + QStringLiteral(" . ") + query->baseKey);
}

bool StatementScope::isNeverRepeated(const QString& sql) const
{
    if (!m_areColumnsKnown || expanded() == nullptr || repeatsKeys()) return false;
    const QString then = QStringLiteral(" THEN ");
    const QString end = QStringLiteral(" END");
    const bool isOneCase = sql.startsWith(u"CASE WHEN ") && sql.endsWith(end) && sql.count(then) == 1;
    return isBaseKey(isOneCase ? sql.sliced(sql.indexOf(then) + then.size()).chopped(end.size()) : sql);
}

std::set<std::size_t> StatementScope::neededJoins() const
{
    std::set<std::size_t> needed = m_joins;
    if (const StoredQuery* query = expanded()) query->addDependencies(needed);
    return needed;
}

bool StatementScope::needsDistinct() const
{
    const StoredQuery* query = expanded();
    if (!m_distinct || query == nullptr || m_grouped || !m_keyListed) return m_distinct;
    return repeatsKeys();
}

bool StatementScope::repeatsKeys() const
{
    const auto needed = neededJoins();
    return std::any_of(needed.begin(), needed.end(),
                       [this](std::size_t join) { return !expanded()->joins.at(join).single; });
}

QString StatementScope::fromSql() const
{
    if (m_sources.empty()) return {};
    QStringList names;
    for (const Source& source : m_sources) {
        names << quoteSqlName(source.storedQuery != nullptr && expanded() != nullptr
                                  ? source.storedQuery->baseTable
                                  : source.name);
    }
    QString sql = QStringLiteral(" FROM ") + names.join(QStringLiteral(", "));
    for (const std::size_t join : neededJoins())
        sql += u' ' + expanded()->joins.at(join).sql;
    return sql;
}

QString StatementScope::onlyTable() const
{
    return m_sources.size() == 1 && m_sources.front().table != nullptr ? m_sources.front().table->name
                                                                       : QString();
}

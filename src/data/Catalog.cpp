// SPDX-License-Identifier: GPL-3.0-or-later

#include "data/Catalog.h"

namespace {

QString key(QStringView name)
{
    return name.toString().toCaseFolded();
}

template <typename T>
const T* find(const QHash<QString, T>& items, QStringView name)
{
    const auto found = items.constFind(key(name));
    return found == items.constEnd() ? nullptr : &*found;
}

} // namespace

const CatalogColumn* CatalogTable::findColumn(QStringView column) const
{
    for (const CatalogColumn& candidate : columns) {
        if (candidate.name.compare(column, Qt::CaseInsensitive) == 0) return &candidate;
    }
    return nullptr;
}

void Catalog::addTable(const CatalogTable& table)
{
    for (const CatalogColumn& column : table.columns)
        m_formsByName.insert(key(column.name), column.form);
    m_tables.insert(key(table.name), table);
}

void Catalog::addStoredQuery(const StoredQuery& query)
{
    m_storedQueries.insert(key(query.name), query);
}

void Catalog::addIndex(const QString& name)
{
    m_indexes.insert(key(name));
}

bool Catalog::hasIndex(QStringView name) const
{
    return m_indexes.contains(key(name));
}

const CatalogTable* Catalog::findTable(QStringView name) const
{
    return find(m_tables, name);
}

const StoredQuery* Catalog::findStoredQuery(QStringView name) const
{
    return find(m_storedQueries, name);
}

ColumnForm Catalog::formByName(QStringView column) const
{
    return m_formsByName.value(key(column), ColumnForm::Plain);
}

ColumnForm Catalog::formOfDeclaredType(QStringView type)
{
    if (type.startsWith(u"DATETIME", Qt::CaseInsensitive)) return ColumnForm::DateTime;
    if (type.startsWith(u"DATE", Qt::CaseInsensitive)) return ColumnForm::Date;
    if (type.startsWith(u"TIME", Qt::CaseInsensitive)) return ColumnForm::Time;
    if (type.compare(u"TEXT", Qt::CaseInsensitive) == 0) return ColumnForm::Text;
    return ColumnForm::Plain;
}

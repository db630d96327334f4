// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "data/StoredQuery.h"

#include <QHash>
#include <QSet>
#include <QString>

#include <vector>

/// How a column's values are held, and so how they are compared and shown.
enum class ColumnForm
{
    Plain,
    Text,
    Date,
    Time,
    DateTime
};

struct CatalogColumn
{
    QString name;
    ColumnForm form = ColumnForm::Plain;
};

struct CatalogTable
{
    QString name;
    std::vector<CatalogColumn> columns;
    QString keyColumn; ///< the integer primary key; empty if there is none

    [[nodiscard]] const CatalogColumn* findColumn(QStringView column) const;
};

/// What a database file holds: its tables with their columns, its indexes and its stored queries. Names are
/// found in any letter case. Read once when a database is opened; the program never changes a schema.
class Catalog
{
public:
    void addTable(const CatalogTable& table);
    void addStoredQuery(const StoredQuery& query);
    void addIndex(const QString& name);

    [[nodiscard]] const CatalogTable* findTable(QStringView name) const;
    [[nodiscard]] const StoredQuery* findStoredQuery(QStringView name) const;

    /// Files from before an index came to the schema are without it.
    [[nodiscard]] bool hasIndex(QStringView name) const;

    /// The form of a column known by its name alone, as a computed column of a stored query is.
    [[nodiscard]] ColumnForm formByName(QStringView column) const;

    /// The form that a declared type such as `DATE TEXT` stands for.
    static ColumnForm formOfDeclaredType(QStringView type);

private:
    QHash<QString, CatalogTable> m_tables;
    QHash<QString, StoredQuery> m_storedQueries;
    QSet<QString> m_indexes;
    QHash<QString, ColumnForm> m_formsByName;
};

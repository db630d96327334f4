// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "data/Catalog.h"

#include <QString>
#include <QStringList>

#include <set>
#include <vector>

/// What a name in a statement stands for.
struct ResolvedColumn
{
    QString sql;
    ColumnForm form = ColumnForm::Plain;
    bool isKey = false; ///< the integer key of a table
};

/// The tables and stored queries that one select, update or delete names, and how its columns are found in
/// them; a sub-select's scope looks further in the scope around it. If a stored query is all that a
/// select reads, it is replaced by its base table and by those of its joins that the columns ask for.
class StatementScope
{
public:
    /// `outer` is the scope around a sub-select, or null; both must outlive this one.
    StatementScope(const Catalog& catalog, StatementScope* outer) : m_catalog(catalog), m_outer(outer) {}

    /// Throws Error if the file has no such table or stored query.
    void addSource(const QString& name);

    /// In an update or delete, columns are written without their table.
    void setUnqualified() { m_unqualified = true; }
    void setDistinct(bool distinct) { m_distinct = distinct; }
    void setGrouped() { m_grouped = true; }

    /// Finds a column and remembers the joins it needs. A name that is not found is returned in quotes, for
    /// SQLite to report.
    ResolvedColumn resolve(const QString& qualifier, const QString& name);

    /// Whether rows in which these expressions are equal also agree in a column of a stored query: it belongs
    /// to a joined row that one of them names.
    [[nodiscard]] bool isDeterminedBy(const QStringList& expressions, const QString& qualifier,
                                      const QString& name) const;

    /// What `*` stands for in the select list.
    QString allColumns();

    /// Remembers that the select list holds this expression by itself.
    void noteListed(const QString& sql) { m_keyListed = m_keyListed || isBaseKey(sql); }

    [[nodiscard]] bool isBaseKey(const QString& sql) const;

    /// Whether an expression is the key of the base table, or a CASE that yields it or nothing, and no two
    /// rows have the same one. Never, as long as a column may yet ask for another join.
    [[nodiscard]] bool isNeverRepeated(const QString& sql) const;
    void setColumnsKnown() { m_areColumnsKnown = true; }

    [[nodiscard]] bool isDistinct() const { return m_distinct; }

    /// Whether `DISTINCT` can make a difference, given all the columns resolved so far.
    [[nodiscard]] bool needsDistinct() const;

    /// Whether rows that `DISTINCT` compares may differ by the case of their letters alone.
    [[nodiscard]] bool comparesTexts() const { return needsDistinct() && !m_keyListed; }

    /// To be called when they do: listed texts are then compared by their rule too, as those of a condition.
    void setComparesListed() { m_comparesListed = true; }
    [[nodiscard]] bool comparesListed() const { return m_comparesListed; }

    /// The from clause with the joins that the columns resolved so far need; empty without sources.
    [[nodiscard]] QString fromSql() const;

    /// The name of the one table read, as the catalog writes it; empty unless it is one table.
    [[nodiscard]] QString onlyTable() const;

private:
    struct Source
    {
        QString name;
        const CatalogTable* table = nullptr;
        const StoredQuery* storedQuery = nullptr;
    };

    [[nodiscard]] const StoredQuery* expanded() const;
    [[nodiscard]] std::vector<ResolvedColumn> candidates(const QString& qualifier, const QString& name);
    ResolvedColumn ofStoredQuery(const StoredQuery& query, const StoredQuery::Column& column);
    [[nodiscard]] std::set<std::size_t> neededJoins() const;

    /// Whether the joins needed so far can make several rows of one of the base table.
    [[nodiscard]] bool repeatsKeys() const;

    const Catalog& m_catalog;
    StatementScope* m_outer;
    std::vector<Source> m_sources;
    std::set<std::size_t> m_joins;
    bool m_unqualified = false;
    bool m_distinct = false;
    bool m_grouped = false;
    bool m_keyListed = false;
    bool m_comparesListed = false;
    bool m_areColumnsKnown = false;
};

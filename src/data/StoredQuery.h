// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>
#include <QStringList>

#include <functional>
#include <optional>
#include <set>
#include <vector>

/// A stored query of the file, taken apart, so that a statement over it can be answered from the tables
/// that the statement needs instead of from all that the stored query joins.
struct StoredQuery
{
    /// A joined table. `dependsOn` are the positions of the joins that its condition mentions.
    struct Join
    {
        QString alias;
        QString sql; ///< from `LEFT JOIN` to the end of its condition
        std::vector<std::size_t> dependsOn;
        bool single = false; ///< at most one row for each row before it
        QString boundTo;     ///< the expression that names that row's key; empty if it is not that simple
    };

    struct Column
    {
        QString name;
        QString sql;            ///< the expression that computes it
        QStringList qualifiers; ///< the tables that the expression mentions
        std::vector<std::size_t> joins;
    };

    QString name;
    QString baseTable;
    QString baseKey; ///< the base table's key: one row of the result stands for one value of it
    std::vector<Column> columns;
    std::vector<Join> joins;

    /// The column of that name, with a qualifier only if its expression mentions that table (or the stored
    /// query itself is named). Null if there is none.
    [[nodiscard]] const Column* findColumn(QStringView qualifier, QStringView column) const;

    /// Adds to `joins` all that they depend on.
    void addDependencies(std::set<std::size_t>& joins) const;

    /// The integer primary key of a table, empty if it has none; `std::nullopt` if there is no such table.
    using KeyOfTable = std::function<std::optional<QString>(const QString&)>;

    /// Takes apart a `CREATE VIEW` of a select list, a base table and left joins, as the schema writes them.
    /// Throws Error if the view is of another shape or reads anything but tables.
    static StoredQuery parse(const QString& createView, const KeyOfTable& keyOfTable);
};

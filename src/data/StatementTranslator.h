// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "data/Catalog.h"

#include <QString>
#include <QStringList>

/// A statement in the dialect of SQLite.
struct TranslatedStatement
{
    QString sql;
    QString table; ///< the table that the statement names if it names exactly one; else empty
};

/// Turns statements of the program's dialect into statements of SQLite with the same rows:
///
/// - texts stand in single or double quotes and never name a column; dates stand between `#`;
/// - texts compare, match and sort without regard to case;
/// - a column of a stored query is found by its name or by its name with the table it comes from, and only
///   the tables that the statement mentions are joined;
/// - a day and a time of day compared with a moment are spelled so that the indexes of days serve them;
/// - a time of day that is missing beside a date is compared with a literal as midnight, and a record without
///   a venue has venue 1, "None";
/// - `DISTINCT` is dropped if each row holds the key of the only table whose rows can differ, and a count
///   of a stored query's key counts each record once.
///
/// Select, insert-free updates and deletes are read; a sub-select has a scope of its own. Throws Error for
/// anything else. The catalog must outlive the translator.
class StatementTranslator
{
public:
    explicit StatementTranslator(const Catalog& catalog) : m_catalog(catalog) {}

    /// A statement that reads. Dates that are among `dates` become parameters, numbered from 1.
    [[nodiscard]] TranslatedStatement select(const QString& statement, const QStringList& dates = {}) const;

    /// A statement that reads all columns of one table, with the row's own number before them as `rowid`.
    [[nodiscard]] TranslatedStatement selectForEditing(const QString& statement) const;

    /// A `DELETE FROM` or `UPDATE`.
    [[nodiscard]] TranslatedStatement change(const QString& statement) const;

private:
    const Catalog& m_catalog;
};

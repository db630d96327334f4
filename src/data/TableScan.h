// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "data/HeldRows.h"

#include <QString>

#include <vector>

class DatabaseSession;

/// Looks for rows of a table, a portion of it at a time. Nothing is held of the file between two portions, so
/// that others can write meanwhile.
class TableScan
{
public:
    /// `columns` and `condition` are those of a statement of SQLite over the table alone. Each row found
    /// begins with its number, as `Number`.
    TableScan(QString table, const QString& columns, const QString& condition);

    /// The rows found in the next portion, which are often none. Throws Error.
    [[nodiscard]] std::vector<HeldRow> next(DatabaseSession& session);

    [[nodiscard]] bool isDone() const { return m_isDone; }

private:
    QString m_table;
    QString m_statement;
    Value m_last; ///< the number of the last row looked at
    bool m_isDone = false;
};

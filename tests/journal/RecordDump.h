// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QByteArray>
#include <QString>

#include <SQLiteCpp/SQLiteCpp.h>

#include <vector>

/// Reads all rows of the records, their links and profiles and of the lists, by SQLite alone.
class RecordDump
{
public:
    /// Keeps the file open, with the tables that it has now.
    explicit RecordDump(const QString& file);

    /// The rows with the types of their values, one a line; those of a table in an order that does not depend
    /// on where they lie in the file.
    QByteArray rows();

private:
    SQLite::Database m_database;
    std::vector<SQLite::Statement> m_tables;
};

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

inline RecordDump::RecordDump(const QString& file) : m_database(file.toStdString())
{
    SQLite::Statement tables(
        m_database, "SELECT m.name, group_concat('quote(\"' || replace(c.name, '\"', '\"\"') || '\")', "
                    "'||'',''||') FROM sqlite_master m, pragma_table_info(m.name) c WHERE m.type = 'table' "
                    "AND m.name NOT LIKE '%\\_HIST' ESCAPE '\\' AND m.name <> 'Journal' GROUP BY m.name");
    while (tables.executeStep()) {
        const std::string name = tables.getColumn(0).getString();
        m_tables.emplace_back(m_database, "SELECT '" + name + ":'||" + tables.getColumn(1).getString() +
                                              " FROM " + name + " ORDER BY 1");
    }
}

inline QByteArray RecordDump::rows()
{
    QByteArray dump;
    for (SQLite::Statement& table : m_tables) {
        while (table.executeStep())
            dump += QByteArray(table.getColumn(0).getText()) + '\n';
        table.reset();
    }
    return dump;
}

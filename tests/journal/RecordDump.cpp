// SPDX-License-Identifier: GPL-3.0-or-later

#include "journal/RecordDump.h"

#include <SQLiteCpp/SQLiteCpp.h>

#include <string>
#include <vector>

QByteArray recordDump(const QString& file)
{
    SQLite::Database database(file.toStdString());
    std::vector<std::string> selects;
    SQLite::Statement tables(
        database, "SELECT m.name, group_concat('quote(\"' || replace(c.name, '\"', '\"\"') || '\")', "
                  "'||'',''||') FROM sqlite_master m, pragma_table_info(m.name) c WHERE m.type = 'table' "
                  "AND m.name NOT LIKE '%\\_HIST' ESCAPE '\\' AND m.name <> 'Journal' GROUP BY m.name");
    while (tables.executeStep()) {
        const std::string name = tables.getColumn(0).getString();
        selects.push_back("SELECT '" + name + ":'||" + tables.getColumn(1).getString() + " FROM " + name +
                          " ORDER BY 1");
    }
    QByteArray dump;
    for (const std::string& select : selects) {
        SQLite::Statement rows(database, select);
        while (rows.executeStep())
            dump += QByteArray(rows.getColumn(0).getText()) + '\n';
    }
    return dump;
}

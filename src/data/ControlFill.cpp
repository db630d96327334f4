// SPDX-License-Identifier: GPL-3.0-or-later

#include "data/ControlFill.h"

void fillList(DatabaseSession& session, const ListSource& source, bool skipReserved,
              std::vector<ListEntry>& entries)
{
    QString statement = QStringLiteral("SELECT ") + source.displayColumn + QStringLiteral(" as xDisplay, ") +
                        source.keyColumn + QStringLiteral(" as xKey FROM ") + source.table;
    if (skipReserved) statement += QStringLiteral(" WHERE ") + source.keyColumn + QStringLiteral(" > 1");
    statement += QStringLiteral(" ORDER BY ") + source.displayColumn;
    RecordSet rows = session.read(statement);
    const int display = rows.column(u"xDisplay");
    const int key = rows.column(u"xKey");
    if (skipReserved) entries.push_back(ListEntry::none());
    while (rows.next())
        entries.push_back({rows.text(display), rows.integer(key)});
}

void fillCheckList(DatabaseSession& session, const ListSource& source, std::vector<CheckEntry>& entries)
{
    RecordSet rows = session.read(QStringLiteral("SELECT * FROM ") + source.table);
    const int display = rows.column(source.displayColumn);
    const int key = rows.column(source.keyColumn);
    while (rows.next())
        entries.push_back({{rows.text(display), rows.integer(key)}, false});
}

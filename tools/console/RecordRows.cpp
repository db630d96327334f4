// SPDX-License-Identifier: GPL-3.0-or-later

#include "RecordRows.h"

#include "TextTable.h"
#include "browse/list/ListTexts.h"
#include "browse/list/RecordList.h"
#include "data/DatabaseSession.h"
#include "export/JsonWriter.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace console {

namespace {

QStringList titlesOf(const RecordList& list)
{
    QStringList titles{u"ID"_s};
    for (const ListColumn& column : list.columns())
        titles << (column.marksKeys ? u"Key"_s : ListTexts::tr(column.title));
    return titles;
}

QString cellOf(const RecordList& list, std::size_t row, int column)
{
    if (!list.columns()[static_cast<std::size_t>(column)].marksKeys) return list.text(row, column);
    return list.isKey(row) ? u"yes"_s : QString();
}

/// A column of a query and what its values are written as.
struct Member
{
    QString name;
    bool isFlag = false;
};

std::vector<Member> membersOf(RecordKind kind, const std::vector<QString>& columns)
{
    const RecordNames names = recordNames(kind);
    const ListLayout& layout = listLayout(kind);
    std::vector<Member> members;
    for (const QString& column : columns) {
        const bool isFlag = column == layout.isKey || column == layout.isReleased;
        members.push_back({column == names.key    ? u"id"_s
                           : column == names.name ? u"name"_s
                                                  : column,
                           isFlag});
    }
    return members;
}

void writeRow(const RecordSet& rows, const std::vector<Member>& members, JsonWriter& json)
{
    json.beginObject();
    for (std::size_t i = 0; i < members.size(); ++i) {
        const int column = static_cast<int>(i);
        json.name(members[i].name);
        if (members[i].isFlag) {
            json.value(rows.integer(column) != 0);
            continue;
        }
        const Value value = rows.value(column);
        // dates and times as they are held, which programs read more easily than what people write
        std::holds_alternative<QString>(value) ? json.value(rows.held(column)) : json.value(value);
    }
    json.endObject();
}

} // namespace

std::size_t writeRows(DatabaseSession& session, RecordKind kind, const SharedQuery& query, Output& output)
{
    RecordSet rows = session.read(query->sqlStr());
    RecordList list(kind, Years::FourDigits);
    list.beginReading(rows);
    while (rows.next())
        list.append(rows);
    TextTable table(titlesOf(list));
    const int columns = static_cast<int>(list.columns().size());
    for (std::size_t row = 0; row < list.count(); ++row) {
        QStringList cells{QString::number(list.identifier(row))};
        for (int column = 0; column < columns; ++column)
            cells << cellOf(list, row, column);
        table.add(std::move(cells));
    }
    table.write(output);
    return list.count();
}

std::size_t writeRows(DatabaseSession& session, RecordKind kind, const SharedQuery& query, JsonWriter& json)
{
    RecordSet rows = session.read(query->sqlStr());
    const std::vector<Member> members = membersOf(kind, rows.columnNames());
    std::size_t count = 0;
    json.beginArray();
    for (; rows.next(); ++count)
        writeRow(rows, members, json);
    json.endArray();
    return count;
}

} // namespace console

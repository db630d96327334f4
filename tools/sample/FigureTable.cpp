// SPDX-License-Identifier: GPL-3.0-or-later

#include "FigureTable.h"

#include "SourceTable.h"

using namespace Qt::StringLiterals;

namespace {

FigureTable::Row readRow(const SourceRow& source, const QStringList& columns)
{
    FigureTable::Row row;
    for (const QString& column : columns)
        row.cells.append(source.requiredText(column));
    row.value = source.number(columns.at(1), 0, 1e12).value_or(0);
    if (columns.contains(u"Latitude"_s)) {
        row.place = FigureTable::Place{source.number(u"Latitude"_s, -90, 90).value_or(0),
                                       source.number(u"Longitude"_s, -180, 180).value_or(0)};
    }
    return row;
}

FigureTable readTable(const QString& path)
{
    const SourceTable source(path, {});
    FigureTable table;
    table.columns = source.columns();
    if (table.columns.size() < 2 ||
        table.columns.contains(u"Latitude"_s) != table.columns.contains(u"Longitude"_s))
        throw SourceError(
            u"%1: figures need a label, a number, and both halves of a position or neither"_s.arg(path));
    for (const SourceRow& row : source.rows())
        table.rows.push_back(readRow(row, table.columns));
    return table;
}

} // namespace

FigureTables::FigureTables(const QDir& source)
{
    const SourceTable list(source.filePath(u"figures.tsv"_s), {u"Figures"_s, u"Title"_s, u"Source"_s});
    for (const SourceRow& row : list.rows()) {
        const QString name = row.requiredText(u"Figures"_s);
        FigureTable table = readTable(source.filePath(u"figures/%1.tsv"_s.arg(name)));
        table.title = row.requiredText(u"Title"_s);
        table.source = row.requiredText(u"Source"_s);
        if (!m_tables.emplace(name, std::move(table)).second)
            row.fail(u"the figures %1 are there twice"_s.arg(name));
    }
}

const FigureTable* FigureTables::find(const QString& name) const
{
    const auto found = m_tables.find(name);
    return found == m_tables.end() ? nullptr : &found->second;
}

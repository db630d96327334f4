// SPDX-License-Identifier: GPL-3.0-or-later

#include "data/CatalogReader.h"

#include "data/DataTexts.h"
#include "data/EngineError.h"
#include "util/Error.h"

#include <QStringList>

#include <algorithm>
#include <array>

namespace {

constexpr std::array expectedTables{u"Document",
                                    u"Event",
                                    u"Organization",
                                    u"OrganizationProfile",
                                    u"DocumentEvents",
                                    u"OrganizationEvents",
                                    u"EventFunctions",
                                    u"DocumentTypes",
                                    u"DocumentCategories",
                                    u"DocumentVenues",
                                    u"EventVenues",
                                    u"OrganizationVenues",
                                    u"OrganizationProfileJurisdictions",
                                    u"OrganizationProfilePopulations",
                                    u"DocumentType",
                                    u"DocumentCategory",
                                    u"Function",
                                    u"Venue",
                                    u"FileTypes",
                                    u"OrganizationTypes",
                                    u"OrganizationSubTypes",
                                    u"JurisdictionTypes",
                                    u"PopulationTypes",
                                    u"States",
                                    u"CityLocations",
                                    u"Document_HIST",
                                    u"Event_HIST",
                                    u"Organization_HIST"};
constexpr std::array expectedQueries{u"Q_Document", u"Q_Event", u"Q_Organization"};

constexpr qsizetype longestStoredQuery = 20000; ///< characters, several times those of the schema

template <typename Names>
bool isAmong(const Names& names, const QString& name)
{
    return std::any_of(names.begin(), names.end(), [&name](const char16_t* expected) {
        return name.compare(QStringView(expected), Qt::CaseInsensitive) == 0;
    });
}

QString textOf(const SQLite::Statement& statement, int column)
{
    return QString::fromUtf8(statement.getColumn(column).getText());
}

CatalogTable readTable(SQLite::Database& database, const QString& name)
{
    SQLite::Statement columns(database, "SELECT name, type, pk FROM pragma_table_info(?) ORDER BY cid");
    columns.bind(1, name.toStdString());
    CatalogTable table;
    table.name = name;
    int keyParts = 0;
    while (columns.executeStep()) {
        const QString column = textOf(columns, 0);
        const QString type = textOf(columns, 1);
        table.columns.push_back({column, Catalog::formOfDeclaredType(type)});
        if (columns.getColumn(2).getInt() == 0) continue;
        ++keyParts;
        if (type.compare(u"INTEGER", Qt::CaseInsensitive) == 0) table.keyColumn = column;
    }
    if (keyParts != 1) table.keyColumn.clear();
    return table;
}

QStringList namesOf(SQLite::Database& database, const char* type)
{
    SQLite::Statement objects(database, "SELECT name FROM sqlite_master WHERE type = ?");
    objects.bind(1, type);
    QStringList names;
    while (objects.executeStep())
        names << textOf(objects, 0);
    return names;
}

void readTables(SQLite::Database& database, Catalog& catalog)
{
    for (const QString& name : namesOf(database, "table")) {
        if (isAmong(expectedTables, name)) catalog.addTable(readTable(database, name));
    }
}

void readStoredQueries(SQLite::Database& database, Catalog& catalog)
{
    SQLite::Statement views(database, "SELECT name, sql FROM sqlite_master WHERE type = 'view'");
    while (views.executeStep()) {
        const QString name = textOf(views, 0);
        if (!isAmong(expectedQueries, name)) continue;
        const QString definition = textOf(views, 1);
        if (definition.size() > longestStoredQuery) {
            throw Error(SQLITE_TOOBIG, DataTexts::tr("The stored query %1 is too long.").arg(name));
        }
        catalog.addStoredQuery(StoredQuery::parse(definition, [&catalog](const QString& table) {
            const CatalogTable* found = catalog.findTable(table);
            return found == nullptr ? std::nullopt : std::optional(found->keyColumn);
        }));
    }
}

} // namespace

Catalog readCatalog(SQLite::Database& database)
{
    Catalog catalog;
    const auto require = [](bool found, QStringView name) {
        if (found) return;
        throw Error(SQLITE_ERROR, DataTexts::tr("This is no Orvik database: it has no %1").arg(name));
    };
    callEngine([&] {
        readTables(database, catalog);
        for (const QStringView table : expectedTables)
            require(catalog.findTable(table) != nullptr, table);
        readStoredQueries(database, catalog);
        for (const QStringView query : expectedQueries)
            require(catalog.findStoredQuery(query) != nullptr, query);
        for (const QString& index : namesOf(database, "index"))
            catalog.addIndex(index);
    });
    return catalog;
}

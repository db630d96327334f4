// SPDX-License-Identifier: GPL-3.0-or-later

#include "LookupTables.h"

#include <array>

using namespace Qt::StringLiterals;

namespace {

struct Lookup
{
    const char* table;
    const char* identifierColumn;
    const char* nameColumn;
    const char* kind;
};

constexpr std::array lookups{
    Lookup{"DocumentType", "DocumentTypeID", "DocumentTypeName", "document type"},
    Lookup{"DocumentCategory", "DocumentCategoryID", "DocumentCategoryName", "document category"},
    Lookup{"Function", "FunctionID", "FunctionName", "function"},
    Lookup{"Venue", "VenueID", "VenueName", "venue"},
    Lookup{"FileTypes", "FileTypeID", "FileTypeName", "file type"},
    Lookup{"OrganizationTypes", "OrganizationTypeID", "OrganizationTypeName", "organization type"},
    Lookup{"OrganizationSubTypes", "OrganizationSubTypeID", "OrganizationSubTypeName", "sub-type"},
    Lookup{"JurisdictionTypes", "JurisdictionID", "Name", "jurisdiction"},
    Lookup{"PopulationTypes", "PopulationID", "Name", "population"},
};

constexpr const char* subTypes = "OrganizationSubTypes";

const Lookup& lookupOf(const SourceRow& row)
{
    const QString name = row.requiredText(u"List"_s);
    for (const Lookup& lookup : lookups) {
        if (name == QLatin1StringView(lookup.table)) return lookup;
    }
    row.fail(u"there is no lookup table \"%1\""_s.arg(name));
}

void insertRow(SampleDatabase& database, const Lookup& lookup, qint64 identifier, const QString& name,
               qint64 parent)
{
    std::vector<Field> fields{{lookup.identifierColumn, identifier}, {lookup.nameColumn, name}};
    if (lookup.table == std::string_view(subTypes)) fields.emplace_back("OrganizationTypeID", parent);
    database.insert(lookup.table, fields);
}

} // namespace

LookupTables::LookupTables(const QDir& source, const QString& citiesPath, SampleDatabase& database)
{
    for (const Lookup& lookup : lookups) {
        m_names.try_emplace(QLatin1StringView(lookup.table), QLatin1StringView(lookup.kind));
        insertRow(database, lookup, 1, u"None"_s, 1);
    }
    m_typeOfSubType.emplace(1, 1);
    fillLists(source, database);
    fillStates(source, database);
    fillCities(citiesPath, database);
}

void LookupTables::fillLists(const QDir& source, SampleDatabase& database)
{
    const SourceTable table(source.filePath(u"lookups.tsv"_s), {u"List"_s, u"Name"_s, u"Parent"_s});
    for (const SourceRow& row : table.rows()) {
        const Lookup& lookup = lookupOf(row);
        const QString name = row.requiredText(u"Name"_s);
        const qint64 identifier = m_names.at(QLatin1StringView(lookup.table)).add(name, row);
        qint64 parent = 1;
        if (lookup.table == std::string_view(subTypes)) {
            parent = names(u"OrganizationTypes"_s).find(row.requiredText(u"Parent"_s), row);
            m_typeOfSubType.emplace(identifier, parent);
        }
        insertRow(database, lookup, identifier, name, parent);
    }
}

void LookupTables::fillStates(const QDir& source, SampleDatabase& database)
{
    qint64 identifier = 1;
    database.insert("States",
                    {{"StateID", identifier}, {"StateAbbreviation", u"None"_s}, {"StateName", u"None"_s}});
    const SourceTable table(source.filePath(u"states.tsv"_s), {u"Abbreviation"_s, u"Name"_s});
    for (const SourceRow& row : table.rows()) {
        const QString abbreviation = row.requiredText(u"Abbreviation"_s);
        if (m_states.contains(abbreviation)) row.fail(u"the state %1 is there twice"_s.arg(abbreviation));
        m_states.append(abbreviation);
        database.insert("States", {{"StateID", ++identifier},
                                   {"StateAbbreviation", abbreviation},
                                   {"StateName", row.requiredText(u"Name"_s)}});
    }
}

void LookupTables::fillCities(const QString& path, SampleDatabase& database) const
{
    const SourceTable table(path, {u"City"_s, u"State"_s, u"Lat"_s, u"Lon"_s});
    qint64 identifier = 0;
    for (const SourceRow& row : table.rows()) {
        const QString state = row.requiredText(u"State"_s);
        const auto latitude = row.number(u"Lat"_s, -90, 90);
        const auto longitude = row.number(u"Lon"_s, -180, 180);
        if (!isState(state)) row.fail(u"there is no state \"%1\""_s.arg(state));
        if (!latitude || !longitude) row.fail(u"the position is missing"_s);
        database.insert("CityLocations", {{"LocationID", ++identifier},
                                          {"City", row.requiredText(u"City"_s)},
                                          {"State", state},
                                          {"Lat", *latitude},
                                          {"Lon", *longitude}});
    }
}

const NameIndex& LookupTables::names(const QString& table) const
{
    return m_names.at(table);
}

qint64 LookupTables::typeOfSubType(qint64 subType) const
{
    return m_typeOfSubType.at(subType);
}

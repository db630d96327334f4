// SPDX-License-Identifier: GPL-3.0-or-later

#include "OrganizationRecords.h"

using namespace Qt::StringLiterals;

namespace {

const QStringList columns{u"Name"_s,
                          u"Type"_s,
                          u"SubType"_s,
                          u"Function"_s,
                          u"Address1"_s,
                          u"Address2"_s,
                          u"City"_s,
                          u"State"_s,
                          u"Zip"_s,
                          u"Telephone"_s,
                          u"Website"_s,
                          u"Lat"_s,
                          u"Lon"_s,
                          u"Venues"_s,
                          u"ResponseActivities"_s,
                          u"Notes"_s,
                          u"Status"_s,
                          u"Resources"_s,
                          u"MissionStatement"_s,
                          u"SwornEmployees"_s,
                          u"CivilianEmployees"_s,
                          u"Volunteers"_s,
                          u"AnnualBudget"_s,
                          u"Training"_s,
                          u"Other"_s,
                          u"Jurisdictions"_s,
                          u"Populations"_s};

FieldValue countOrNull(std::optional<qint64> count)
{
    return count ? FieldValue(*count) : FieldValue();
}

FieldValue keyOrNull(const QString& name, const NameIndex& names, const SourceRow& row)
{
    return name.isEmpty() ? FieldValue() : FieldValue(names.find(name, row));
}

FieldValue subTypeOf(const SourceRow& row, const FieldValue& type, const LookupTables& lookups)
{
    FieldValue subType = keyOrNull(row.text(u"SubType"_s), lookups.names(u"OrganizationSubTypes"_s), row);
    const auto* key = std::get_if<qint64>(&subType);
    if (key != nullptr && *key > 1 && FieldValue(lookups.typeOfSubType(*key)) != type)
        row.fail(u"the sub-type %1 does not belong to the type"_s.arg(row.text(u"SubType"_s)));
    return subType;
}

/// One row for every setting there is, checked or not, as the editor leaves them.
void addSettings(const char* table, const char* keyColumn, qint64 identifier, const NameIndex& names,
                 const std::set<qint64>& checked, SampleDatabase& database)
{
    for (qint64 key = 1; key <= names.last(); ++key) {
        const qint64 setting = checked.contains(key) ? 1 : 0;
        database.insert(table,
                        {{"OrganizationProfileID", identifier}, {keyColumn, key}, {"Setting", setting}});
    }
}

} // namespace

OrganizationRecords::OrganizationRecords(const QDir& source, const QStringList& charted,
                                         const LookupTables& lookups, SampleDatabase& database)
{
    m_facts.resize(2);
    database.insert("Organization", {{"OrganizationID", qint64{1}},
                                     {"OrganizationName", u"None"_s},
                                     {"OrganizationTypeID", qint64{1}},
                                     {"OrganizationSubTypeID", qint64{1}},
                                     {"FunctionID", qint64{1}},
                                     {"Status", u"ACTIVE"_s},
                                     {"UserID", qint64{1}},
                                     {"ParentID", qint64{1}}});
    const SourceTable table(source.filePath(u"organizations.tsv"_s), columns);
    for (const SourceRow& row : table.rows()) {
        addOrganization(row, lookups, database);
        const bool hasChart = charted.contains(row.text(u"Name"_s));
        const bool hasProfile = !row.text(u"MissionStatement"_s).isEmpty() ||
                                !row.text(u"Jurisdictions"_s).isEmpty() ||
                                !row.text(u"Populations"_s).isEmpty() || hasChart;
        if (hasProfile) addProfile(m_names.last(), row, hasChart, lookups, database);
    }
}

void OrganizationRecords::addOrganization(const SourceRow& row, const LookupTables& lookups,
                                          SampleDatabase& database)
{
    const QString name = row.requiredText(u"Name"_s);
    const qint64 identifier = m_names.add(name, row);
    const QString state = row.text(u"State"_s);
    if (!state.isEmpty() && !lookups.isState(state)) row.fail(u"there is no state \"%1\""_s.arg(state));
    const auto latitude = row.number(u"Lat"_s, -90, 90);
    const auto longitude = row.number(u"Lon"_s, -180, 180);
    if (latitude.has_value() != longitude.has_value()) row.fail(u"half of a position"_s);

    const FieldValue type = keyOrNull(row.text(u"Type"_s), lookups.names(u"OrganizationTypes"_s), row);
    database.insert("Organization",
                    {{"OrganizationID", identifier},
                     {"OrganizationName", name},
                     {"OrganizationTypeID", type},
                     {"OrganizationSubTypeID", subTypeOf(row, type, lookups)},
                     {"FunctionID", keyOrNull(row.text(u"Function"_s), lookups.names(u"Function"_s), row)},
                     {"Address1", textOrNull(row.text(u"Address1"_s))},
                     {"Address2", textOrNull(row.text(u"Address2"_s))},
                     {"City", textOrNull(row.text(u"City"_s))},
                     {"State", textOrNull(state)},
                     {"Zip", textOrNull(row.text(u"Zip"_s))},
                     {"Telephone", textOrNull(row.text(u"Telephone"_s))},
                     {"Website", textOrNull(row.text(u"Website"_s))},
                     {"ResponseActivities", textOrNull(row.text(u"ResponseActivities"_s))},
                     {"Lat", latitude ? FieldValue(*latitude) : FieldValue()},
                     {"Lon", longitude ? FieldValue(*longitude) : FieldValue()},
                     {"Notes", textOrNull(row.text(u"Notes"_s))},
                     {"Status", textOrNull(row.text(u"Status"_s))},
                     {"UserID", qint64{1}},
                     {"ParentID", qint64{1}}});
    database.link("OrganizationVenues", "OrganizationID", identifier, "VenueID",
                  lookups.names(u"Venue"_s).findAll(u"Venues"_s, row));

    QStringList place{row.text(u"City"_s), state};
    place.removeAll(QString());
    m_facts.push_back({name, place.join(u", "_s), row.text(u"ResponseActivities"_s)});
}

void OrganizationRecords::addProfile(qint64 identifier, const SourceRow& row, bool hasChart,
                                     const LookupTables& lookups, SampleDatabase& database) const
{
    const std::optional<qint64> budget = row.count(u"AnnualBudget"_s);
    const FieldValue budgetText = budget ? FieldValue(QString::number(*budget)) : FieldValue();
    const FieldValue chart = hasChart ? FieldValue(u"%1.pdf"_s.arg(identifier)) : FieldValue();
    database.insert("OrganizationProfile",
                    {{"OrganizationProfileID", identifier},
                     {"MissionStatement", textOrNull(row.text(u"MissionStatement"_s))},
                     {"SwornEmployees", countOrNull(row.count(u"SwornEmployees"_s))},
                     {"CivilianEmployees", countOrNull(row.count(u"CivilianEmployees"_s))},
                     {"Volunteers", countOrNull(row.count(u"Volunteers"_s))},
                     {"AnnualBudget", budgetText},
                     {"Resources", textOrNull(row.text(u"Resources"_s))},
                     {"Training", textOrNull(row.text(u"Training"_s))},
                     {"Other", textOrNull(row.text(u"Other"_s))},
                     {"OrganizationChart", chart},
                     {"ChartOption", qint64{hasChart ? 1 : 0}}});
    const NameIndex& jurisdictions = lookups.names(u"JurisdictionTypes"_s);
    addSettings("OrganizationProfileJurisdictions", "JurisdictionID", identifier, jurisdictions,
                jurisdictions.findAll(u"Jurisdictions"_s, row), database);
    const NameIndex& populations = lookups.names(u"PopulationTypes"_s);
    addSettings("OrganizationProfilePopulations", "PopulationID", identifier, populations,
                populations.findAll(u"Populations"_s, row), database);
}

const OrganizationFacts& OrganizationRecords::facts(qint64 identifier) const
{
    return m_facts.at(static_cast<std::size_t>(identifier));
}

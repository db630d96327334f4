// SPDX-License-Identifier: GPL-3.0-or-later

#include "map/OrganizationPlaces.h"

#include "data/DatabaseSession.h"
#include "views/NarrowedQuery.h"

#include <algorithm>
#include <cmath>
#include <map>

namespace {

constexpr double farthestLatitude = 90;
constexpr double farthestLongitude = 360;
constexpr std::size_t mostReadSingly = 100;

std::optional<qint64> optionalInteger(const RecordSet& rows, int column)
{
    if (rows.isNull(column)) return std::nullopt;
    return rows.integer(column);
}

QString functionCondition(std::optional<qint64> functionId)
{
    return functionId ? QStringLiteral(" AND Organization.FunctionID = ") + QString::number(*functionId)
                      : QStringLiteral(" AND Organization.FunctionID IS NULL");
}

/// With all digits, so that SQLite reads the very same number.
QString exactNumber(double number)
{
    return QString::number(number, 'g', 17);
}

bool isOnEarth(double lat, double lon)
{
    return std::abs(lat) <= farthestLatitude && std::abs(lon) <= farthestLongitude;
}

/// Where the key of a place stands in a row.
struct KeyColumns
{
    int location;
    int lat;
    int lon;
};

/// Returns the key of a row's place; `std::nullopt` if it has none on the map. A known city needs no position
/// to be told from others.
std::optional<PlaceKey> keyIn(const RecordSet& row, KeyColumns columns, std::optional<qint64> functionId)
{
    const double lat = row.real(columns.lat);
    const double lon = row.real(columns.lon);
    if (row.isNull(columns.lat) || row.isNull(columns.lon) || !isOnEarth(lat, lon)) return std::nullopt;
    const std::optional<qint64> location = optionalInteger(row, columns.location);
    if (location) return PlaceKey{location, 0, 0, functionId};
    return PlaceKey{location, lat, lon, functionId};
}

constexpr KeyColumns keyOfPlace{1, 2, 3};

PlaceKey keyOf(const clsCities& place)
{
    if (place.LocationID) return {place.LocationID, 0, 0, place.functionId};
    return {std::nullopt, place.lat, place.lon, place.functionId};
}

} // namespace

size_t qHash(const PlaceKey& key, size_t seed)
{
    return qHashMulti(seed, key.location.value_or(-1), key.lat, key.lon, key.functionId.value_or(-1));
}

void OrganizationPlaces::clear()
{
    m_shown = {};
    m_all = {};
}

void OrganizationPlaces::read(const SharedQuery& query, const SharedQuery& shown)
{
    clear();
    readShown(query, shown);
}

void OrganizationPlaces::narrow(const SharedQuery& query, const SharedQuery& shown)
{
    if (m_shown.isWhole) m_all = std::move(m_shown);
    m_shown = {};
    if (shown == query && m_all.isWhole && m_all.query == query) {
        m_shown = m_all;
    } else {
        readShown(query, shown);
    }
}

void OrganizationPlaces::readShown(const SharedQuery& query, const SharedQuery& shown)
{
    m_shown.query = shown;
    const std::vector<std::optional<qint64>> functions = functionsOf(query);
    if (shown != query || functions.size() > mostReadSingly) {
        readAllPlaces(functions);
    } else {
        for (const auto& functionId : functions)
            readPlaces(functionId);
        readOrganizations();
    }
    m_shown.isWhole = shown == query;
}

/// The functions of a view in the order in which they are drawn.
std::vector<std::optional<qint64>> OrganizationPlaces::functionsOf(const SharedQuery& query) const
{
    std::vector<std::optional<qint64>> functions;
    if (m_all.isWhole && m_all.query == query) {
        for (const clsCities& place : m_all.entries)
            if (functions.empty() || functions.back() != place.functionId)
                functions.push_back(place.functionId);
        return functions;
    }
    RecordSet rows =
        m_session.read(QStringLiteral("SELECT DISTINCT Organization.FunctionID ") + query->FromClause + u' ' +
                       query->WhereClause + QStringLiteral(" AND Lat IS NOT NULL"));
    while (rows.next())
        functions.push_back(optionalInteger(rows, 0));
    return functions;
}

void OrganizationPlaces::readPlaces(std::optional<qint64> functionId)
{
    RecordSet places =
        m_session.read(QStringLiteral("SELECT DISTINCT FunctionName, LocationID, Lat, Lon, City, State ") +
                       m_shown.query->FromClause + u' ' + m_shown.query->WhereClause +
                       functionCondition(functionId) + QStringLiteral(" AND Lat IS NOT NULL"));
    while (places.next())
        addPlace(places, functionId);
}

/// One statement instead of thousands, each of which would scan all organizations. It needs no DISTINCT,
/// since each place is added once.
void OrganizationPlaces::readAllPlaces(const std::vector<std::optional<qint64>>& functions)
{
    RecordSet rows = m_session.read(
        QStringLiteral("SELECT FunctionName, LocationID, Lat, Lon, City, State, Organization.FunctionID, "
                       "Organization.OrganizationID ") +
        m_shown.query->FromClause + u' ' + m_shown.query->WhereClause);
    constexpr int function = 6;
    constexpr int organization = 7;
    std::vector<Row> organizations;
    while (rows.next()) {
        const std::optional<qint64> functionId = optionalInteger(rows, function);
        addPlace(rows, functionId);
        organizations.push_back({rows.integer(organization), keyIn(rows, keyOfPlace, functionId)});
    }
    sortByFunction(functions);
    count(std::move(organizations));
}

void OrganizationPlaces::sortByFunction(const std::vector<std::optional<qint64>>& functions)
{
    std::map<std::optional<qint64>, std::size_t> order;
    for (const auto& functionId : functions)
        order.emplace(functionId, order.size());
    std::stable_sort(m_shown.entries.begin(), m_shown.entries.end(),
                     [&order](const clsCities& a, const clsCities& b) {
                         return order[a.functionId] < order[b.functionId];
                     });
    for (std::size_t entry = 0; entry < m_shown.entries.size(); ++entry) {
        const clsCities& place = m_shown.entries[entry];
        m_shown.byKey[keyOf(place)] = entry;
    }
}

void OrganizationPlaces::addPlace(const RecordSet& row, std::optional<qint64> functionId)
{
    const std::optional<PlaceKey> key = keyIn(row, keyOfPlace, functionId);
    if (!key || m_shown.byKey.contains(*key)) return;
    m_shown.byKey.insert(*key, m_shown.entries.size());
    m_shown.entries.push_back({functionId, row.text(0), key->location, row.real(keyOfPlace.lat),
                               row.real(keyOfPlace.lon), row.text(4), row.text(5),
                               clsCities::colourOf(functionId)});
}

/// Reads who stands at the places that were read, and who at none.
void OrganizationPlaces::readOrganizations()
{
    RecordSet rows = m_session.read(
        QStringLiteral("SELECT Organization.OrganizationID, Organization.FunctionID, LocationID, Lat, Lon ") +
        m_shown.query->FromClause + u' ' + m_shown.query->WhereClause);
    std::vector<Row> organizations;
    while (rows.next())
        organizations.push_back({rows.integer(0), keyIn(rows, {2, 3, 4}, optionalInteger(rows, 1))});
    count(std::move(organizations));
}

/// Counts each organization once, however often the query returns it.
void OrganizationPlaces::count(std::vector<Row> rows)
{
    std::ranges::sort(rows, {}, &Row::organization);
    const auto isSame = [](const Row& a, const Row& b) { return a.organization == b.organization; };
    rows.erase(std::unique(rows.begin(), rows.end(), isSame), rows.end());
    for (const Row& row : rows) {
        const auto found = row.place ? m_shown.byKey.constFind(*row.place) : m_shown.byKey.constEnd();
        if (found == m_shown.byKey.constEnd()) {
            ++m_shown.withoutPlace;
            continue;
        }
        ++m_shown.entries[*found].organizations;
        m_shown.placed.push_back({row.organization, *found});
    }
}

SharedQuery OrganizationPlaces::queryWithoutPlace() const
{
    SQLObject query = *m_shown.query;
    // a position that is no number is 0, as it is when it is read
    query.WhereClause += QStringLiteral(" AND (Lat IS NULL OR Lon IS NULL OR Lat + 0 NOT BETWEEN -%1 AND %1 "
                                        "OR Lon + 0 NOT BETWEEN -%2 AND %2)")
                             .arg(farthestLatitude)
                             .arg(farthestLongitude);
    return std::make_shared<const SQLObject>(std::move(query));
}

std::vector<PlacedOrganization> OrganizationPlaces::organizationsAt(std::size_t entry,
                                                                    bool everyFunction) const
{
    const clsCities& place = m_shown.entries.at(entry);
    const QString where =
        place.LocationID ? QStringLiteral(" AND LocationID = ") + QString::number(*place.LocationID)
                         : QStringLiteral(" AND LocationID IS NULL AND Lat = ") + exactNumber(place.lat) +
                               QStringLiteral(" AND Lon = ") + exactNumber(place.lon);
    return organizationsWhere(QStringLiteral(" AND Lat IS NOT NULL") + where +
                              (everyFunction ? QString() : functionCondition(place.functionId)));
}

std::vector<qint64> OrganizationPlaces::identifiersOf(std::span<const std::size_t> entries) const
{
    std::vector<bool> isWanted(m_shown.entries.size());
    for (const std::size_t entry : entries)
        isWanted.at(entry) = true;
    std::vector<qint64> identifiers;
    for (const Placed& placed : m_shown.placed) {
        if (isWanted[placed.entry]) identifiers.push_back(placed.organization);
    }
    return identifiers;
}

std::vector<PlacedOrganization>
OrganizationPlaces::organizationsOf(std::span<const std::size_t> entries) const
{
    return organizationsWhere(keysAmong(RecordKind::Organization, identifiersOf(entries)));
}

std::vector<PlacedOrganization> OrganizationPlaces::organizationsWhere(const QString& condition) const
{
    RecordSet rows =
        m_session.read(QStringLiteral("SELECT DISTINCT Organization.OrganizationID, OrganizationName ") +
                       m_shown.query->FromClause + u' ' + m_shown.query->WhereClause + condition +
                       QStringLiteral(" ORDER BY OrganizationName"));
    std::vector<PlacedOrganization> organizations;
    while (rows.next())
        organizations.push_back({rows.integer(0), rows.text(1)});
    return organizations;
}

std::optional<std::size_t> OrganizationPlaces::entryOf(qint64 organization) const
{
    const auto found = std::ranges::lower_bound(m_shown.placed, organization, {}, &Placed::organization);
    if (found == m_shown.placed.end() || found->organization != organization) return std::nullopt;
    return found->entry;
}

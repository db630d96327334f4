// SPDX-License-Identifier: GPL-3.0-or-later

#include "map/OrganizationPlaces.h"

#include "data/DatabaseSession.h"

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

/// The key of a place and a function. A place without a known city goes by its position.
QString keyOf(std::optional<qint64> location, double lat, double lon, std::optional<qint64> functionId)
{
    const QString place = location ? QString::number(*location) : exactNumber(lat) + u' ' + exactNumber(lon);
    return u'k' + place + u'f' + (functionId ? QString::number(*functionId) : QString());
}

bool isOnEarth(double lat, double lon)
{
    return std::abs(lat) <= farthestLatitude && std::abs(lon) <= farthestLongitude;
}

} // namespace

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
    std::map<std::optional<qint64>, std::size_t> order;
    for (const auto& functionId : functions)
        order.emplace(functionId, order.size());
    RecordSet places = m_session.read(
        QStringLiteral("SELECT FunctionName, LocationID, Lat, Lon, City, State, Organization.FunctionID, "
                       "Organization.OrganizationID ") +
        m_shown.query->FromClause + u' ' + m_shown.query->WhereClause +
        QStringLiteral(" AND Lat IS NOT NULL"));
    constexpr int function = 6;
    constexpr int organization = 7;
    while (places.next()) {
        const QString key = addPlace(places, optionalInteger(places, function));
        if (!key.isEmpty()) m_shown.keyOf.insert(places.integer(organization), key);
    }
    std::stable_sort(m_shown.entries.begin(), m_shown.entries.end(),
                     [&order](const clsCities& a, const clsCities& b) {
                         return order[a.functionId] < order[b.functionId];
                     });
    for (std::size_t entry = 0; entry < m_shown.entries.size(); ++entry) {
        const clsCities& place = m_shown.entries[entry];
        m_shown.byKey[keyOf(place.LocationID, place.lat, place.lon, place.functionId)] = entry;
    }
}

/// Returns the key of the place; an empty text if it is none.
QString OrganizationPlaces::addPlace(const RecordSet& row, std::optional<qint64> functionId)
{
    const std::optional<qint64> location = optionalInteger(row, 1);
    const double lat = row.real(2);
    const double lon = row.real(3);
    if (row.isNull(3) || !isOnEarth(lat, lon)) return {};
    QString key = keyOf(location, lat, lon, functionId);
    if (m_shown.byKey.contains(key)) return key;
    m_shown.byKey.insert(key, m_shown.entries.size());
    m_shown.entries.push_back({functionId, row.text(0), location, lat, lon, row.text(4), row.text(5),
                               clsCities::colourOf(functionId)});
    return key;
}

std::vector<PlacedOrganization> OrganizationPlaces::organizationsAt(std::size_t entry,
                                                                    bool everyFunction) const
{
    const clsCities& place = m_shown.entries.at(entry);
    const QString where =
        place.LocationID ? QStringLiteral(" AND LocationID = ") + QString::number(*place.LocationID)
                         : QStringLiteral(" AND LocationID IS NULL AND Lat = ") + exactNumber(place.lat) +
                               QStringLiteral(" AND Lon = ") + exactNumber(place.lon);
    RecordSet rows =
        m_session.read(QStringLiteral("SELECT DISTINCT Organization.OrganizationID, OrganizationName ") +
                       m_shown.query->FromClause + u' ' + m_shown.query->WhereClause +
                       QStringLiteral(" AND Lat IS NOT NULL") + where +
                       (everyFunction ? QString() : functionCondition(place.functionId)) +
                       QStringLiteral(" ORDER BY OrganizationName"));
    std::vector<PlacedOrganization> organizations;
    while (rows.next())
        organizations.push_back({rows.integer(0), rows.text(1)});
    return organizations;
}

std::optional<std::size_t> OrganizationPlaces::entryOf(qint64 organization) const
{
    if (!m_shown.query) return std::nullopt;
    if (!m_shown.keyOf.isEmpty()) return entryWith(m_shown.keyOf.value(organization));
    RecordSet rows =
        m_session.read(QStringLiteral("SELECT DISTINCT LocationID, Lat, Lon, Organization.FunctionID ") +
                       m_shown.query->FromClause + u' ' + m_shown.query->WhereClause +
                       QStringLiteral(" AND Lat IS NOT NULL AND Organization.OrganizationID = ") +
                       QString::number(organization));
    if (!rows.next()) return std::nullopt;
    return entryWith(keyOf(optionalInteger(rows, 0), rows.real(1), rows.real(2), optionalInteger(rows, 3)));
}

std::optional<std::size_t> OrganizationPlaces::entryWith(const QString& key) const
{
    const auto found = m_shown.byKey.constFind(key);
    if (found == m_shown.byKey.constEnd()) return std::nullopt;
    return *found;
}

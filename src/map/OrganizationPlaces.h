// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "data/SQLObject.h"
#include "views/clsCities.h"

#include <QHash>
#include <QString>

#include <optional>
#include <span>
#include <vector>

class DatabaseSession;
class RecordSet;

/// An organization that stands at a place.
struct PlacedOrganization
{
    qint64 identifier = 0;
    QString name;
};

/// What tells an entry from the others: a known city, or else a position, with a function.
struct PlaceKey
{
    std::optional<qint64> location;
    double lat = 0;
    double lon = 0;
    std::optional<qint64> functionId;

    friend bool operator==(const PlaceKey&, const PlaceKey&) = default;
};

/// The places of the organizations that a view shows, one entry for each place and function, in the order in
/// which they are drawn. Organizations without a position have no place.
class OrganizationPlaces
{
public:
    /// The session must outlive the places.
    explicit OrganizationPlaces(DatabaseSession& session) : m_session(session) {}

    /// Reads the places of a view's query in place of those before. `shown` is that query or one for fewer of
    /// its organizations, whose places alone are read; they are drawn in the same order as among all. Throws
    /// Error; then the places read so far stay.
    void read(const SharedQuery& query, const SharedQuery& shown);

    /// Goes over to other organizations of the query that was read last, without reading the places of all
    /// again. Throws as read() does.
    void narrow(const SharedQuery& query, const SharedQuery& shown);

    void clear();

    [[nodiscard]] const std::vector<clsCities>& entries() const { return m_shown.entries; }

    /// The number of organizations that stand at the places; the sum of those of all entries.
    [[nodiscard]] std::size_t placed() const { return m_shown.placed.size(); }

    /// The number of organizations that have no place on the map.
    [[nodiscard]] int withoutPlace() const { return m_shown.withoutPlace; }

    /// The query for those without a place, as the list shows them. There must be places that were read.
    [[nodiscard]] SharedQuery queryWithoutPlace() const;

    /// Returns the organizations of the view at an entry's place, ordered by name: those of its function, or
    /// of all functions. Throws Error.
    [[nodiscard]] std::vector<PlacedOrganization> organizationsAt(std::size_t entry,
                                                                  bool everyFunction) const;

    /// The identifiers of the organizations of several entries.
    [[nodiscard]] std::vector<qint64> identifiersOf(std::span<const std::size_t> entries) const;

    /// Returns these organizations ordered by name. Throws Error.
    [[nodiscard]] std::vector<PlacedOrganization> organizationsOf(std::span<const std::size_t> entries) const;

    /// Returns the entry of an organization; `std::nullopt` if it is not on the map.
    [[nodiscard]] std::optional<std::size_t> entryOf(qint64 organization) const;

private:
    /// An organization as the database returns it.
    struct Row
    {
        qint64 organization = 0;
        std::optional<PlaceKey> place; ///< absent if it has none on the map
    };

    struct Placed
    {
        qint64 organization = 0;
        std::size_t entry = 0;
    };

    /// The places of a query.
    struct Places
    {
        SharedQuery query;
        std::vector<clsCities> entries;
        QHash<PlaceKey, std::size_t> byKey; ///< the entries
        std::vector<Placed> placed;         ///< each organization once, by identifier
        int withoutPlace = 0;
        bool isWhole = false; ///< whether these are all places of a view
    };

    void readShown(const SharedQuery& query, const SharedQuery& shown);
    [[nodiscard]] std::vector<std::optional<qint64>> functionsOf(const SharedQuery& query) const;
    void readPlaces(std::optional<qint64> functionId);
    void readAllPlaces(const std::vector<std::optional<qint64>>& functions);
    void readOrganizations();
    void count(std::vector<Row> rows);
    void addPlace(const RecordSet& row, std::optional<qint64> functionId);
    void sortByFunction(const std::vector<std::optional<qint64>>& functions);
    [[nodiscard]] std::vector<PlacedOrganization> organizationsWhere(const QString& condition) const;

    DatabaseSession& m_session;
    Places m_shown;
    Places m_all; ///< of the view while a filter narrows it, if they were read
};

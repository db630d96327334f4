// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "data/SQLObject.h"
#include "views/clsCities.h"

#include <QHash>
#include <QString>

#include <optional>
#include <vector>

class DatabaseSession;
class RecordSet;

/// An organization that stands at a place.
struct PlacedOrganization
{
    qint64 identifier = 0;
    QString name;
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

    /// Returns the organizations of the view at an entry's place, ordered by name: those of its function, or
    /// of all functions. Throws Error.
    [[nodiscard]] std::vector<PlacedOrganization> organizationsAt(std::size_t entry,
                                                                  bool everyFunction) const;

    /// Returns the entry of an organization; `std::nullopt` if it is not on the map. Throws Error.
    [[nodiscard]] std::optional<std::size_t> entryOf(qint64 organization) const;

private:
    /// The places of a query.
    struct Places
    {
        SharedQuery query;
        std::vector<clsCities> entries;
        QHash<QString, std::size_t> byKey; ///< the entries
        QHash<qint64, QString> keyOf;      ///< by organization, if all were read at once
        bool isWhole = false;              ///< whether these are all places of a view
    };

    void readShown(const SharedQuery& query, const SharedQuery& shown);
    [[nodiscard]] std::vector<std::optional<qint64>> functionsOf(const SharedQuery& query) const;
    void readPlaces(std::optional<qint64> functionId);
    void readAllPlaces(const std::vector<std::optional<qint64>>& functions);
    QString addPlace(const RecordSet& row, std::optional<qint64> functionId);
    [[nodiscard]] std::optional<std::size_t> entryWith(const QString& key) const;

    DatabaseSession& m_session;
    Places m_shown;
    Places m_all; ///< of the view while a filter narrows it, if they were read
};

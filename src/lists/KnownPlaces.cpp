// SPDX-License-Identifier: GPL-3.0-or-later

#include "lists/KnownPlaces.h"

#include "data/DatabaseSession.h"
#include "util/TextCompare.h"

#include <QStringList>

#include <algorithm>

std::string KnownPlaces::compared(std::string_view text)
{
    const auto begin = text.find_first_not_of(' ');
    if (begin == std::string_view::npos) return {};
    std::string folded;
    TextCompare::fold(text.substr(begin, text.find_last_not_of(' ') + 1 - begin), folded);
    return folded;
}

std::string KnownPlaces::compared(const QString& text)
{
    return compared(text.toStdString());
}

std::string KnownPlaces::compared(const QString& city, const QString& state)
{
    return compared(city) + '\n' + compared(state);
}

std::vector<KnownPlaces::Organization> KnownPlaces::organizations(DatabaseSession& session)
{
    RecordSet rows = session.read(QStringLiteral(
        "SELECT OrganizationID, City, State, Status FROM Organization WHERE OrganizationID > 1"));
    std::vector<Organization> found;
    while (rows.next()) {
        found.push_back({rows.integer(0), rows.text(1), rows.text(2),
                         !rows.isNull(3) && compared(rows.held(3)) != "deleted"});
    }
    return found;
}

std::unordered_map<std::string, qint64> KnownPlaces::cityKeys(const std::vector<LookupEntry>& cities)
{
    std::unordered_map<std::string, qint64> keys;
    for (const LookupEntry& city : cities) {
        const auto known = keys.try_emplace(compared(city.name, city.detail), city.key).first;
        known->second = std::min(known->second, city.key);
    }
    return keys;
}

QString KnownPlaces::assignment(const QString& column, const QString& text)
{
    return QStringLiteral("%1 = '%2'").arg(column, QString(text).replace(u'\'', QStringLiteral("''")));
}

void KnownPlaces::write(DatabaseSession& session, const QStringList& assignments,
                        const std::vector<qint64>& organizations)
{
    if (assignments.isEmpty() || organizations.empty()) return;
    QStringList identifiers;
    for (const qint64 organization : organizations)
        identifiers << QString::number(organization);
    session.execute(QStringLiteral("UPDATE Organization SET %1 WHERE OrganizationID IN (%2)")
                        .arg(assignments.join(QStringLiteral(", ")), identifiers.join(u',')));
}

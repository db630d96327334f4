// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "lists/LookupEntry.h"

#include <QString>
#include <QStringList>

#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

class DatabaseSession;

/// Organizations name their city and state by text. As the map does, a text counts for a place whatever the
/// case of its letters and the blanks around it, and of several known cities of one name the first counts.
namespace KnownPlaces {

/// A text as it is compared.
[[nodiscard]] std::string compared(std::string_view text);
[[nodiscard]] std::string compared(const QString& text);

/// A city and its state as they are compared.
[[nodiscard]] std::string compared(const QString& city, const QString& state);

/// An organization with its place.
struct Organization
{
    qint64 identifier = 0;
    QString city;
    QString state;
    bool isShown = false; ///< false for a deleted one
};

/// Every organization but the reserved one. Throws Error.
[[nodiscard]] std::vector<Organization> organizations(DatabaseSession& session);

/// The key of the known city that counts for each compared name.
[[nodiscard]] std::unordered_map<std::string, qint64> cityKeys(const std::vector<LookupEntry>& cities);

/// A column with the text that it gets, as an update takes it.
[[nodiscard]] QString assignment(const QString& column, const QString& text);

/// Writes such columns of organizations. Throws Error.
void write(DatabaseSession& session, const QStringList& assignments,
           const std::vector<qint64>& organizations);

} // namespace KnownPlaces

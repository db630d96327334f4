// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "NameIndex.h"
#include "SampleDatabase.h"

#include <QDir>

#include <map>

/// The lookup tables: what their names stand for while the records that use them are built.
/// Filled once from `lookups.tsv`, `states.tsv` and the cities of the maps folder.
class LookupTables
{
public:
    LookupTables(const QDir& source, const QString& citiesPath, SampleDatabase& database);

    /// `table` is the name of a lookup table, such as "Venue".
    [[nodiscard]] const NameIndex& names(const QString& table) const;

    /// The type that a sub-type belongs to.
    [[nodiscard]] qint64 typeOfSubType(qint64 subType) const;

    /// Whether the text is the abbreviation of a state or territory.
    [[nodiscard]] bool isState(const QString& abbreviation) const { return m_states.contains(abbreviation); }

private:
    void fillLists(const QDir& source, SampleDatabase& database);
    void fillStates(const QDir& source, SampleDatabase& database);
    void fillCities(const QString& path, SampleDatabase& database) const;

    std::map<QString, NameIndex> m_names;
    std::map<qint64, qint64> m_typeOfSubType;
    QStringList m_states;
};

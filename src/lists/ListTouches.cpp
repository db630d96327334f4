// SPDX-License-Identifier: GPL-3.0-or-later

#include "lists/ListTouches.h"

using namespace Qt::StringLiterals;

namespace {

/// All organizations, since they name their places by text, which only KnownPlaces compares.
void addPlaces(ListKind list, std::vector<TouchedRows>& touched)
{
    if (list != ListKind::States && list != ListKind::Cities) return;
    touched.push_back({u"Organization"_s, u"1"_s, {u"City"_s, u"State"_s}});
    if (list == ListKind::States) touched.push_back({u"CityLocations"_s, u"1"_s});
}

/// The rows that refer to an entry by its key; `keys` are those of the entries that a link can change to.
void addReferences(ListKind list, qint64 key, const QString& keys, std::vector<TouchedRows>& touched)
{
    for (const ListReference& each : listTable(list).references) {
        if (each.isLink()) {
            touched.push_back({each.table, u"%1 IN (%2)"_s.arg(each.entryColumn, keys)});
        } else {
            touched.push_back(
                {each.table, u"%1 = %2"_s.arg(each.entryColumn, QString::number(key)), {each.entryColumn}});
        }
    }
}

/// The sub-types of a type go with it, and those of equal names become one.
std::vector<TouchedRows> ofMergedType(qint64 from)
{
    const QString ofType = u"OrganizationTypeID = %1"_s.arg(from);
    const QString subTypes = u"SELECT OrganizationSubTypeID FROM OrganizationSubTypes WHERE "_s + ofType;
    return {ListTouches::entry(ListKind::OrganizationTypes, from),
            {u"OrganizationSubTypes"_s, ofType},
            {u"Organization"_s,
             u"%1 OR OrganizationSubTypeID IN (%2)"_s.arg(ofType, subTypes),
             {u"OrganizationTypeID"_s, u"OrganizationSubTypeID"_s}}};
}

} // namespace

TouchedRows ListTouches::entry(ListKind list, qint64 key)
{
    const ListTable& table = listTable(list);
    return {table.table, u"%1 = %2"_s.arg(table.keyColumn, QString::number(key))};
}

std::vector<TouchedRows> ListTouches::ofChange(ListKind list, qint64 key)
{
    std::vector<TouchedRows> touched{entry(list, key)};
    addPlaces(list, touched);
    return touched;
}

std::vector<TouchedRows> ListTouches::ofMerge(ListKind list, qint64 from, qint64 into)
{
    if (list == ListKind::OrganizationTypes) return ofMergedType(from);
    if (list == ListKind::States || list == ListKind::Cities) return ofChange(list, from);
    std::vector<TouchedRows> touched{entry(list, from)};
    addReferences(list, from, u"%1, %2"_s.arg(from).arg(into), touched);
    return touched;
}

std::vector<TouchedRows> ListTouches::ofRemoval(ListKind list, qint64 key)
{
    std::vector<TouchedRows> touched{entry(list, key)};
    if (list == ListKind::States || list == ListKind::Cities) return touched;
    addReferences(list, key, QString::number(key), touched);
    return touched;
}

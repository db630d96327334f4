// SPDX-License-Identifier: GPL-3.0-or-later

#include "lists/ListStore.h"

#include "data/DatabaseSession.h"
#include "journal/JournaledListChange.h"
#include "lists/KnownPlaces.h"
#include "lists/ListMerge.h"
#include "lists/ListReader.h"
#include "lists/ListTouches.h"
#include "lists/ListsTexts.h"
#include "records/RecordIdentifier.h"
#include "util/TextCompare.h"

#include <sqlite3.h>

#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

namespace {

constexpr double farthestLatitude = 90;
constexpr double farthestLongitude = 180;

LookupEntry trimmed(LookupEntry entry)
{
    entry.name = entry.name.trimmed();
    entry.detail = entry.detail.trimmed();
    return entry;
}

/// Whether two entries of a list would be taken for each other.
bool areAlike(ListKind list, const LookupEntry& a, const LookupEntry& b)
{
    if (KnownPlaces::compared(a.name) != KnownPlaces::compared(b.name)) return false;
    if (list == ListKind::OrganizationSubTypes) return a.typeId == b.typeId;
    return list != ListKind::Cities || KnownPlaces::compared(a.detail) == KnownPlaces::compared(b.detail);
}

QString missingName(ListKind list)
{
    if (list == ListKind::States) return ListsTexts::tr("Abbreviation is required.");
    return list == ListKind::Cities ? ListsTexts::tr("City is required.")
                                    : ListsTexts::tr("Name is required.");
}

/// The organizations whose text for a state or a city follows its new name, and how many they are.
qint64 rename(DatabaseSession& session, ListKind list, const LookupEntry& before, const LookupEntry& after,
              const std::vector<LookupEntry>& entries)
{
    std::vector<qint64> changed;
    const bool isCity = list == ListKind::Cities;
    const QString& state = isCity ? after.detail : after.name;
    const auto stateBefore = KnownPlaces::compared(isCity ? before.detail : before.name);
    const bool staysInState = isCity && stateBefore == KnownPlaces::compared(state);
    const auto city = KnownPlaces::compared(before.name, before.detail);
    const bool isUsed = !isCity || KnownPlaces::cityKeys(entries).at(city) == before.key;
    for (const auto& organization : KnownPlaces::organizations(session)) {
        const bool isMeant =
            isUsed && (isCity ? KnownPlaces::compared(organization.city, organization.state) == city
                              : KnownPlaces::compared(organization.state) == stateBefore);
        if (!isMeant) continue;
        const bool isAsNamed =
            (!isCity || organization.city == after.name) && (staysInState || organization.state == state);
        if (!isAsNamed) changed.push_back(organization.identifier);
    }
    QStringList columns;
    if (isCity) columns << KnownPlaces::assignment(u"City"_s, after.name);
    if (!staysInState) columns << KnownPlaces::assignment(u"State"_s, state);
    KnownPlaces::write(session, columns, changed);
    return static_cast<qint64>(changed.size());
}

ListOperation operation(const QString& name, ListKind list, const LookupEntry& entry)
{
    const ListTable& table = listTable(list);
    return {name, table.table, QString::fromUtf8(table.entryWord), entry.key, entry.name};
}

[[noreturn]] void refuseMissing()
{
    throw Error(SQLITE_NOTFOUND, ListsTexts::tr("The entry is not in the database any more."));
}

template <typename Each, typename NameOf>
std::vector<Each> orderedByName(std::vector<Each> all, NameOf nameOf)
{
    std::vector<std::pair<std::string, std::size_t>> names;
    for (std::size_t i = 0; i < all.size(); ++i)
        names.emplace_back(nameOf(all[i]).toStdString(), i);
    std::stable_sort(names.begin(), names.end(),
                     [](const auto& a, const auto& b) { return TextCompare::compare(a.first, b.first) < 0; });
    std::vector<Each> ordered;
    ordered.reserve(all.size());
    for (const auto& name : names)
        ordered.push_back(std::move(all[name.second]));
    return ordered;
}

} // namespace

std::vector<LookupRow> ListStore::read(ListKind list) const
{
    return orderedByName(ListReader::rows(m_session, list),
                         [](const LookupRow& row) -> const QString& { return row.entry.name; });
}

std::vector<LookupEntry> ListStore::names(ListKind list) const
{
    return orderedByName(ListReader::entries(m_session, list),
                         [](const LookupEntry& entry) -> const QString& { return entry.name; });
}

/// Returns what keeps an entry from being written, or an empty text.
QString ListStore::problemOf(ListKind list, const LookupEntry& entry,
                             const std::optional<LookupEntry>& before) const
{
    if (entry.name.isEmpty()) return missingName(list);
    if (list == ListKind::Cities && entry.detail.isEmpty()) return ListsTexts::tr("State is required.");
    if (list == ListKind::OrganizationSubTypes && entry.typeId <= noneKey) {
        return ListsTexts::tr("Type is required.");
    }
    // imported lists can hold a name twice
    if (before && areAlike(list, *before, entry)) return {};
    const auto others = ListReader::entries(m_session, list);
    const bool isTaken = std::any_of(others.begin(), others.end(), [&](const LookupEntry& other) {
        return other.key != entry.key && areAlike(list, entry, other);
    });
    // the first row of every list has this name
    if (!isTaken && KnownPlaces::compared(entry.name) != "none") return {};
    return ListsTexts::tr("An entry with identical name already exists. Please choose a different name.");
}

void ListStore::write(ListKind list, const LookupEntry& entry, bool isNew)
{
    const ListTable& table = listTable(list);
    EditableRecordSet rows = m_session.edit(
        u"SELECT * FROM %1 WHERE %2 = %3"_s.arg(table.table, table.keyColumn, QString::number(entry.key)));
    if (isNew) {
        rows.addNew();
        rows.set(table.keyColumn, entry.key);
        if (list == ListKind::OrganizationSubTypes) rows.set(u"OrganizationTypeID"_s, entry.typeId);
    }
    rows.set(table.nameColumn, entry.name);
    if (list == ListKind::States) rows.set(u"StateName"_s, entry.detail);
    if (list == ListKind::Cities) {
        rows.set(u"State"_s, entry.detail);
        rows.set(u"Lat"_s, entry.position ? Value(entry.position->lat) : Value());
        rows.set(u"Lon"_s, entry.position ? Value(entry.position->lon) : Value());
    }
    rows.update();
}

ListOutcome ListStore::add(ListKind list, const LookupEntry& entry)
{
    ListOutcome outcome;
    LookupEntry added = trimmed(entry);
    added.key = 0;
    JournaledListChange change(m_session, m_clock);
    outcome.problem = problemOf(list, added, std::nullopt);
    if (!outcome.problem.isEmpty()) return outcome;
    const ListTable& table = listTable(list);
    RecordSet last = m_session.read(u"SELECT max(%1) FROM %2"_s.arg(table.keyColumn, table.table));
    last.next();
    // row 1 is the reserved one, even if it is missing; and records of the past may have a key that went
    const qint64 former = Journal::largestIdentifier(m_session, table.table);
    added.key = recordIdentifier(std::max({last.integer(0), noneKey, former}) + 1);
    change.setTouched({ListTouches::entry(list, added.key)});
    write(list, added, true);
    change.commit(operation(u"add"_s, list, added));
    outcome.key = added.key;
    return outcome;
}

ListOutcome ListStore::change(ListKind list, const LookupEntry& entry)
{
    ListOutcome outcome;
    LookupEntry changed = trimmed(entry);
    JournaledListChange change(m_session, m_clock);
    const auto entries = ListReader::entries(m_session, list);
    const LookupEntry before = entryOf(list, entry.key);
    changed.typeId = before.typeId;
    outcome.problem = problemOf(list, changed, before);
    if (!outcome.problem.isEmpty()) return outcome;
    change.setTouched(ListTouches::ofChange(list, entry.key));
    const bool isRenamed = before.name != changed.name || before.detail != changed.detail;
    if (list == ListKind::Cities && isRenamed) {
        outcome.records = rename(m_session, list, before, changed, entries);
    }
    if (list == ListKind::States && before.name != changed.name) {
        outcome.records = rename(m_session, list, before, changed, entries);
        ListMerge::moveCities(m_session, before.name, changed.name);
    }
    write(list, changed, false);
    change.commit(operation(u"change"_s, list, changed));
    outcome.key = changed.key;
    return outcome;
}

ListOutcome ListStore::merge(ListKind list, qint64 from, qint64 into)
{
    ListOutcome outcome;
    JournaledListChange change(m_session, m_clock);
    const LookupRow source = rowOf(list, from);
    const LookupEntry target = entryOf(list, into);
    if (from == into || (list == ListKind::OrganizationSubTypes && source.entry.typeId != target.typeId)) {
        outcome.problem = ListsTexts::tr("These two entries cannot be merged.");
        return outcome;
    }
    change.setTouched(ListTouches::ofMerge(list, from, into));
    if (list == ListKind::Cities || list == ListKind::States) {
        rename(m_session, list, source.entry, target, ListReader::entries(m_session, list));
    }
    if (list == ListKind::States) ListMerge::moveCities(m_session, source.entry.name, target.name);
    if (list == ListKind::OrganizationTypes) ListMerge::moveSubTypes(m_session, from, into);
    ListMerge::moveKeys(m_session, list, from, into);
    ListMerge::removeEntry(m_session, list, from);
    change.commit(operation(u"merge"_s, list, source.entry));
    outcome.key = into;
    outcome.records = source.records();
    return outcome;
}

ListOutcome ListStore::remove(ListKind list, qint64 key)
{
    ListOutcome outcome;
    JournaledListChange change(m_session, m_clock);
    const LookupRow row = rowOf(list, key);
    outcome.problem = hindranceOfRemoval(list, row);
    if (!outcome.problem.isEmpty()) return outcome;
    change.setTouched(ListTouches::ofRemoval(list, key));
    ListMerge::removeKeys(m_session, list, key);
    ListMerge::removeEntry(m_session, list, key);
    change.commit(operation(u"delete"_s, list, row.entry));
    outcome.key = key;
    return outcome;
}

/// Both throw Error if the entry is gone or is the reserved one.
LookupRow ListStore::rowOf(ListKind list, qint64 key) const
{
    for (LookupRow& row : ListReader::rows(m_session, list))
        if (row.entry.key == key) return std::move(row);
    refuseMissing();
}

LookupEntry ListStore::entryOf(ListKind list, qint64 key) const
{
    for (LookupEntry& entry : ListReader::entries(m_session, list))
        if (entry.key == key) return std::move(entry);
    refuseMissing();
}

QString ListStore::hindranceOfRemoval(ListKind list, const LookupRow& row)
{
    if (row.records() > 0) {
        return ListsTexts::tr("Records use this entry. Merge it into another one instead.");
    }
    if (row.parts == 0) return {};
    return list == ListKind::States
               ? ListsTexts::tr("This state has known cities. Delete them first, or merge the state into "
                                "another one.")
               : ListsTexts::tr("This type has sub-types. Delete them first, or merge the type into another "
                                "one.");
}

QString ListStore::readPosition(const QString& lat, const QString& lon, std::optional<MapPosition>& position)
{
    position.reset();
    if (lat.trimmed().isEmpty() && lon.trimmed().isEmpty()) return {};
    const auto read = [](const QString& text, double farthest) -> std::optional<double> {
        bool isNumber = false;
        const double number = QString(text).replace(u',', u'.').trimmed().toDouble(&isNumber);
        if (!isNumber || !(std::abs(number) <= farthest)) return std::nullopt;
        return number;
    };
    const auto latitude = read(lat, farthestLatitude);
    const auto longitude = read(lon, farthestLongitude);
    if (!latitude) {
        return ListsTexts::tr(
                   "Latitude \"%1\" is not a number from -90 to 90. Please type one such as 30.27.")
            .arg(lat);
    }
    if (!longitude) {
        return ListsTexts::tr(
                   "Longitude \"%1\" is not a number from -180 to 180. Please type one such as -97.74.")
            .arg(lon);
    }
    position = MapPosition{*latitude, *longitude};
    return {};
}

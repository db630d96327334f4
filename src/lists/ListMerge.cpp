// SPDX-License-Identifier: GPL-3.0-or-later

#include "lists/ListMerge.h"

#include "data/DatabaseSession.h"
#include "lists/KnownPlaces.h"
#include "lists/ListReader.h"

#include <unordered_map>

using namespace Qt::StringLiterals;

namespace {

/// Whether records refer to the entries of a list by their keys.
bool hasKeys(ListKind list)
{
    return list != ListKind::States && list != ListKind::Cities;
}

/// A table of links with the names of its columns put into statements.
class Links
{
public:
    Links(DatabaseSession& session, const ListReference& reference, qint64 from, qint64 into)
        : m_session(session), m_reference(reference), m_from(from), m_into(into)
    {
    }

    void move()
    {
        if (m_reference.hasSetting) keepSettings();
        // of repeated links, the first stays
        run(u"DELETE FROM %t WHERE %e = %from AND %r IN (SELECT %r FROM %t WHERE %e = %into)"_s);
        run(u"DELETE FROM %t WHERE %e = %from AND rowid NOT IN "
            "(SELECT min(rowid) FROM %t WHERE %e = %from GROUP BY %r)"_s);
        run(u"UPDATE %t SET %e = %into WHERE %e = %from"_s);
    }

private:
    /// A profile that has the setting in one of its rows has it in the row that stays.
    void keepSettings()
    {
        run(u"UPDATE %t SET Setting = 1 WHERE %e IN (%from,%into) AND %r IN "
            "(SELECT %r FROM %t WHERE %e = %from AND Setting = 1)"_s);
    }

    void run(QString statement)
    {
        statement.replace(u"%from"_s, QString::number(m_from)).replace(u"%into"_s, QString::number(m_into));
        statement.replace(u"%t"_s, m_reference.table).replace(u"%e"_s, m_reference.entryColumn);
        m_session.execute(statement.replace(u"%r"_s, m_reference.recordColumn));
    }

    DatabaseSession& m_session;
    const ListReference& m_reference;
    qint64 m_from;
    qint64 m_into;
};

void setColumn(DatabaseSession& session, const ListReference& reference, qint64 from, qint64 into)
{
    session.execute(u"UPDATE %1 SET %2 = %3 WHERE %2 = %4"_s.arg(
        reference.table, reference.entryColumn, QString::number(into), QString::number(from)));
}

} // namespace

void ListMerge::moveKeys(DatabaseSession& session, ListKind list, qint64 from, qint64 into)
{
    if (!hasKeys(list)) return;
    for (const ListReference& reference : listTable(list).references) {
        if (reference.isLink()) {
            Links(session, reference, from, into).move();
        } else {
            setColumn(session, reference, from, into);
        }
    }
}

void ListMerge::moveSubTypes(DatabaseSession& session, qint64 from, qint64 into)
{
    const ListKind list = ListKind::OrganizationSubTypes;
    const std::vector<LookupEntry> subTypes = ListReader::entries(session, list);
    std::unordered_map<std::string, qint64> known;
    for (const LookupEntry& each : subTypes)
        if (each.typeId == into) known.try_emplace(KnownPlaces::compared(each.name), each.key);
    for (const LookupEntry& each : subTypes) {
        if (each.typeId != from) continue;
        const auto [same, isNew] = known.try_emplace(KnownPlaces::compared(each.name), each.key);
        if (isNew) continue;
        moveKeys(session, list, each.key, same->second);
        removeEntry(session, list, each.key);
    }
    session.execute(u"UPDATE OrganizationSubTypes SET OrganizationTypeID = %1 WHERE OrganizationTypeID = %2 "
                    "AND OrganizationSubTypeID > 1"_s.arg(into)
                        .arg(from));
}

void ListMerge::moveCities(DatabaseSession& session, const QString& from, const QString& into)
{
    const auto state = KnownPlaces::compared(into);
    const auto moved = KnownPlaces::compared(from);
    const std::vector<LookupEntry> cities = ListReader::entries(session, ListKind::Cities);
    const auto known = KnownPlaces::cityKeys(cities);
    QStringList keys;
    for (const LookupEntry& city : cities) {
        if (KnownPlaces::compared(city.detail) != moved) continue;
        if (moved != state && known.contains(KnownPlaces::compared(city.name, into))) {
            removeEntry(session, ListKind::Cities, city.key);
        } else if (city.detail != into) {
            keys << QString::number(city.key);
        }
    }
    if (keys.isEmpty()) return;
    session.execute(u"UPDATE CityLocations SET %1 WHERE LocationID IN (%2)"_s.arg(
        KnownPlaces::assignment(u"State"_s, into), keys.join(u',')));
}

void ListMerge::removeKeys(DatabaseSession& session, ListKind list, qint64 key)
{
    if (!hasKeys(list)) return;
    for (const ListReference& reference : listTable(list).references) {
        if (!reference.isLink()) {
            setColumn(session, reference, key, noneKey);
            continue;
        }
        session.execute(u"DELETE FROM %1 WHERE %2 = %3"_s.arg(reference.table, reference.entryColumn,
                                                              QString::number(key)));
    }
}

void ListMerge::removeEntry(DatabaseSession& session, ListKind list, qint64 key)
{
    const ListTable& table = listTable(list);
    session.execute(
        u"DELETE FROM %1 WHERE %2 = %3"_s.arg(table.table, table.keyColumn, QString::number(key)));
}

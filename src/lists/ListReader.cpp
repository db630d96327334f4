// SPDX-License-Identifier: GPL-3.0-or-later

#include "lists/ListReader.h"

#include "data/DatabaseSession.h"
#include "lists/KnownPlaces.h"

#include <QHash>

using namespace Qt::StringLiterals;

namespace {

/// Whether each record is shown in the lists, by its key; the reserved one is left out.
using RecordStates = QHash<qint64, bool>;

RecordStates recordStates(DatabaseSession& session, RecordKind kind)
{
    const RecordNames names = recordNames(kind);
    const QString status = kind == RecordKind::Document ? u"dStatus"_s : u"Status"_s;
    RecordSet rows =
        session.read(u"SELECT %1, %2 FROM %3 WHERE %1 > 1"_s.arg(names.key, status, names.record));
    RecordStates states;
    while (rows.next())
        states.insert(rows.integer(0), !rows.isNull(1) && KnownPlaces::compared(rows.held(1)) != "deleted");
    return states;
}

/// The rows of a list by their keys.
using RowsByKey = QHash<qint64, LookupRow*>;

void addUse(LookupRow& row, std::size_t reference, bool isShown)
{
    RecordUse& use = row.uses[reference];
    ++(isShown ? use.shown : use.deleted);
}

void countLinks(DatabaseSession& session, const ListTable& table, const RowsByKey& rows)
{
    for (std::size_t i = 0; i < table.references.size(); ++i) {
        const ListReference& reference = table.references[i];
        const RecordStates states = recordStates(session, reference.kind);
        RecordSet links = session.read(u"SELECT DISTINCT %1, %2 FROM %3"_s.arg(
                                           reference.entryColumn, reference.recordColumn, reference.table) +
                                       (reference.hasSetting ? u" WHERE Setting = 1"_s : QString()));
        while (links.next()) {
            const auto row = rows.constFind(links.integer(0));
            const auto state = states.constFind(links.integer(1));
            if (row != rows.constEnd() && state != states.constEnd()) addUse(**row, i, *state);
        }
    }
}

void countPlaces(DatabaseSession& session, ListKind list, const std::vector<LookupEntry>& entries,
                 const RowsByKey& rows)
{
    std::unordered_map<std::string, qint64> keys;
    if (list == ListKind::Cities) {
        keys = KnownPlaces::cityKeys(entries);
    } else {
        for (const LookupEntry& state : entries)
            keys.emplace(KnownPlaces::compared(state.name), state.key);
    }
    for (const auto& organization : KnownPlaces::organizations(session)) {
        const auto key =
            keys.find(list == ListKind::Cities ? KnownPlaces::compared(organization.city, organization.state)
                                               : KnownPlaces::compared(organization.state));
        if (key != keys.end()) addUse(*rows.value(key->second), 0, organization.isShown);
    }
}

/// Counts the sub-types of each type, or the known cities of each state.
void countParts(DatabaseSession& session, ListKind list, std::vector<LookupRow>& rows)
{
    if (list == ListKind::OrganizationTypes) {
        QHash<qint64, qint64> counts;
        for (const LookupEntry& part : ListReader::entries(session, ListKind::OrganizationSubTypes))
            ++counts[part.typeId];
        for (LookupRow& row : rows)
            row.parts = counts.value(row.entry.key);
    }
    if (list == ListKind::States) {
        std::unordered_map<std::string, qint64> counts;
        for (const LookupEntry& city : ListReader::entries(session, ListKind::Cities))
            ++counts[KnownPlaces::compared(city.detail)];
        for (LookupRow& row : rows)
            row.parts = counts[KnownPlaces::compared(row.entry.name)];
    }
}

/// Row 1 is the reserved "None". If the editors offer it, an imported database may have a name of its own
/// there.
bool isReserved(const ListTable& table, qint64 key, const QString& name)
{
    if (key > noneKey) return false;
    const std::string compared = KnownPlaces::compared(name);
    return !table.showsFirstRow || compared.empty() || compared == "none";
}

QHash<qint64, QString> typeNames(DatabaseSession& session)
{
    QHash<qint64, QString> names;
    RecordSet rows =
        session.read(u"SELECT OrganizationTypeID, OrganizationTypeName FROM OrganizationTypes"_s);
    while (rows.next())
        names.insert(rows.integer(0), rows.text(1));
    return names;
}

/// Reads what only some lists have.
class Details
{
public:
    Details(DatabaseSession& session, ListKind list, const RecordSet& rows) : m_list(list)
    {
        if (list == ListKind::States) m_detail = rows.column(u"StateName");
        if (list == ListKind::OrganizationSubTypes) {
            m_type = rows.column(u"OrganizationTypeID");
            m_typeNames = typeNames(session);
        }
        if (list == ListKind::Cities) {
            m_detail = rows.column(u"State");
            m_lat = rows.column(u"Lat");
            m_lon = rows.column(u"Lon");
        }
    }

    void read(const RecordSet& rows, LookupEntry& entry) const
    {
        if (m_detail >= 0) entry.detail = rows.text(m_detail);
        if (m_list == ListKind::OrganizationSubTypes) {
            entry.typeId = rows.isNull(m_type) ? noneKey : rows.integer(m_type);
            entry.detail = m_typeNames.value(entry.typeId);
        }
        if (m_list == ListKind::Cities && !rows.isNull(m_lat) && !rows.isNull(m_lon)) {
            entry.position = MapPosition{rows.real(m_lat), rows.real(m_lon)};
        }
    }

private:
    ListKind m_list;
    int m_detail = -1;
    int m_type = -1;
    int m_lat = -1;
    int m_lon = -1;
    QHash<qint64, QString> m_typeNames;
};

} // namespace

std::vector<LookupEntry> ListReader::entries(DatabaseSession& session, ListKind list)
{
    const ListTable& table = listTable(list);
    RecordSet rows = session.read(u"SELECT * FROM "_s + table.table);
    const int key = rows.column(table.keyColumn);
    const int name = rows.column(table.nameColumn);
    const Details details(session, list, rows);
    std::vector<LookupEntry> entries;
    while (rows.next()) {
        LookupEntry entry{rows.integer(key), rows.text(name)};
        if (isReserved(table, entry.key, entry.name)) continue;
        details.read(rows, entry);
        entries.push_back(std::move(entry));
    }
    return entries;
}

std::vector<LookupRow> ListReader::rows(DatabaseSession& session, ListKind list)
{
    const ListTable& table = listTable(list);
    const std::vector<LookupEntry> read = entries(session, list);
    std::vector<LookupRow> rows;
    rows.reserve(read.size());
    RowsByKey byKey;
    for (const LookupEntry& entry : read) {
        LookupRow& row = rows.emplace_back();
        row.entry = entry;
        for (const ListReference& reference : table.references)
            row.uses.push_back({reference.kind});
        byKey.insert(entry.key, &row);
    }
    if (list == ListKind::States || list == ListKind::Cities) {
        countPlaces(session, list, read, byKey);
    } else {
        countLinks(session, table, byKey);
    }
    countParts(session, list, rows);
    return rows;
}

QString ListReader::usersCondition(ListKind list, const ListReference& reference, const LookupEntry& entry)
{
    const QString key = QString::number(entry.key);
    if (list == ListKind::Cities) return u" AND LocationID = "_s + key;
    const RecordNames names = recordNames(reference.kind);
    QString users = u"SELECT %1 FROM %2 WHERE "_s.arg(reference.recordColumn, reference.table);
    if (list == ListKind::States) {
        users += u"lower(trim(State)) = lower(trim('%1'))"_s.arg(QString(entry.name).replace(u'\'', u"''"_s));
    } else {
        users += u"%1 = %2"_s.arg(reference.entryColumn, key);
        if (reference.hasSetting) users += u" AND Setting = 1"_s;
    }
    return u" AND %1.%2 IN (%3)"_s.arg(names.record, names.key, users);
}

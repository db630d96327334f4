// SPDX-License-Identifier: GPL-3.0-or-later

#include "check/LinksCheck.h"

#include "check/CheckTexts.h"
#include "check/CheckedDatabase.h"
#include "check/NamedRows.h"
#include "journal/RecordParts.h"
#include "util/Error.h"

#include <QStringList>

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

/// What is true of a key that leads nowhere.
QString leadsNowhere(const QString& table, const QString& column, const QString& target)
{
    const QString key = NamedRows::keyColumn(target);
    return u"(%1.%2 <> 1 AND NOT EXISTS (SELECT 1 FROM %3 AS Target WHERE Target.%4 = %1.%2))"_s.arg(
        table, column, target, key);
}

} // namespace

void LinksCheck::begin(DatabaseSession& /*session*/)
{
    for (const RecordKind kind : recordKinds) {
        const RecordParts& record = recordParts(kind);
        std::vector<Key> keys;
        for (const NamedKey& key : record.keys)
            keys.push_back({key.column, key.table});
        if (kind == RecordKind::Organization) keys.push_back({u"ParentID"_s, record.names.record});
        if (!keys.empty()) addTable(record.names.record, {record.names.key, record.names.record}, keys);
        for (const PartTable& part : record.parts) {
            const Key owner{part.recordColumn, record.names.record};
            std::vector<Key> linked{owner};
            if (part.linkedTo) linked.push_back({part.linkedTo->column, part.linkedTo->table});
            addTable(part.table, owner, linked);
        }
    }
    addTable(u"OrganizationSubTypes"_s, {u"OrganizationSubTypeID"_s, u"OrganizationSubTypes"_s},
             {{u"OrganizationTypeID"_s, u"OrganizationTypes"_s}});
    std::reverse(m_tables.begin(), m_tables.end());
}

/// `owner` is the key of the row that the others belong to.
void LinksCheck::addTable(const QString& table, const Key& owner, const std::vector<Key>& keys)
{
    Table added{table, owner, {}};
    for (const Key& key : keys)
        if (hasColumns(table, {owner.column, key.column})) added.keys.push_back(key);
    if (!added.keys.empty()) m_tables.push_back(std::move(added));
}

bool LinksCheck::prepare(DatabaseSession& session)
{
    if (m_tables.empty()) return false;
    Table& table = m_tables.back();
    bool isSuspect = true;
    try {
        isSuspect = hasLostKeys(session, table);
    } catch (const Error& error) {
        hinder(error); // an index may be damaged and the table not
    }
    if (isSuspect) addScanOf(table);
    if (isSuspect || table.next == table.keys.size()) m_tables.pop_back();
    return true;
}

/// Whether some of the next keys lead nowhere.
bool LinksCheck::hasLostKeys(DatabaseSession& session, Table& table) const
{
    constexpr qint64 portion = 8000;
    const Key& key = table.keys[table.next];
    const auto rows = HeldRows(session).read(
        u"SELECT max(Compared.Value) AS Last, count(*) AS Keys, count(Target.%3) AS Found FROM (SELECT "
        u"DISTINCT %1 AS "
        "Value FROM %2 WHERE %1 > ? AND %1 <> 1 ORDER BY %1 LIMIT ?) AS Compared LEFT JOIN %4 AS Target ON "
        "Target.%3 = "
        "Compared.Value"_s.arg(key.column, table.name, NamedRows::keyColumn(key.target), key.target),
        {table.last, portion});
    const qint64 count = wholeNumberOf(rows.front(), u"Keys");
    table.last = valueOf(rows.front(), u"Last");
    if (count < portion) {
        ++table.next;
        table.last = firstKey;
    }
    return wholeNumberOf(rows.front(), u"Found") < count;
}

void LinksCheck::addScanOf(const Table& table)
{
    QStringList columns{table.owner.column};
    QStringList conditions;
    for (const Key& key : table.keys) {
        const QString condition = leadsNowhere(table.name, key.column, key.target);
        conditions << condition;
        if (key.column != table.owner.column) columns << key.column;
        columns << u"%1 AS Lost%2"_s.arg(condition, key.column);
    }
    addScan(TableScan(table.name, columns.join(u", "_s), conditions.join(u" OR "_s)),
            [this, owner = table.owner, keys = table.keys](const HeldRow& row) { found(row, owner, keys); });
}

void LinksCheck::found(const HeldRow& row, const Key& owner, const std::vector<Key>& keys)
{
    DatabaseSession& session = database().session();
    const Value& ownerKey = valueOf(row, owner.column);
    const auto ownerText = NamedRows::existing(session, owner.target, ownerKey);
    const QString sentence = CheckTexts::tr("%1 is linked to %2, which does not exist.");
    for (const Key& key : keys) {
        if (wholeNumberOf(row, QString(u"Lost"_s + key.column)) == 0) continue;
        const Value& lost = valueOf(row, key.column);
        const QString lostText = NamedRows::missing(key.target, lost);
        if (key.column != owner.column) {
            if (ownerText) {
                const auto record = NamedRows::record(owner.target, ownerKey);
                add({sentence.arg(*ownerText, lostText),
                     record ? Finding::Step::ShowRecord : Finding::Step::None, record});
            } else {
                add({CheckTexts::tr("There is a link between %1 and %2, neither of which exists.")
                         .arg(NamedRows::missing(owner.target, ownerKey), lostText)});
            }
            continue;
        }
        // the record itself is missing; what it was linked to may be there
        if (keys.size() == 1) {
            add({CheckTexts::tr("There is a profile of %1, which does not exist.").arg(lostText)});
            continue;
        }
        const Key& other = keys.back();
        if (wholeNumberOf(row, QString(u"Lost"_s + other.column)) != 0) continue;
        const Value& otherKey = valueOf(row, other.column);
        const auto otherText = NamedRows::existing(session, other.target, otherKey);
        if (!otherText) {
            add({CheckTexts::tr("There is a link of %1, which does not exist.").arg(lostText)});
            continue;
        }
        const auto record = NamedRows::record(other.target, otherKey);
        add({sentence.arg(*otherText, lostText), record ? Finding::Step::ShowRecord : Finding::Step::None,
             record});
    }
}

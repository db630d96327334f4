// SPDX-License-Identifier: GPL-3.0-or-later

#include "check/LinksCheck.h"

#include "check/CheckTexts.h"
#include "check/CheckedDatabase.h"
#include "check/NamedRows.h"
#include "journal/RecordParts.h"

#include <QStringList>

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
}

/// `owner` is the key of the row that the others belong to.
void LinksCheck::addTable(const QString& table, const Key& owner, const std::vector<Key>& keys)
{
    QStringList columns{owner.column};
    QStringList conditions;
    std::vector<Key> present;
    for (const Key& key : keys) {
        if (!hasColumns(table, {owner.column, key.column})) continue;
        present.push_back(key);
        const QString condition = leadsNowhere(table, key.column, key.target);
        conditions << condition;
        if (key.column != owner.column) columns << key.column;
        columns << u"%1 AS Lost%2"_s.arg(condition, key.column);
    }
    if (present.empty()) return;
    addScan(TableScan(table, columns.join(u", "_s), conditions.join(u" OR "_s)),
            [this, owner, present](const HeldRow& row) { found(row, owner, present); });
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

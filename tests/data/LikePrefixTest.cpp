// SPDX-License-Identifier: GPL-3.0-or-later

#include "data/LikePrefix.h"

#include "data/StatementTranslator.h"
#include "support/TestDatabase.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

TEST(LikePrefix, FindsATakenTitleByAnIndex)
{
    TestDatabase database;
    const QString statement =
        u"SELECT EventID FROM Event WHERE EventName LIKE \"Flood\" AND Status = 'ACTIVE'"_s;
    const QString plan = database.planOf(statement);
    EXPECT_TRUE(plan.contains(u"EventNames (EventName>? AND EventName<?)"_s)) << plan.toStdString();
}

/// Short chains are tried pair by pair, so they tell what a long one must find.
TEST(TextPairs, FindWhatPairsTriedOneByOneFind)
{
    TestDatabase database;
    database.run(
        "INSERT INTO Organization (OrganizationID, City, State, Status) VALUES "
        "(2, 'Austin', 'TX', 'ACTIVE'), (3, 'AUSTIN', 'tx', 'ACTIVE'), (4, 'Austin', 'MN', 'ACTIVE'), "
        "(5, 'Cañon City', 'CO', 'ACTIVE'), (6, 'CAÑON CITY', 'CO', 'ACTIVE'), "
        "(7, 'Canon City', 'CO', 'ACTIVE'), (8, NULL, 'TX', 'ACTIVE'), (9, 'Austin', NULL, 'ACTIVE'), "
        "(10, '', '', 'ACTIVE'), (11, '\u212Aent', 'WA', 'ACTIVE'), (12, 'O''Fallon', 'MO', 'ACTIVE'), "
        "(13, 'Austin ', 'TX', 'ACTIVE'), (14, 'Waco', 'TX', 'ACTIVE')");
    const QStringList pairs{
        u"(City LIKE 'austin' AND State LIKE 'TX')"_s, u"(City LIKE 'Cañon City' AND State LIKE 'co')"_s,
        u"(City LIKE '' AND State LIKE '')"_s, u"(City LIKE 'kent' AND State LIKE 'WA')"_s,
        u"(City LIKE \"O'Fallon\" AND State LIKE 'MO')"_s};
    const auto found = [&database](const QStringList& chain, const QString& before) {
        const QString statement = u"SELECT OrganizationID FROM Q_Organization WHERE Organization.Status <> "
                                  "'DELETED' AND %1( %2 ) ORDER BY Organization.OrganizationID"_s;
        return firstColumnOf(database.session(), statement.arg(before, chain.join(u" OR "_s)));
    };
    const QString wild = u"(City LIKE 'W%' AND State LIKE 'T_')"_s;
    for (const QString& before : {QString(), u"NOT "_s}) {
        EXPECT_EQ(found(pairs + pairs, before), found(pairs, before)) << before.toStdString();
        EXPECT_EQ(found(pairs + pairs + QStringList{wild}, before), found(pairs + QStringList{wild}, before));
    }
    EXPECT_EQ(found(pairs + pairs, {}), u"2 3 5 6 10 11 12"_s);

    const QString chain = (pairs + pairs).join(u" OR "_s);
    const QString sql = StatementTranslator(database.session().catalog())
                            .select(u"SELECT OrganizationID FROM Organization WHERE ("_s + chain + u')')
                            .sql;
    EXPECT_FALSE(sql.contains(u"LIKE"_s)) << "a long chain is looked up: " << sql.toStdString();
}

} // namespace

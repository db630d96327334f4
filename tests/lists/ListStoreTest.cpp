// SPDX-License-Identifier: GPL-3.0-or-later

#include "lists/ListStore.h"

#include "lists/ListReader.h"
#include "support/ScriptedPlatform.h"
#include "support/TestDatabase.h"
#include "views/StandardQueries.h"

namespace {

/// Three records of each kind, one of them deleted, beside the reserved one.
class Lists : public testing::Test
{
protected:
    Lists()
    {
        for (const RecordKind kind : recordKinds) {
            const RecordNames names = recordNames(kind);
            const QString status = kind == RecordKind::Document ? u"dStatus"_s : u"Status"_s;
            database.run(u"INSERT INTO %1 (%2, %3, %4) VALUES (1, 'None', 'ACTIVE'), (2, 'Two', 'ACTIVE'), "
                         "(3, 'Three', 'SUBMITTED'), (4, 'Four', 'deleted'), (5, 'Five', 'ACTIVE')"_s.arg(
                             names.record, names.key, names.name, status));
        }
    }

    /// Puts `Alpha`, `Béta` and `Unused` behind the reserved row. Alpha is used by the records 2 and 3 and by
    /// the deleted one, Béta by one record that a link shares with Alpha.
    void fill(ListKind list)
    {
        const ListTable& table = listTable(list);
        const QString type = list == ListKind::OrganizationSubTypes ? u", OrganizationTypeID"_s : QString();
        const QString parent = type.isEmpty() ? QString() : u", 2"_s;
        database.run(u"INSERT INTO OrganizationTypes VALUES (1, 'None'), (2, 'Alpha')"_s);
        database.run(u"DELETE FROM %1"_s.arg(table.table));
        database.run(u"INSERT INTO %1 (%2, %3%4) VALUES (1, 'None'%5), (2, 'Alpha'%5), (3, 'Béta'%5), "
                     "(4, 'Unused'%5)"_s.arg(table.table, table.keyColumn, table.nameColumn, type, parent));
        for (const ListReference& each : table.references) {
            if (each.isLink()) {
                const QString setting = each.hasSetting ? u", 1"_s : QString();
                database.run(u"INSERT INTO %1 (%2, %3%4) VALUES (2, 2%5), (2, 2%5), (2, 3%5), (3, 2%5), "
                             "(3, 2%5), (4, 2%5), (1, 4%5), (99, 4%5)"_s.arg(
                                 each.table, each.recordColumn, each.entryColumn,
                                 each.hasSetting ? u", Setting"_s : QString(), setting));
            } else {
                database.run(u"UPDATE %1 SET %2 = CASE %3 WHEN 1 THEN 4 WHEN 5 THEN 3 ELSE 2 END"_s.arg(
                    each.table, each.entryColumn, each.recordColumn));
            }
        }
    }

    LookupRow row(ListKind list, qint64 key)
    {
        for (const LookupRow& each : store.read(list))
            if (each.entry.key == key) return each;
        throw std::runtime_error("no such entry");
    }

    /// For each kind of record `shown+deleted`, of what uses an entry.
    std::string uses(ListKind list, qint64 key)
    {
        QStringList texts;
        for (const RecordUse& use : row(list, key).uses)
            texts << u"%1+%2"_s.arg(use.shown).arg(use.deleted);
        return texts.join(u' ').toStdString();
    }

    std::string names(ListKind list)
    {
        QStringList texts;
        for (const LookupRow& each : store.read(list))
            texts << u"%1 %2"_s.arg(each.entry.key).arg(each.entry.name);
        return texts.join(u'|').toStdString();
    }

    /// How many rows the lists would show as users of an entry.
    qint64 listed(ListKind list, const ListReference& reference, qint64 key)
    {
        const QString condition = ListReader::usersCondition(list, reference, row(list, key).entry);
        const auto query = StandardQueries().narrowed(reference.kind, condition);
        return static_cast<qint64>(database.session().readAll(query->sqlStr()).count());
    }

    TestDatabase database;
    ScriptedClock clock;
    ListStore store{database.session(), clock};
};

class EveryList : public Lists, public testing::WithParamInterface<ListKind>
{
protected:
    EveryList() { fill(GetParam()); }
};

std::string nameOf(const testing::TestParamInfo<ListKind>& info)
{
    return listTable(info.param).table.toStdString();
}

/// All but the states and the cities, to which records refer by text.
INSTANTIATE_TEST_SUITE_P(Lists, EveryList,
                         testing::Values(ListKind::DocumentTypes, ListKind::DocumentCategories,
                                         ListKind::FileTypes, ListKind::Functions, ListKind::Venues,
                                         ListKind::OrganizationTypes, ListKind::OrganizationSubTypes,
                                         ListKind::Jurisdictions, ListKind::Populations),
                         nameOf);

TEST_P(EveryList, CountsEachRecordOnceAsTheListsShowThem)
{
    const ListKind list = GetParam();
    for (std::size_t i = 0; i < listTable(list).references.size(); ++i) {
        const ListReference& reference = listTable(list).references[i];
        const RecordUse alpha = row(list, 2).uses.at(i);
        EXPECT_EQ(alpha.shown, 2);
        EXPECT_EQ(alpha.deleted, 1);
        EXPECT_EQ(listed(list, reference, 2), alpha.shown);
        EXPECT_EQ(listed(list, reference, 3), row(list, 3).uses.at(i).shown);
    }
    EXPECT_EQ(row(list, 3).records(), static_cast<qint64>(listTable(list).references.size()));
    EXPECT_EQ(row(list, 4).records(), 0) << "the reserved record and lost links do not count";
}

TEST_P(EveryList, MergesAllThatUsesAnEntryIntoAnother)
{
    const ListKind list = GetParam();
    const qint64 users = row(list, 2).records();
    EXPECT_EQ(store.merge(list, 2, 3).records, users);
    EXPECT_EQ(names(list), "3 Béta|4 Unused");
    for (std::size_t i = 0; i < listTable(list).references.size(); ++i) {
        const ListReference& reference = listTable(list).references[i];
        EXPECT_EQ(row(list, 3).uses[i].shown, reference.isLink() ? 2 : 3);
        EXPECT_EQ(row(list, 3).uses[i].deleted, 1);
        EXPECT_EQ(
            database.ask(u"SELECT group_concat(r, ' ') FROM (SELECT %1 AS r FROM %2 WHERE %3 = 3 "
                         "ORDER BY 1)"_s.arg(reference.recordColumn, reference.table, reference.entryColumn)),
            reference.isLink() ? u"2 3 4"_s : u"2 3 4 5"_s)
            << "repeated links are one";
        EXPECT_EQ(database.ask(
                      u"SELECT count(*) FROM %1 WHERE %2 = 2"_s.arg(reference.table, reference.entryColumn)),
                  u"0"_s);
    }
}

TEST_P(EveryList, TakesBackAMergeThatFails)
{
    const ListKind list = GetParam();
    const ListTable& table = listTable(list);
    // sessions run no triggers but update indexes, and abs() of the smallest integer overflows
    const ListReference& last = table.references.back();
    database.run(u"CREATE INDEX refuse ON %1 (abs(-9223372036854775807 - (%2 = 3 AND %3 = 3)))"_s.arg(
        last.table, last.recordColumn, last.entryColumn));
    const auto held = [&] {
        const ListReference& first = table.references.front();
        return database.ask(u"SELECT %1, %2 FROM %3 ORDER BY 1, 2"_s.arg(first.recordColumn,
                                                                         first.entryColumn, first.table)) +
               database.ask(u"SELECT * FROM "_s + table.table);
    };
    const QString before = held();
    EXPECT_EQ(errorNumberOf([&] { (void)store.merge(list, 2, 3); }), 1);
    EXPECT_EQ(held(), before);
}

TEST_P(EveryList, AddsRenamesAndRemovesWithUniqueNames)
{
    const ListKind list = GetParam();
    const QString taken = u"An entry with identical name already exists. Please choose a different name."_s;
    const auto entry = [](qint64 key, const QString& name) { return LookupEntry{key, name, {}, 2}; };
    EXPECT_EQ(store.add(list, entry(0, u" BÉTA "_s)).problem, taken);
    EXPECT_EQ(store.add(list, entry(0, u"none"_s)).problem, taken);
    EXPECT_EQ(store.add(list, entry(0, u"  "_s)).problem, u"Name is required."_s);
    EXPECT_EQ(store.change(list, entry(4, u"alpha"_s)).problem, taken);
    EXPECT_EQ(store.add(list, entry(0, u" Beta "_s)).key, 5);
    EXPECT_EQ(row(list, 5).entry.name, u"Beta"_s);
    EXPECT_EQ(store.change(list, entry(5, u"BETA"_s)).problem, QString()) << "its own name in other letters";
    EXPECT_EQ(store.remove(list, 5).problem, QString());
    EXPECT_EQ(store.remove(list, 3).problem, u"Records use this entry. Merge it into another one instead."_s);
    EXPECT_EQ(store.remove(list, 4).key, 4);
    for (const ListReference& reference : listTable(list).references) {
        EXPECT_EQ(database.ask(
                      u"SELECT count(*) FROM %1 WHERE %2 = 4"_s.arg(reference.table, reference.entryColumn)),
                  u"0"_s);
    }
}

TEST_P(EveryList, LeavesTheReservedRowAndKeepsTo16Bits)
{
    const ListKind list = GetParam();
    const ListTable& table = listTable(list);
    const auto none = [](qint64 key) { return LookupEntry{key, u"Some"_s, {}, 2}; };
    EXPECT_NE(errorNumberOf([&] { (void)store.change(list, none(1)); }), 0);
    EXPECT_NE(errorNumberOf([&] { (void)store.remove(list, 1); }), 0);
    EXPECT_NE(errorNumberOf([&] { (void)store.merge(list, 1, 2); }), 0);
    EXPECT_NE(errorNumberOf([&] { (void)store.merge(list, 2, 1); }), 0);
    database.run(u"UPDATE %1 SET %2 = 32767 WHERE %2 = 4"_s.arg(table.table, table.keyColumn));
    EXPECT_EQ(errorNumberOf([&] { (void)store.add(list, none(0)); }), 6);
    database.run(u"DELETE FROM %1"_s.arg(table.table));
    EXPECT_EQ(store.add(list, none(0)).key, 2) << "row 1 stays free for the reserved row";
}

TEST_F(Lists, KeepTheSettingsOfProfiles)
{
    database.run(
        "INSERT INTO JurisdictionTypes VALUES (2, 'City'), (3, 'County');"
        "INSERT INTO OrganizationProfileJurisdictions VALUES (2, 2, 1), (2, 3, 0), (3, 2, 0), (3, 3, 1),"
        "(5, 2, 0), (5, 2, 1)");
    EXPECT_EQ(uses(ListKind::Jurisdictions, 2), "2+0") << "rows without the setting do not count";
    (void)store.merge(ListKind::Jurisdictions, 2, 3);
    EXPECT_EQ(database.ask("SELECT * FROM OrganizationProfileJurisdictions ORDER BY 1"),
              u"2|3|1\n3|3|1\n5|3|1"_s);
}

TEST_F(Lists, MoveTheSubTypesOfAMergedType)
{
    database.run(
        "INSERT INTO OrganizationTypes VALUES (1, 'None'), (2, 'State'), (3, 'State agency');"
        "INSERT INTO OrganizationSubTypes VALUES (1, 1, 'None'), (2, 2, 'Police'), (3, 2, 'Zoo'),"
        "(4, 3, 'POLICE'), (5, 3, 'Port');"
        "UPDATE Organization SET OrganizationTypeID = 2, OrganizationSubTypeID = 2 WHERE OrganizationID = 2;"
        "UPDATE Organization SET OrganizationTypeID = 3, OrganizationSubTypeID = 4 WHERE OrganizationID = 3;"
        "UPDATE Organization SET OrganizationTypeID = 3, OrganizationSubTypeID = 5 WHERE OrganizationID = 5");
    EXPECT_EQ(row(ListKind::OrganizationTypes, 3).parts, 2);
    EXPECT_EQ(store.merge(ListKind::OrganizationSubTypes, 4, 2).problem,
              u"These two entries cannot be merged."_s)
        << "an organization would have the sub-type of another type";
    (void)store.merge(ListKind::OrganizationTypes, 3, 2);
    EXPECT_EQ(database.ask("SELECT * FROM OrganizationSubTypes"),
              u"1|1|None\n2|2|Police\n3|2|Zoo\n5|2|Port"_s);
    EXPECT_EQ(
        database.ask("SELECT OrganizationID, OrganizationTypeID, OrganizationSubTypeID FROM Organization "
                     "WHERE OrganizationTypeID > 1 ORDER BY 1"),
        u"2|2|2\n3|2|2\n5|2|5"_s);
    EXPECT_EQ(store.remove(ListKind::OrganizationTypes, 2).problem,
              u"Records use this entry. Merge it into another one instead."_s);
}

class Places : public Lists
{
protected:
    Places()
    {
        database.run(
            "INSERT INTO States VALUES (1, 'None', ''), (2, 'OR', 'Oregon'), (3, 'ÖR', 'Oregon too'), (4, "
            "'WA', '');"
            "INSERT INTO CityLocations VALUES (1, 'Salem', 'OR', 44.9, -123), (2, 'Bend', 'OR', 44, -121),"
            "(3, 'salem ', 'or', 1, 2), (4, 'Salem', 'ör', 3, 4), (5, 'Yakima', 'WA', NULL, NULL);"
            "UPDATE Organization SET City = 'SALEM', State = 'or' WHERE OrganizationID = 2;"
            "UPDATE Organization SET City = 'Bend', State = 'OR' WHERE OrganizationID = 3;"
            "UPDATE Organization SET City = 'Salem ', State = ' ÖR' WHERE OrganizationID = 4;"
            "UPDATE Organization SET City = 'O''Brien', State = 'ör' WHERE OrganizationID = 5");
    }

    std::string organizations()
    {
        return database
            .ask("SELECT group_concat(quote(City) || State, ' ') FROM Organization "
                 "WHERE OrganizationID > 1")
            .toStdString();
    }
};

TEST_F(Places, AreCountedByTheirTexts)
{
    EXPECT_EQ(uses(ListKind::States, 2) + ' ' + uses(ListKind::States, 3), "2+0 1+1");
    EXPECT_EQ(row(ListKind::States, 2).parts, 3);
    EXPECT_EQ(uses(ListKind::Cities, 1) + ' ' + uses(ListKind::Cities, 3), "1+0 0+0")
        << "of two cities of one name, the first counts";
    EXPECT_EQ(uses(ListKind::Cities, 4), "0+1");
    const ListReference& ofState = listTable(ListKind::States).references.front();
    EXPECT_EQ(listed(ListKind::States, ofState, 2), 2);
    EXPECT_EQ(listed(ListKind::States, ofState, 3), 1);
    EXPECT_EQ(listed(ListKind::Cities, listTable(ListKind::Cities).references.front(), 1), 1);
    EXPECT_EQ(store.remove(ListKind::States, 4).problem,
              u"This state has known cities. Delete them first, or merge the state into another one."_s);
    EXPECT_EQ(store.remove(ListKind::Cities, 3).problem, QString());
}

TEST_F(Places, TakeTheirNewNamesToTheOrganizations)
{
    EXPECT_EQ(store.change(ListKind::States, {3, u"O'R"_s, u"Oregon too"_s}).records, 2);
    EXPECT_EQ(organizations(), "'SALEM'or 'Bend'OR 'Salem 'O'R 'O''Brien'O'R");
    EXPECT_EQ(store.change(ListKind::Cities, {1, u"Salem City"_s, u"OR"_s, noneKey, MapPosition{45, -122.5}})
                  .records,
              1);
    EXPECT_EQ(organizations(), "'Salem City'or 'Bend'OR 'Salem 'O'R 'O''Brien'O'R")
        << "the state was not changed";
    EXPECT_EQ(database.ask("SELECT * FROM CityLocations WHERE LocationID IN (1, 4)"),
              u"1|Salem City|OR|45.0|-122.5\n4|Salem|O'R|3.0|4.0"_s);
    EXPECT_EQ(store.change(ListKind::Cities, {2, u"Bend"_s, u"OR"_s}).records, 0);
    EXPECT_EQ(store.change(ListKind::Cities, {2, u"SALEM city"_s, u"or"_s}).problem,
              u"An entry with identical name already exists. Please choose a different name."_s);
    EXPECT_EQ(store.add(ListKind::Cities, {0, u"Bend"_s, u"WA"_s}).key, 6)
        << "the same name in another state";
    EXPECT_EQ(store.add(ListKind::Cities, {0, u"Bend"_s, u" "_s}).problem, u"State is required."_s);
    EXPECT_EQ(store.add(ListKind::States, {0, u" "_s, u"Utah"_s}).problem, u"Abbreviation is required."_s);
}

TEST_F(Places, MergeWithTheirOrganizationsAndCities)
{
    EXPECT_EQ(store.merge(ListKind::States, 3, 2).records, 2);
    EXPECT_EQ(organizations(), "'SALEM'or 'Bend'OR 'Salem 'OR 'O''Brien'OR");
    EXPECT_EQ(names(ListKind::Cities), "2 Bend|1 Salem|3 salem |5 Yakima");
    EXPECT_EQ(store.merge(ListKind::Cities, 1, 2).records, 2);
    EXPECT_EQ(organizations(), "'Bend'or 'Bend'OR 'Bend'OR 'O''Brien'OR");
    EXPECT_EQ(uses(ListKind::Cities, 2), "2+1");
}

TEST(ListPosition, IsReadAsTyped)
{
    const struct
    {
        QString lat;
        QString lon;
        QString problem;
        std::optional<MapPosition> position;
    } cases[] = {
        {u" 30.27 "_s, u"-97,74"_s, {}, MapPosition{30.27, -97.74}},
        {u"-90"_s, u"180"_s, {}, MapPosition{-90, 180}},
        {u" "_s, {}, {}, std::nullopt},
        {u"90.1"_s, u"0"_s,
         u"Latitude \"90.1\" is not a number from -90 to 90. Please type one such as 30.27."_s, std::nullopt},
        {u"nan"_s, u"0"_s,
         u"Latitude \"nan\" is not a number from -90 to 90. Please type one such as 30.27."_s, std::nullopt},
        {u"1"_s,
         {},
         u"Longitude \"\" is not a number from -180 to 180. Please type one such as -97.74."_s,
         std::nullopt},
    };
    for (const auto& each : cases) {
        std::optional<MapPosition> position;
        EXPECT_EQ(ListStore::readPosition(each.lat, each.lon, position), each.problem);
        EXPECT_EQ(position, each.position) << qPrintable(each.lat);
    }
}

} // namespace

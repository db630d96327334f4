// SPDX-License-Identifier: GPL-3.0-or-later

#include "history/DeletedRecords.h"

#include "support/ScriptedPlatform.h"
#include "support/TestDatabase.h"

namespace {

/// Records of each kind with every status that files hold: of the deleted ones, the journal tells when 4 was
/// deleted, restored and deleted again.
class Deleted : public testing::TestWithParam<RecordKind>
{
protected:
    Deleted()
    {
        database.run(u"INSERT INTO %1 (%2, %3, %4) VALUES (1, 'None', 'DELETED'), (2, 'Active', 'ACTIVE'), "
                     "(3, 'béta', 'deleted'), (4, 'Alpha', 'DELETED'), (5, 'Ägypten', 'Deleted'), "
                     "(6, 'Without', NULL), (7, 'Other', 'SUBMITTED'), (40000, NULL, 'DELETED')"_s.arg(
                         names.record, names.key, names.name, status));
        database.run(
            u"INSERT INTO Journal (Number, Step, Moment, What, Kind, Identifier, UndoStep, RedoStep) "
            "VALUES (1, 1, '2005-06-01 09:00:00', 'delete', '%1', 4, 1, 0), "
            "(2, 2, '2005-06-02 09:00:00', 'restore', '%1', 4, 2, 0), "
            "(3, 3, '2005-06-03 09:00:00', 'delete', '%1', 4, 3, 0), "
            "(4, 4, '2005-06-04 09:00:00', 'change', '%1', 4, 4, 0), "
            "(5, 5, '2005-06-05 09:00:00', 'delete', 'Venue', 3, 5, 0)"_s.arg(names.record));
    }

    std::string deleted() const
    {
        QStringList lines;
        for (const DeletedRecord& each : records.read(GetParam()))
            lines << u"%1 %2 %3"_s.arg(each.identifier).arg(each.name, each.moment).trimmed();
        lines.sort();
        return lines.join(u'|').toStdString();
    }

    RecordNames names = recordNames(GetParam());
    QString status = GetParam() == RecordKind::Document ? u"dStatus"_s : u"Status"_s;
    TestDatabase database;
    ScriptedClock clock;
    DeletedRecords records{database.session(), clock};
};

INSTANTIATE_TEST_SUITE_P(EachKind, Deleted, testing::ValuesIn(recordKinds));

TEST_P(Deleted, AreThoseThatTheListsHideForTheirStatus)
{
    EXPECT_EQ(deleted(), "3 béta|4 Alpha 2005-06-03 09:00:00|40000|5 Ägypten");
    EXPECT_EQ(records.count(GetParam()), 4u);
}

TEST_P(Deleted, AreRestoredInOneStepOrNotAtAll)
{
    EXPECT_EQ(records.restore(GetParam(), {5, 40000, 2, 6, 99, 4}), (std::vector<qint64>{5, 40000, 4}));
    EXPECT_EQ(deleted(), "3 béta");
    const QString journal = u"SELECT Step, What, Kind, Identifier, Title, UndoStep, RedoStep, "
                            "json_extract(Before, '$.%1[0].%2'), json_extract(After, '$.%1[0].%2') "
                            "FROM Journal WHERE Number > 5"_s.arg(names.record, status);
    EXPECT_EQ(database.ask(journal).replace(names.record, u"Kind"_s),
              u"6|restore|Kind|5|Ägypten|6|0|Deleted|ACTIVE\n6|restore|Kind|40000||6|0|DELETED|ACTIVE\n"
              "6|restore|Kind|4|Alpha|6|0|DELETED|ACTIVE"_s);
    const QString state =
        u"SELECT group_concat(%1) FROM %2 WHERE %2.%3 > 1"_s.arg(status, names.record, names.key);
    EXPECT_EQ(database.ask(state), u"ACTIVE,deleted,ACTIVE,ACTIVE,SUBMITTED,ACTIVE"_s);

    database.run(
        u"UPDATE %1 SET %2 = 'DELETED' WHERE %1.%3 IN (4, 5)"_s.arg(names.record, status, names.key));
    database.run("CREATE UNIQUE INDEX Refusing ON Journal (Title) WHERE Number > 8");
    database.run(
        u"UPDATE %1 SET %2 = 'Same' WHERE %1.%3 IN (4, 5)"_s.arg(names.record, names.name, names.key));
    EXPECT_NE(errorNumberOf([&] { (void)records.restore(GetParam(), {4, 5}); }), 0);
    EXPECT_EQ(deleted(), "3 béta|4 Same 2005-06-03 09:00:00|5 Same");
    EXPECT_EQ(database.ask("SELECT max(Number) FROM Journal"), u"8"_s);
}

} // namespace

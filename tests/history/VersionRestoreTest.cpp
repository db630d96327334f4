// SPDX-License-Identifier: GPL-3.0-or-later

#include "history/VersionRestore.h"

#include "history/HistoryTest.h"
#include "journal/RecordParts.h"

namespace {

class VersionRestoreTest : public HistoryTest
{
protected:
    /// Restores the version at that place of the list, a minute later.
    VersionRestore::Outcome restore(RecordKind kind, qint64 identifier, std::size_t index)
    {
        clock.moment = clock.moment.addSecs(60);
        const RecordVersions versions = versionsOf(kind, identifier);
        return VersionRestore(database.session(), clock, folder, kind, identifier)
            .restore(versions.content(index), versions.present());
    }

    QString dump()
    {
        QString all;
        for (const RecordKind kind : recordKinds) {
            const RecordParts& record = recordParts(kind);
            all += tableDump(record.names.record);
            for (const PartTable& part : record.parts)
                all += tableDump(part.table);
        }
        return all;
    }

    QString tableDump(const QString& table)
    {
        return table + u'\n' + database.ask(u"SELECT * FROM %1 ORDER BY rowid"_s.arg(table)) + u'\n';
    }
};

TEST_F(VersionRestoreTest, MakesTheRecordWhatItWasAsANewVersion)
{
    changeTitle(u"Harbor fire"_s); // as a save writes the links, in its order and each once
    const QString before = dump();
    const QString histories = database.ask("SELECT * FROM Event_HIST");
    changeEvent([](EventRecord& event) {
        event.eventName = u"Wrong"_s;
        event.eventDescription.clear();
        event.startTime.clear();
        tick(event.venues, {2, 12});
        event.functions.clear();
        event.documents = {{u"None"_s, 1}};
    });
    (void)events.deleteEvent(2);
    EXPECT_NE(dump(), before);

    EXPECT_TRUE(restore(RecordKind::Event, 2, 2).isDone);
    EXPECT_EQ(dump(), before);
    EXPECT_EQ(listed(RecordKind::Event, 2).substr(0, 36), "06/15/2005 12:03:00|Restored|Title, ");
    EXPECT_TRUE(database.ask("SELECT * FROM Event_HIST").startsWith(histories));
    EXPECT_EQ(database.ask("SELECT EventID, EventName, StartTime, Status, UpdateTime FROM Event_HIST "
                           "ORDER BY rowid DESC LIMIT 1"),
              u"2|Harbor fire|09:05:30|ACTIVE|2005-06-15 12:03:00"_s);
    EXPECT_EQ(
        database.ask("SELECT What, Reverses, UndoStep, RedoStep FROM Journal ORDER BY Number DESC LIMIT 1"),
        u"restore|NULL|4|0"_s);
}

TEST_F(VersionRestoreTest, BringsTheChartBack)
{
    const QString chart = database.folder() + u"/data/orgcharts/2.png"_s;
    OrganizationStore organizations(database.session(), folder, clock);
    for (const char* content : {"first", "second", "third"}) {
        OrganizationRecord record = organizations.load(2).record;
        record.profile.organizationChart = database.folder() + u"/chart.png"_s;
        record.notes = QString::fromUtf8(content);
        writeFile(record.profile.organizationChart, content);
        ASSERT_FALSE(organizations.updateOrganization(record));
    }
    EXPECT_TRUE(restore(RecordKind::Organization, 2, 1).isDone);
    EXPECT_EQ(contentOf(chart), "second");
    EXPECT_TRUE(restore(RecordKind::Organization, 2, 3).isDone);
    EXPECT_EQ(contentOf(chart), "first");
    EXPECT_TRUE(restore(RecordKind::Organization, 2, 5).isDone);
    EXPECT_EQ(contentOf(chart), "(no file)") << "as before the first upload";

    // another file of the same name is a change, too
    for (const char* content : {"fourth", "fifth"}) {
        OrganizationRecord record = organizations.load(2).record;
        record.profile.organizationChart = database.folder() + u"/chart.png"_s;
        writeFile(record.profile.organizationChart, content);
        ASSERT_FALSE(organizations.updateOrganization(record));
    }
    RecordVersions versions(database.session(), RecordKind::Organization, 2);
    EXPECT_EQ(versions.changedFields(0), QStringList(u"Organization chart"_s));
    EXPECT_TRUE(VersionRestore(database.session(), clock, folder, RecordKind::Organization, 2)
                    .needsCharts(versions.content(1)));
}

TEST_F(VersionRestoreTest, LeavesOutWhatIsGone)
{
    changeTitle(u"One"_s);
    changeEvent([](EventRecord& event) {
        tick(event.venues, {2});
        event.functions = {{u"None"_s, 1}};
        event.documents = {{u"None"_s, 1}};
    });
    database.run("DELETE FROM Venue WHERE VenueID = 3; DELETE FROM Function WHERE FunctionID IN (2, 3);"
                 "DELETE FROM Document WHERE DocumentID = 4; UPDATE Document SET dStatus = 'DELETED'");
    const auto outcome = restore(RecordKind::Event, 2, 1);
    EXPECT_EQ(outcome.leftOut.join(u'|').toStdString(),
              "Venues: Airport|Functions: Police|Functions: fire|Related documents: The xAy file");
    EXPECT_EQ(database.ask("SELECT * FROM EventVenues WHERE EventID = 2"), QString());
    EXPECT_EQ(database.ask("SELECT FunctionID FROM EventFunctions WHERE EventID = 2"), u"1"_s);
    EXPECT_EQ(database.ask("SELECT DocumentID FROM DocumentEvents WHERE EventID = 2"), u"2"_s);
}

/// The history table has no links, no profile and no position; they stay, as does what a save never copies
/// there.
TEST_F(VersionRestoreTest, FromTheHistoryTableChangesOnlyWhatIsThere)
{
    database.run(
        "UPDATE Organization SET Lat = 30.5, Lon = -97.5, ParentID = 3, UserID = 8 WHERE OrganizationID = 2;"
        "INSERT INTO Organization_HIST (OrganizationID, OrganizationName, OrganizationTypeID, FunctionID, "
        "City, "
        "State, Status, UserID, UpdateTime) VALUES "
        "(2, 'Zebra', 2, 77, 'Austin', 'TX', 'DELETED', 1, '1999-01-01 08:00:00')");
    QString expected = dump();
    expected.replace(u"2|zebra Rescue|3|4|2|"_s, u"2|Zebra|2|NULL|1|"_s);
    const auto outcome = restore(RecordKind::Organization, 2, 1);
    EXPECT_TRUE(outcome.isDone);
    EXPECT_EQ(outcome.leftOut.join(u'|').toStdString(), "Function: 77");
    EXPECT_EQ(dump().toStdString(), expected.toStdString());
    EXPECT_EQ(listed(RecordKind::Organization, 2),
              "06/15/2005 12:01:00|Restored|Name, Function, Type, Sub-type\n"
              "|Changed elsewhere|Name, Function, Type, Sub-type, Status\n"
              "01/01/1999 08:00:00|Saved|");
}

TEST_F(VersionRestoreTest, WritesNothingOverAChangeThatItsUserDidNotSee)
{
    changeTitle(u"One"_s);
    const RecordVersions versions = versionsOf(RecordKind::Event, 2);
    database.run("INSERT INTO EventVenues VALUES (2, 12)");
    const QByteArray before = database.bytes();
    EXPECT_FALSE(VersionRestore(database.session(), clock, folder, RecordKind::Event, 2)
                     .restore(versions.content(1), versions.present())
                     .isDone);
    EXPECT_EQ(database.bytes(), before);
}

TEST_F(VersionRestoreTest, LeavesNothingHalfDone)
{
    changeTitle(u"One"_s);
    // sessions run no triggers but update indexes, and abs() of the smallest integer overflows
    database.run(
        "CREATE INDEX refuse ON Event_HIST (abs(-9223372036854775807 - (EventName = 'Harbor fire')))");
    const QString before = dump();
    EXPECT_EQ(errorNumberOf([&] { restore(RecordKind::Event, 2, 1); }), 1);
    EXPECT_EQ(dump(), before);
    EXPECT_EQ(database.ask("SELECT count(*) FROM Journal"), u"1"_s);
}

} // namespace

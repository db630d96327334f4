// SPDX-License-Identifier: GPL-3.0-or-later

#include "history/HistoryTest.h"
#include "journal/UndoSteps.h"

namespace {

class RecordVersionsTest : public HistoryTest
{
protected:
    /// `caption: older -> newer` of each field that differs between two versions.
    std::string differences(const RecordVersions& versions, std::size_t older, std::size_t newer)
    {
        QStringList lines;
        const auto textOf = [](const ComparedField& field, const std::optional<FieldContent>& content) {
            if (!content) return u"(not kept)"_s;
            if (!field.hasLinks()) return content->text;
            QStringList names;
            for (const NamedLink& link : content->links)
                names << link.name;
            return names.join(u'+');
        };
        for (const ComparedField& each :
             versions.fields().compare(versions.content(older), versions.content(newer))) {
            if (each.isDifferent())
                lines << u"%1: %2 -> %3"_s.arg(each.field.caption, textOf(each, each.older),
                                               textOf(each, each.newer));
        }
        return lines.join(u'\n').toStdString();
    }
};

TEST_F(RecordVersionsTest, OfTheJournalTellWhenWhatAndWhichFields)
{
    EXPECT_EQ(listed(RecordKind::Event, 2), "|First known|");
    changeTitle(u"Harbour fire"_s);
    changeEvent([](EventRecord& event) {
        event.startDate = u"09/12/2001"_s;
        event.keyEvent = false;
        tick(event.venues, {2, 12});
        event.functions = {{u"Police"_s, 2}};
    });
    (void)events.deleteEvent(2);
    EXPECT_EQ(listed(RecordKind::Event, 2),
              "06/15/2005 12:02:00|Deleted|Status\n"
              "06/15/2005 12:02:00|Changed|Key event, Start date, Venues, Functions\n"
              "06/15/2005 12:01:00|Changed|Title\n"
              "|First known|");
    const RecordVersions versions = versionsOf(RecordKind::Event, 2);
    EXPECT_EQ(differences(versions, 3, 0), "Title: Harbor fire -> Harbour fire\n"
                                           "Key event: Yes -> No\n"
                                           "Start date: 09/11/2001 -> 09/12/2001\n"
                                           "Venues: Airport -> Harbor+Stadium\n"
                                           "Functions: fire+Police -> Police\n"
                                           "Status: Active -> Deleted");
}

TEST_F(RecordVersionsTest, TellUndoAndRedo)
{
    changeTitle(u"Wrong"_s);
    UndoSteps steps(database.session(), clock, folder);
    ASSERT_TRUE(steps.undo().isDone());
    ASSERT_TRUE(steps.redo().isDone());
    ASSERT_TRUE(steps.undo().isDone());
    EXPECT_EQ(listed(RecordKind::Event, 2), "06/15/2005 12:01:00|Changed (undo)|Title\n"
                                            "06/15/2005 12:01:00|Changed (redo)|Title\n"
                                            "06/15/2005 12:01:00|Changed (undo)|Title\n"
                                            "06/15/2005 12:01:00|Changed|Title\n"
                                            "|First known|");
}

/// What is not in the journal stands between the versions that are; another name of a venue is no change.
TEST_F(RecordVersionsTest, TellOfChangesElsewhere)
{
    changeTitle(u"One"_s);
    database.run("UPDATE Event SET Notes = 'by another program' WHERE EventID = 2");
    changeTitle(u"Two"_s);
    database.run("UPDATE Venue SET VenueName = 'Airfield' WHERE VenueID = 3");
    EXPECT_EQ(listed(RecordKind::Event, 2), "06/15/2005 12:02:00|Changed|Title\n"
                                            "|Changed elsewhere|Notes\n"
                                            "06/15/2005 12:01:00|Changed|Title\n"
                                            "|First known|");
    database.run("DELETE FROM DocumentEvents WHERE EventID = 2; UPDATE Event SET UserID = 9");
    EXPECT_EQ(listed(RecordKind::Event, 2).substr(0, 38), "|Changed elsewhere|Related documents\n0");
    EXPECT_EQ(differences(versionsOf(RecordKind::Event, 2), 1, 0),
              "Related documents: Flood report+The xAy file -> ");
}

TEST_F(RecordVersionsTest, OfBeforeTheJournalAreThoseOfTheHistoryTable)
{
    database.run(
        "INSERT INTO Organization_HIST (OrganizationID, OrganizationName, OrganizationTypeID, Zip, State, "
        "City, "
        "Status, UpdateTime) VALUES (3, 'Watch', 2, '1', 'MA', 'Boston', 'ACTIVE', '1999-01-01 08:00:00'), "
        "(3, 'Harbor Watch', 1, '1', 'MA', 'Boston', 'ACTIVE', '2000-01-01 08:00:00')");
    EXPECT_EQ(listed(RecordKind::Organization, 3), "|Changed elsewhere|Zip\n"
                                                   "01/01/2000 08:00:00|Saved|Name, Type\n"
                                                   "01/01/1999 08:00:00|Saved|");
    const RecordVersions versions = versionsOf(RecordKind::Organization, 3);
    EXPECT_EQ(differences(versions, 2, 1), "Name: Watch -> Harbor Watch\nType: Federal -> None");
    for (const ComparedField& each : versions.fields().compare(versions.content(1), versions.content(0))) {
        const bool isKept = each.field.table == u"Organization"_s && each.field.caption != u"Latitude"_s &&
                            each.field.caption != u"Longitude"_s;
        EXPECT_EQ(each.older.has_value(), isKept) << qPrintable(each.field.caption);
        EXPECT_TRUE(each.newer) << qPrintable(each.field.caption);
    }

    // the newest row tells when the oldest state that is known as a whole was saved
    database.run("UPDATE Organization SET Zip = '1' WHERE OrganizationID = 3");
    EXPECT_EQ(listed(RecordKind::Organization, 3), "01/01/2000 08:00:00|Saved|Name, Type\n"
                                                   "01/01/1999 08:00:00|Saved|");
    database.run("UPDATE Organization SET Status = 'DELETED' WHERE OrganizationID = 3");
    EXPECT_EQ(listed(RecordKind::Organization, 3).substr(0, 16), "|Deleted|Status\n");
    database.run("UPDATE Organization SET Status = 'ACTIVE' WHERE OrganizationID = 3");

    // rows of saves that the journal tells of are not told of twice
    OrganizationStore store(database.session(), folder, clock);
    OrganizationRecord record = store.load(3).record;
    record.zip = u"2"_s;
    tick(record.jurisdictions, {7});
    record.profile.swornEmployees = u"12"_s;
    ASSERT_FALSE(store.updateOrganization(record));
    EXPECT_EQ(listed(RecordKind::Organization, 3),
              "06/15/2005 12:00:00|Changed|Zip, Sworn employees, Jurisdictions\n"
              "01/01/2000 08:00:00|Saved|Name, Type\n"
              "01/01/1999 08:00:00|Saved|");
}

/// A record whose number another one had before has no past.
TEST_F(RecordVersionsTest, BeginWithTheAddition)
{
    database.run(
        "INSERT INTO Event_HIST (EventID, EventName, UpdateTime) VALUES (4, 'Other', '1999-01-01 08:00:00')");
    EventRecord event = events.blank(std::nullopt);
    event.eventName = u"Ice storm"_s;
    event.eventDescription = u"Lines came down"_s;
    ASSERT_FALSE(events.saveEvent(event));
    ASSERT_EQ(event.id, 4);
    EXPECT_EQ(listed(RecordKind::Event, 4), "06/15/2005 12:00:00|Added|");
}

TEST_F(RecordVersionsTest, OfAnImportedColumnHaveItsName)
{
    database.run("ALTER TABLE Event ADD COLUMN Weather TEXT");
    changeTitle(u"One"_s);
    database.run("UPDATE Event SET Weather = 'rain', UserID = 9 WHERE EventID = 2");
    EXPECT_EQ(differences(versionsOf(RecordKind::Event, 2), 1, 0), "Weather:  -> rain");
}

/// A long past is found in portions, none of which is left out or told twice.
TEST_F(RecordVersionsTest, OfALongPastAreFoundInPortions)
{
    constexpr int changes = 250;
    database.run(
        "WITH RECURSIVE Counted (n) AS (SELECT 1 UNION ALL SELECT n + 1 FROM Counted WHERE n < 250) "
        "INSERT INTO Journal (Number, Step, Moment, What, Kind, Identifier, Title, Before, After, Reverses, "
        "UndoStep, RedoStep) SELECT n, n, '2005-06-15 12:00:00', 'change', 'Event', 3, '', "
        "'{\"Event\":[{\"EventName\":\"Title ' || (n - 1) || '\"}]}', "
        "'{\"Event\":[{\"EventName\":\"Title ' || n || '\"}]}', NULL, n, 0 FROM Counted;"
        "UPDATE Event SET EventName = 'Title 250' WHERE EventID = 3");
    RecordVersions versions = versionsOf(RecordKind::Event, 3);
    EXPECT_TRUE(versions.hasMore());
    EXPECT_LT(versions.found().size(), changes);
    while (versions.hasMore())
        versions.findMore();
    ASSERT_EQ(versions.found().size(), changes + 1);
    for (std::size_t i = 0; i < changes; ++i) {
        const VersionContent content = versions.content(i);
        ASSERT_EQ(Snapshots::titleOf(RecordKind::Event, content.snapshot),
                  u"Title %1"_s.arg(changes - static_cast<int>(i)));
    }
}

} // namespace

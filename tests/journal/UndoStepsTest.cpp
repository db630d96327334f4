// SPDX-License-Identifier: GPL-3.0-or-later

#include "journal/UndoStepsTest.h"

#include "records/DocumentStore.h"
#include "records/OrganizationStore.h"
#include "support/CaseFile.h"

TEST_F(UndoStepsTest, GoesBackAndForth)
{
    // a letter adds an event of that name, - deletes the last two events that were added, as one step;
    // u is Undo, r Redo, o opens the file anew, and a letter behind > is added by another program
    const struct
    {
        const char* commands;
        const char* undo;
        const char* redo;
    } cases[] = {
        {"", "", ""},
        {"A", "Undo Add of Event \"A\"", ""},
        {"Au", "", "Redo Add of Event \"A\""},
        {"ABu", "Undo Add of Event \"A\"", "Redo Add of Event \"B\""},
        {"ABuu", "", "Redo Add of Event \"A\""},
        {"ABuuu", "", "Redo Add of Event \"A\""},
        {"ABuur", "Undo Add of Event \"A\"", "Redo Add of Event \"B\""},
        {"ABuurr", "Undo Add of Event \"B\"", ""},
        {"ABuurrr", "Undo Add of Event \"B\"", ""},
        {"ABuurruu", "", "Redo Add of Event \"A\""},
        {"ABurur", "Undo Add of Event \"B\"", ""},
        {"ABuC", "Undo Add of Event \"C\"", ""},
        {"ABuCu", "Undo Add of Event \"A\"", "Redo Add of Event \"C\""},
        {"ABuuC", "Undo Add of Event \"C\"", ""},
        {"ABuuCu", "", "Redo Add of Event \"C\""},
        {"ABuoruo", "Undo Add of Event \"A\"", "Redo Add of Event \"B\""},
        {"AB-", "Undo Delete of 2 Events", ""},
        {"AB-u", "Undo Add of Event \"B\"", "Redo Delete of 2 Events"},
        {"AB-uuoru", "Undo Add of Event \"A\"", "Redo Add of Event \"B\""},
        {"AB-uoru", "Undo Add of Event \"B\"", "Redo Delete of 2 Events"},
        {"ABu>C", "Undo Add of Event \"C\"", ""},
        {"A>Buu", "", "Redo Add of Event \"A\""},
    };
    for (const auto& each : cases) {
        SCOPED_TRACE(each.commands);
        m_database.run("DELETE FROM Journal; DELETE FROM Event WHERE EventID > 3; DELETE FROM Event_HIST");
        std::vector<qint64> added;
        for (const char* command = each.commands; *command != 0; ++command) {
            if (*command == 'u') {
                m_undo.undo();
            } else if (*command == 'r') {
                m_undo.redo();
            } else if (*command == 'o') {
                m_state.session.open(m_database.fileName());
            } else if (*command == '-') {
                JournalStep step;
                for (auto event = added.end() - 2; event != added.end(); ++event)
                    EventStore(m_state.session, m_clock).deleteEvent(*event, &step);
            } else {
                DatabaseSession other;
                const bool isOther = *command == '>';
                if (isOther) other.open(m_database.fileName());
                command += isOther ? 1 : 0;
                added.push_back(addEvent(QString(QLatin1Char(*command)), isOther ? other : m_state.session));
            }
        }
        EXPECT_EQ(undoText(), QString::fromUtf8(each.undo));
        EXPECT_EQ(redoText(), QString::fromUtf8(each.redo));
    }
}

TEST_F(UndoStepsTest, BeginsAStepAnewAfterThatOfAnotherProgram)
{
    const qint64 first = addEvent(u"A"_s);
    const qint64 second = addEvent(u"B"_s);
    EventStore store(m_state.session, m_clock);
    JournalStep step;
    store.deleteEvent(first, &step);
    DatabaseSession other;
    other.open(m_database.fileName());
    addEvent(u"C"_s, other);
    store.deleteEvent(second, &step);
    for (const char* expected :
         {"Undo Delete of Event \"B\"", "Undo Add of Event \"C\"", "Undo Delete of Event \"A\""}) {
        EXPECT_EQ(undoText(), QString::fromUtf8(expected));
        EXPECT_TRUE(m_undo.undo().isDone());
    }
}

TEST_F(UndoStepsTest, NamesWhatWasDone)
{
    const auto expectStep = [this](const QString& name) {
        EXPECT_EQ(undoText(), u"Undo "_s + name);
        EXPECT_TRUE(m_undo.undo().isDone());
        EXPECT_EQ(redoText(), u"Redo "_s + name);
        EXPECT_TRUE(m_undo.redo().isDone());
        EXPECT_EQ(undoText(), u"Undo "_s + name);
    };
    (void)m_lists.add(ListKind::Venues, {0, u"Capitol"_s});
    expectStep(u"Add of Venue \"Capitol\""_s);
    (void)m_lists.change(ListKind::Venues, {13, u"State House"_s});
    expectStep(u"Change of Venue \"State House\""_s);
    (void)m_lists.merge(ListKind::Venues, 13, 2);
    expectStep(u"Merge of Venue \"State House\""_s);
    (void)m_lists.add(ListKind::OrganizationSubTypes, {0, u"With }] in \"it\""_s, {}, 3});
    expectStep(u"Add of Organization Sub-Type \"With }] in \"it\"\""_s);
    (void)m_lists.remove(ListKind::OrganizationSubTypes, 10);
    expectStep(u"Delete of Organization Sub-Type \"With }] in \"it\"\""_s);
    DocumentStore(m_state.session, m_state.folder, m_clock).deleteDocument(2);
    expectStep(u"Delete of Document \"Flood report\""_s);
    save(RecordKind::Document, 2, u"UPDATE Document SET dStatus = 'ACTIVE' WHERE DocumentID = 2"_s);
    expectStep(u"Restore of Document \"Flood report\""_s);
    const QString rename = u"UPDATE Organization SET OrganizationName = '%1' WHERE OrganizationID = 3"_s;
    save(RecordKind::Organization, 3, rename.arg(QString(5000, u'x')));
    expectStep(u"Change of Organization \"%1…\""_s.arg(QString(1000, u'x')));
}

TEST_F(UndoStepsTest, BringsBackExactlyWhatWasThere)
{
    // the rows to begin with, then the change
    for (const auto& [name, statements] : casesIn("journal/cases/changes.txt", 10)) {
        SCOPED_TRACE(name.toStdString());
        m_database.run(statements.section(u'\n', 0, 0));
        m_state.session.open(m_database.fileName());
        const QByteArray before = dump();
        save(kindNamed(name.section(u':', 0, 0)), 2, statements.section(u'\n', 1, 1));
        const QByteArray after = dump();
        EXPECT_NE(after, before);
        for (int i = 0; i < 2; ++i) {
            EXPECT_TRUE(m_undo.undo().isDone());
            EXPECT_EQ(dump(), before);
            EXPECT_TRUE(m_undo.redo().isDone());
            EXPECT_EQ(dump(), after);
        }
        EXPECT_TRUE(m_undo.undo().isDone());
    }
}

TEST_F(UndoStepsTest, KeepsTheOrderOfLinks)
{
    const auto links = [this](const QString& table) {
        return m_database.ask(u"SELECT * FROM %1 WHERE DocumentID = 2 ORDER BY rowid"_s.arg(table));
    };
    m_database.run("INSERT INTO DocumentTypes VALUES (2, 3), (2, 2)");
    const QString types = links(u"DocumentTypes"_s);
    save(RecordKind::Document, 2, u"DELETE FROM DocumentTypes WHERE rowid IN (1, 3)"_s);
    EXPECT_TRUE(m_undo.undo().isDone());
    EXPECT_EQ(links(u"DocumentTypes"_s), types);
    m_database.run("DELETE FROM DocumentVenues; INSERT INTO DocumentVenues VALUES (2, 3), (2, 2), (2, 5)");
    const QString venues = links(u"DocumentVenues"_s);
    (void)m_lists.merge(ListKind::Venues, 2, 12);
    EXPECT_TRUE(m_undo.undo().isDone());
    EXPECT_EQ(links(u"DocumentVenues"_s), venues);
}

TEST_F(UndoStepsTest, WritesNothingOverWhatAnotherProgramChanged)
{
    const qint64 event = addEvent(u"Flood"_s);
    const qint64 other = addEvent(u"Fire"_s);
    JournalStep step;
    for (const qint64 each : {event, other})
        EventStore(m_state.session, m_clock).deleteEvent(each, &step);
    m_database.run(u"UPDATE Event SET Notes = 'mine' WHERE EventID = %1"_s.arg(event));
    const QByteArray before = m_database.bytes();

    const UndoOutcome refused = m_undo.undo();
    EXPECT_FALSE(refused.isDone());
    EXPECT_TRUE(refused.changed.empty());
    ASSERT_EQ(refused.differences.size(), 1U);
    const StepDifference& difference = refused.differences.front();
    EXPECT_EQ(difference.identifier, event);
    EXPECT_EQ(difference.title, u"Flood"_s);
    EXPECT_EQ(textOf(difference.found.rows(u"Event"_s).front(), u"Notes"), u"mine"_s);
    EXPECT_NE(textOf(difference.expected.rows(u"Event"_s).front(), u"Notes"), u"mine"_s);
    EXPECT_EQ(m_database.bytes(), before);

    const UndoOutcome done = m_undo.undo(Undo::EvenIfChanged);
    EXPECT_TRUE(done.isDone());
    ASSERT_EQ(done.changed.size(), 2U);
    EXPECT_EQ(done.changed.front().identifier, other);
    EXPECT_EQ(ask("SELECT group_concat(Status || ifnull(Notes, ''), ' ') FROM Event WHERE EventID > 3"),
              u"ACTIVE ACTIVE"_s);
    EXPECT_TRUE(m_undo.redo().isDone()) << "what the other program wrote is in the journal";
}

TEST_F(UndoStepsTest, TakesBackOfAListWhatStillMatches)
{
    m_database.run("DELETE FROM DocumentVenues; INSERT INTO DocumentVenues VALUES (2, 2), (4, 2)");
    (void)m_lists.merge(ListKind::Venues, 2, 12);
    m_database.run("DELETE FROM DocumentVenues WHERE DocumentID = 4");
    const QByteArray before = m_database.bytes();
    const UndoOutcome refused = m_undo.undo();
    ASSERT_EQ(refused.differences.size(), 1U);
    EXPECT_EQ(refused.differences.front().title, u"Harbor"_s);
    EXPECT_EQ(refused.differences.front().expected.rows(u"DocumentVenues"_s).size(), 1U);
    EXPECT_TRUE(refused.differences.front().found.isEmpty());
    EXPECT_EQ(m_database.bytes(), before);

    const QByteArray merged = dump();
    EXPECT_TRUE(m_undo.undo(Undo::EvenIfChanged).isDone());
    EXPECT_EQ(ask("SELECT DocumentID, VenueID FROM DocumentVenues"), u"2|2"_s);
    EXPECT_EQ(ask("SELECT VenueName FROM Venue WHERE VenueID = 2"), u"Harbor"_s);
    EXPECT_TRUE(m_undo.redo().isDone());
    EXPECT_EQ(dump(), merged);
}

TEST_F(UndoStepsTest, AddsToTheHistoryAsASaveDoes)
{
    const qint64 event = addEvent(u"A"_s);
    rename(event, u"B"_s);
    m_clock.moment = m_clock.moment.addSecs(60);
    QString expected = u"A 2005-06-15 14:03:09, B 2005-06-15 14:03:09"_s;
    const auto expectMore = [this, &expected](const QString& more) {
        expected += more;
        EXPECT_EQ(ask("SELECT group_concat(EventName || ' ' || UpdateTime, ', ') FROM Event_HIST"), expected);
    };
    EventStore(m_state.session, m_clock).deleteEvent(event);
    expectMore({});
    (void)m_undo.undo();
    expectMore({});
    (void)m_undo.redo();
    expectMore({});
    const QString savedAgain = u", A 2005-06-15 14:04:09"_s;
    (void)m_undo.undo();
    expectMore({});
    (void)m_undo.undo();
    expectMore(savedAgain);
    (void)m_undo.undo();
    expectMore({}); // the record is gone, its history stays
    (void)m_undo.redo();
    expectMore(savedAgain);
}

TEST_F(UndoStepsTest, CopiesToTheHistoryWhatASaveCopies)
{
    for (const RecordKind kind : recordKinds) {
        const RecordNames names = recordNames(kind);
        const QString change =
            u"UPDATE %1 SET %2 = 'x' WHERE %3 = 2"_s.arg(names.record, names.name, names.key);
        save(kind, 2, change);
        EXPECT_TRUE(m_undo.undo().isDone());
    }
    EXPECT_EQ(ask("SELECT DocumentName, ReleaseForm, UserID, POCID, Status FROM Document_HIST"),
              u"Flood report|NULL|5|6|REVIEWED"_s);
    EXPECT_EQ(ask("SELECT EventName, StartTime, UserID FROM Event_HIST"), u"Harbor fire|09:05:30|7"_s);
    EXPECT_EQ(ask("SELECT OrganizationName, ParentID FROM Organization_HIST"), u"zebra Rescue|NULL"_s);
}

TEST_F(UndoStepsTest, GivesNoIdentifierTwice)
{
    const qint64 first = addEvent(u"A"_s);
    (void)m_undo.undo();
    EXPECT_EQ(ask("SELECT max(EventID) FROM Event"), u"3"_s);
    EXPECT_EQ(addEvent(u"B"_s), first + 1);

    const qint64 venue = m_lists.add(ListKind::Venues, {0, u"Capitol"_s}).key;
    (void)m_undo.undo();
    EXPECT_EQ(m_lists.add(ListKind::Venues, {0, u"Harbor Hall"_s}).key, venue + 1);
}

TEST_F(UndoStepsTest, SaysWhyItCannotGoOn)
{
    addEvent(u"A"_s);
    const QByteArray before = m_database.bytes();
    {
        SQLite::Database other(m_database.fileName().toStdString(), SQLite::OPEN_READWRITE);
        other.exec("BEGIN IMMEDIATE");
        EXPECT_EQ(errorNumberOf([&] { (void)m_undo.undo(); }), SQLITE_BUSY);
    }
    // the step that the user meant is not the next one any more
    EXPECT_FALSE(m_undo.undo(Undo::EvenIfChanged, 7).step);
    EXPECT_EQ(m_database.bytes(), before);
    m_state.session.open(m_database.fileName(), Access::Read);
    EXPECT_EQ(undoText(), u"Undo Add of Event \"A\""_s);
    EXPECT_EQ(errorNumberOf([&] { (void)m_undo.undo(); }), SQLITE_READONLY);
    EXPECT_EQ(m_database.bytes(), before);

    for (const char* damage : {"UPDATE Journal SET After = '{'", "UPDATE Journal SET What = 'guess'",
                               "UPDATE Journal SET What = 'list', Kind = 'Venue', After = "
                               "'{\"Venue WHERE 1; --\":[{\"VenueID\":2}]}'"}) {
        SCOPED_TRACE(damage);
        m_database.run(damage);
        m_state.session.open(m_database.fileName());
        const QByteArray damaged = m_database.bytes();
        EXPECT_EQ(errorNumberOf([&] { (void)m_undo.undo(); }), SQLITE_CORRUPT);
        EXPECT_EQ(m_database.bytes(), damaged);
        m_database.run("UPDATE Journal SET What = 'add', Kind = 'Event'");
    }

    m_database.run("DROP TABLE Journal");
    m_state.session.open(m_database.fileName());
    EXPECT_FALSE(m_undo.undoable().has_value());
    EXPECT_FALSE(m_undo.undo().step.has_value());
    m_state.session.close();
    EXPECT_FALSE(m_undo.redoable().has_value());
}

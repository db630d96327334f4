// SPDX-License-Identifier: GPL-3.0-or-later

#include "support/TestDatabase.h"

namespace {

constexpr int busy = 5;

void addVenues(DatabaseSession& session, int count)
{
    EditableRecordSet venues = session.edit(u"SELECT * FROM Venue WHERE VenueID = 0"_s);
    for (int i = 0; i < count; ++i) {
        venues.addNew();
        venues.set(u"VenueName"_s, u"v"_s);
        venues.update();
    }
}

class Transactions : public testing::Test
{
protected:
    [[nodiscard]] int venues() const { return m_database.ask("SELECT count(*) FROM Venue").toInt(); }

    void expectSound()
    {
        EXPECT_EQ(m_database.ask("PRAGMA integrity_check"), u"ok"_s);
        addVenues(m_database.session(), 1);
        EXPECT_EQ(QDir(m_database.folder()).entryList(QDir::Files), QStringList{u"test.sqlite"_s});
    }

    TestDatabase m_database;
};

TEST_F(Transactions, OthersSeeAllOrNothingOfOneAtATime)
{
    Transaction transaction(m_database.session());
    EXPECT_NE(errorNumberOf([this] { const Transaction second(m_database.session()); }), 0);
    addVenues(m_database.session(), 3);
    EXPECT_EQ(m_database.session().execute(u"DELETE FROM Venue WHERE VenueID = 2"_s), 1);
    EXPECT_EQ(venues(), 0);
    transaction.commit();
    EXPECT_EQ(venues(), 2);
    expectSound();
}

TEST_F(Transactions, WhatWasWrittenBeforeATrappedErrorIsKept)
{
    DatabaseSession& session = m_database.session();
    EXPECT_EQ(errorNumberOf([&] {
                  const Transaction transaction(session);
                  addVenues(session, 2);
                  session.execute(u"DELETE FROM Nowhere"_s);
              }),
              1);
    EXPECT_EQ(venues(), 2);
    EXPECT_EQ(errorNumberOf([&] {
                  const Transaction transaction(session);
                  EditableRecordSet rows = session.edit(u"SELECT * FROM Venue WHERE VenueID = 0"_s);
                  for (const qint64 number : {7, 7}) {
                      rows.addNew();
                      rows.set(u"VenueID"_s, number);
                      rows.update();
                  }
              }),
              19);
    EXPECT_EQ(venues(), 3);
    expectSound();
}

TEST_F(Transactions, AnotherProgramThatWritesIsWaitedForAndThenReported)
{
    m_database.session();
    SQLite::Database other(m_database.fileName().toStdString(), SQLite::OPEN_READWRITE);
    other.exec("BEGIN IMMEDIATE");
    EXPECT_EQ(errorNumberOf([this] { const Transaction transaction(m_database.session()); }), busy);
    EXPECT_EQ(errorNumberOf([this] { m_database.session().execute(u"DELETE FROM Venue"_s); }), busy);
    other.exec("ROLLBACK");
    expectSound();
}

TEST_F(Transactions, AListThatIsStillReadDoesNotHoldASaveUp)
{
    addVenues(m_database.session(), 3);
    RecordSet rows = m_database.session().read(u"SELECT VenueID FROM Venue"_s);
    ASSERT_TRUE(rows.next());
    Transaction transaction(m_database.session());
    addVenues(m_database.session(), 1);
    transaction.commit();
    EXPECT_EQ(venues(), 4);
    EXPECT_TRUE(rows.next());
}

} // namespace

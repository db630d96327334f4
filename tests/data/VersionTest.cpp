// SPDX-License-Identifier: GPL-3.0-or-later

#include "support/TestDatabase.h"

namespace {

constexpr int readOnly = 8;

TEST(Version, OfAnotherProgramThanThisLetsAFileOnlyBeRead)
{
    constexpr auto newer = "The database was made by a newer version of the program: it can be read, but not "
                           "changed. (%1)";
    constexpr auto older =
        "The database was made by an earlier version of the program and was not brought up "
        "to date: it can be read, but not changed. (%1)";
    const std::pair<const char*, const char*> cases[] = {
        {"PRAGMA user_version = 3", newer},
        {"PRAGMA user_version = 9; DROP TABLE Journal", newer},
        {"PRAGMA user_version = 9; PRAGMA journal_mode = WAL", newer},
        {"PRAGMA user_version = 0; DROP TABLE Journal", older},
        {"PRAGMA user_version = 1; DROP TABLE Journal", older},
        {"PRAGMA user_version = 1", older},
        {"DROP TABLE Journal", older},
        {"DROP TABLE Journal; CREATE TABLE Journal (Number, Entry)", older},
        {"DROP TABLE Journal; CREATE VIEW Journal AS SELECT * FROM Venue", older},
    };
    for (const auto& [statements, message] : cases) {
        SCOPED_TRACE(statements);
        TestDatabase other;
        other.run("INSERT INTO Venue VALUES (2, 'Harbor')");
        other.run(statements);
        const QByteArray before = other.bytes();
        DatabaseSession& session = other.session();
        EXPECT_TRUE(session.isReadOnly());
        try {
            session.requireWritable();
            ADD_FAILURE();
        } catch (const Error& error) {
            EXPECT_EQ(error.number(), readOnly);
            EXPECT_EQ(error.description(), QString::fromUtf8(message).arg(other.fileName()));
        }
        const RecordWriting writing(session);
        EXPECT_EQ(errorNumberOf([&] { session.execute(u"DELETE FROM Venue"_s); }), readOnly);
        EXPECT_EQ(errorNumberOf([&] { session.execute(u"DELETE FROM Document"_s); }), readOnly);
        EXPECT_EQ(firstColumnOf(session, u"SELECT VenueName FROM Venue"_s), u"Harbor"_s);
        session.close();
        EXPECT_TRUE(other.bytes() == before);
    }
}

TEST(Version, ThatBecomesNewerMeanwhileLetsTheFileOnlyBeReadFromThenOn)
{
    TestDatabase database;
    database.run("INSERT INTO Venue VALUES (2, 'still open')");
    DatabaseSession& session = database.session();
    database.run("PRAGMA user_version = 3");
    EXPECT_TRUE(session.wasChangedOutside());
    EXPECT_TRUE(session.isReadOnly());
    EXPECT_EQ(errorNumberOf([&] { session.execute(u"DELETE FROM Venue"_s); }), readOnly);
    EXPECT_EQ(firstColumnOf(session, u"SELECT VenueName FROM Venue"_s), u"still open"_s);
    EXPECT_FALSE(session.wasChangedOutside());
}

} // namespace

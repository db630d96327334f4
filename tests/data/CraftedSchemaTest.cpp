// SPDX-License-Identifier: GPL-3.0-or-later

#include "support/CaseFile.h"
#include "support/TestDatabase.h"

namespace {

constexpr int refused = 1;
constexpr int noMemory = 7;
constexpr int corrupt = 11;
constexpr int tooBig = 18;
constexpr int interrupted = 9;

/// Views that each read the one before twice, so that the last one stands for 2^40 readings of the first.
std::string doublingViews()
{
    std::string sql = "CREATE VIEW v0 AS SELECT VenueID AS id FROM Venue;";
    for (int i = 1; i <= 40; ++i) {
        const std::string before = "v" + std::to_string(i - 1);
        sql += "CREATE VIEW v" + std::to_string(i) + " AS SELECT a.id AS id FROM " + before + " AS a, " +
               before + " AS b;";
    }
    return sql;
}

std::string eventQuery(const std::string& rest)
{
    return "DROP VIEW Q_Event; CREATE VIEW Q_Event AS SELECT Event.EventID AS EventID" + rest;
}

/// Files crafted so that opening them, or reading them once they are open, takes forever.
TEST(CraftedSchema, IsRefusedBeforeTheEngineIsAskedForIt)
{
    std::string names;
    for (int i = 0; i < 3000; ++i)
        names += ", a" + std::to_string(i) + ".b AS c" + std::to_string(i);
    std::string keys;
    for (int i = 0; i < 20000; ++i)
        keys += ", UNIQUE (a" + std::to_string(i % 150) + ", a" + std::to_string(i / 150) + ")";
    std::string columns = "a0";
    for (int i = 1; i < 150; ++i)
        columns += ", a" + std::to_string(i);
    std::vector<std::tuple<QString, std::string, int>> cases = {
        {u"a stored query of thousands of names"_s, eventQuery(names + " FROM Event"), tooBig},
        {u"a table of thousands of keys"_s,
         "UPDATE sqlite_master SET sql = 'CREATE TABLE Venue (" + columns + keys + ")' WHERE name = 'Venue'",
         corrupt},
    };
    for (const auto& [what, statements] : casesIn("data/cases/CraftedSchemas.txt", 14)) {
        const std::string text = statements.toStdString();
        cases.emplace_back(what, text.starts_with("EVENTS") ? eventQuery(text.substr(6)) : text, refused);
    }
    for (const auto& [what, statements, expected] : cases) {
        const TestDatabase database;
        database.run(("PRAGMA writable_schema = ON;" + doublingViews() + statements).c_str());
        DatabaseSession session;
        const int number = errorNumberOf([&] { session.open(database.fileName()); });
        EXPECT_EQ(number, expected) << what.toStdString();
    }
}

TEST(CraftedSchema, OfTooManyTablesIsStoppedInTime)
{
    const TestDatabase database;
    std::string sql = "BEGIN;";
    for (int i = 0; i < 2000; ++i)
        sql += "CREATE TABLE t" + std::to_string(i) + " (a, b);";
    database.run((sql + "COMMIT").c_str());
    DatabaseSession session;
    session.setPatience(std::chrono::milliseconds(0));
    EXPECT_EQ(errorNumberOf([&] { session.open(database.fileName()); }), interrupted);
    session.setPatience(std::chrono::milliseconds(30000));
    session.open(database.fileName());
    EXPECT_EQ(firstColumnOf(session, u"SELECT VenueID FROM Venue"_s), u""_s);
    EXPECT_GT(errorNumberOf([&] { session.read(u"SELECT * FROM t1"_s); }), 0)
        << "what is no table of the program is none of its business";
}

TEST(CraftedSchema, OfColumnsThatMultiplyIsStoppedWhenTheyAreRead)
{
    const TestDatabase database;
    std::string columns = "VenueID INTEGER PRIMARY KEY, VenueName TEXT, g0 AS (VenueID)";
    for (int i = 1; i <= 40; ++i) {
        const std::string before = "g" + std::to_string(i - 1);
        columns += ", g" + std::to_string(i) + " AS (" + before + " + " + before + ")";
    }
    database.run(("DROP TABLE Venue; CREATE TABLE Venue (" + columns + ");" +
                  eventQuery(", Venue.g40 AS KeyEvent FROM Event LEFT JOIN Venue ON Venue.VenueID = 1"))
                     .c_str());
    DatabaseSession session;
    session.open(database.fileName());
    EXPECT_EQ(firstColumnOf(session, u"SELECT EventID FROM Q_Event"_s), u""_s);
    EXPECT_EQ(errorNumberOf([&] { session.read(u"SELECT KeyEvent FROM Q_Event"_s); }), noMemory);
}

} // namespace

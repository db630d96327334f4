// SPDX-License-Identifier: GPL-3.0-or-later

#include "support/CollectedLog.h"
#include "support/TestDatabase.h"

namespace {

TEST(StatementLog, HoldsStatementsAsBuiltAndAsRunIfRulesAskForThem)
{
    TestDatabase database;
    database.runFile("data/rows/Statements.sql");
    DatabaseSession& session = database.session();
    const QString dated = u"SELECT EventID FROM Event WHERE StartDate = #09/11/2001#"_s;
    const QString update = u"UPDATE Venue SET VenueName = \"it's\" WHERE VenueID = 3"_s;
    const CollectedLog log;

    session.readAll(dated);
    session.execute(update);
    EXPECT_EQ(log.lines(), QStringList());

    QLoggingCategory::setFilterRules(u"orvik.statements=true"_s);
    session.readAll(dated);
    session.execute(update);
    session.edit(u"SELECT * FROM Venue WHERE VenueID = 12"_s);
    EXPECT_GT(errorNumberOf([&session] { session.read(u"SELECT it's"_s); }), 0);
    {
        RecordSet begun = session.read(u"SELECT * FROM Venue"_s);
        begun.next();
    }
    const QStringList expected{
        u"orvik\\.statements: \\d+\\.\\d{3} ms, rows read: 3\n  built: SELECT EventID FROM Event WHERE "
        "StartDate = #09/11/2001#\n  run:   SELECT .* = '2001-09-11'"_s,
        u"orvik\\.statements: .* rows read: 0\n  built: UPDATE Venue SET VenueName = \"it's\" WHERE VenueID "
        u"= "
        "3\n  run:   UPDATE \"Venue\" SET .*'it''s' WHERE .*"_s,
        u"orvik\\.statements: .* rows read: 1\n  built: SELECT \\* FROM Venue WHERE VenueID = 12\n  run:   "
        "SELECT rowid AS .*"_s,
        u"orvik\\.statements: .* rows read: 0\n  built: SELECT it's\n  run:   \\(refused\\)"_s,
        u"orvik\\.statements: .* rows read: 1\n  built: SELECT \\* FROM Venue\n  run:   SELECT \\* .*"_s};
    ASSERT_EQ(log.lines().size(), expected.size()) << log.lines().join(u'\n').toStdString();
    for (qsizetype i = 0; i < expected.size(); ++i) {
        const QRegularExpression pattern(QRegularExpression::anchoredPattern(expected[i]));
        EXPECT_TRUE(pattern.match(log.lines()[i]).hasMatch()) << log.lines()[i].toStdString();
    }
}

} // namespace

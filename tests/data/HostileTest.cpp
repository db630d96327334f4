#include "data/StandardQueries.h"
#include "data/StatementRows.h"
#include "support/TestDatabase.h"

#include <QDir>
#include <QFile>

#include <gtest/gtest.h>

#include <vector>

using namespace Qt::StringLiterals;

namespace {

constexpr int interrupted = 9;

/// What somebody may type into the search box, put into a statement as it is.
class HostileKeyword : public testing::Test
{
protected:
    HostileKeyword()
    {
        m_database.run(statementRows);
        m_database.session();
        m_before = m_database.bytes();
    }

    ~HostileKeyword() override
    {
        EXPECT_TRUE(m_database.bytes() == m_before) << "the file has changed";
        EXPECT_EQ(QDir(m_database.folder()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot),
                  QStringList{u"test.sqlite"_s});
        EXPECT_EQ(firstColumnOf(m_database.session(), m_standard.documents->sqlStr()), u"4 3 7 2"_s)
            << "the session does not work any more";
    }

    /// The search for one keyword in names and descriptions of documents.
    [[nodiscard]] QString searchFor(const QString& keyword) const
    {
        const SQLObject& standard = *m_standard.documents;
        return standard.SelectClause + u' ' + standard.FromClause + u' ' + standard.WhereClause +
               u" AND ((DocumentName LIKE '%"_s + keyword + u"%') OR (DocumentDescription LIKE '%"_s +
               keyword + u"%')) "_s;
    }

    /// The number of the error that a search ends with; 0 where it finds rows, -1 where it finds none.
    int search(const QString& keyword)
    {
        int rows = 0;
        const int number = errorNumberOf([&] {
            RecordSet found = m_database.session().read(searchFor(keyword));
            while (found.next())
                ++rows;
        });
        if (number != 0) return number;
        return rows > 0 ? 0 : -1;
    }

    TestDatabase m_database;
    StandardQueries m_standard;
    QByteArray m_before;
};

TEST_F(HostileKeyword, BreaksTheStatementAtMost)
{
    const QString other = m_database.folder() + u"/other.sqlite"_s;
    const std::vector<QString> keywords{
        u"'"_s,
        u"o'clock"_s,
        u"%'; DELETE FROM Document; --"_s,
        u"'; DROP TABLE Document"_s,
        u"%' -- "_s,
        u"%' /* "_s,
        u"%') OR 1=1) --"_s,
        u"%')) UNION SELECT sql,2,3,4,5,6,7,8,9,10,11 FROM sqlite_master WHERE (('%' = '"_s,
        u"%')) UNION ALL SELECT * FROM Document WHERE (('' = '"_s,
        u"%')) EXCEPT SELECT 1 WHERE (('' = '"_s,
        u"%')); ATTACH '%1' AS x"_s.arg(other),
        u"%' AND ATTACH DATABASE '%1' AS other AND '"_s.arg(other),
        u"%' AND (PRAGMA user_version) AND '"_s,
        u"%')) ORDER BY 1 LIMIT 1 OFFSET (('"_s,
        u"%' AND (SELECT sql FROM sqlite_master) LIKE '"_s,
        u"%' AND (SELECT count(*) FROM sqlite_schema) > 0 AND '"_s,
        u"%' AND (SELECT file FROM pragma_database_list) LIKE '"_s,
        u"%' AND EXISTS (SELECT * FROM dbstat) AND '"_s,
        u"%' AND EXISTS (SELECT * FROM sqlite_dbpage) AND '"_s,
        u"%' AND EXISTS (SELECT * FROM json_each) AND '"_s,
        u"%' AND load_extension('extension') AND '"_s,
        u"%' AND randomblob(1000000000) AND '"_s,
        u"%' AND zeroblob(1000000000) LIKE '"_s,
        u"%' AND hex(dStatus) LIKE '"_s,
        u"%' AND readfile('/etc/passwd') LIKE '"_s,
        u"%' AND writefile('%1', 'x') LIKE '"_s.arg(other),
        u"%' AND fts3_tokenizer('simple') LIKE '"_s,
        u"%' AND sqlite_compileoption_get(1) LIKE '"_s,
        u"%' AND group_concat(DocumentName) LIKE '"_s,
        u"%' AND (UPDATE Document SET dStatus = '') LIKE '"_s,
        u"%' AND (DELETE FROM Document RETURNING 1) LIKE '"_s,
        u"%' AND (SELECT 1 WHERE x INTO OUTFILE 'x') LIKE '"_s,
        u"%' AND (WITH RECURSIVE r(x) AS (SELECT 1) SELECT x FROM r) LIKE '"_s,
        u"%' COLLATE NOWHERE AND '"_s,
        u"%' AND #31/31/2001# AND '"_s,
        u"%' AND #"_s,
        u"%' AND \""_s,
        u"%' AND [Author] LIKE '"_s,
        u"%' AND `Author` LIKE '"_s,
        u"%' AND ?1 LIKE '"_s,
        u"%' AND :a LIKE '"_s,
        u"%' AND @a LIKE '"_s,
        u"%' AND $a LIKE '"_s,
        u"%' AND ~1 LIKE '"_s,
        u"%' AND 1 | 2 LIKE '"_s,
        u"%' AND x'41' LIKE '"_s,
        u"%' AND count(count(DocumentID)) LIKE '"_s,
        u"%' AND substr() LIKE '"_s,
        u"%' AND (((((( LIKE '"_s,
        u"%' )))))) LIKE '"_s,
        u"%' AND CASE LIKE '"_s,
        u"%' AND DocumentID. LIKE '"_s,
        u"%' AND .5.5 LIKE '"_s,
        u"%' AND 9999999999999999999999 . LIKE '"_s,
        u"%' AND SELECT LIKE '"_s,
        u"%' WHERE 1 = 1 AND '"_s,
        u"%' AND () AND '"_s,
        QString(u"nul"_s + QChar(0) + u"nul"_s),
        QString(u"%' AND "_s + QChar(0) + u" LIKE '"_s),
    };
    for (const QString& keyword : keywords)
        EXPECT_GT(search(keyword), 0) << keyword.toStdString();
}

TEST_F(HostileKeyword, ThatEndsItsTextIsToldSo)
{
    const auto descriptionOf = [this](const QString& statement) {
        try {
            m_database.session().read(statement);
        } catch (const Error& error) {
            return error.description();
        }
        return QString();
    };
    for (const QString& keyword : {u"o'clock"_s, u"o'"_s, u"'n'"_s, u"'"_s, u"'90s"_s}) {
        EXPECT_EQ(descriptionOf(searchFor(keyword)),
                  u"The statement cannot be read: an apostrophe in a text ends it too early. In a search, "
                  "type _ in its place."_s)
            << keyword.toStdString();
    }
    EXPECT_EQ(descriptionOf(u"SELECT * FROM Event WHERE EventName LIKE \"the \"A\" fire\""_s),
              u"The statement cannot be read: a quotation mark in a text ends it too early."_s);
    EXPECT_EQ(search(u"Report \"A"_s), 0);
}

TEST_F(HostileKeyword, IsATextWhereItStaysInItsQuotes)
{
    for (const QString& keyword :
         {u"; DROP TABLE Document"_s, u"-- comment"_s, u"/* comment */"_s, u"\"quoted\""_s, u"#9/11"_s,
          u"\\"_s, u"[x]"_s, u"((("_s, u"?1"_s, u"''"_s, u"\U0001F525"_s, u"\t\r\n"_s, QString(QChar(0xD800)),
          QString(QChar(0xFFFF)), QString(40000, u'a')}) {
        EXPECT_EQ(search(keyword), -1) << keyword.left(40).toStdString();
    }
    EXPECT_EQ(search(u"50%"_s), 0);
    EXPECT_EQ(search(u"_"_s), 0);
    EXPECT_EQ(search(QString(40000, u'%')), 0);
}

TEST_F(HostileKeyword, MayBeAMegabyteLong)
{
    const int size = 1024 * 1024;
    for (const QChar c : {u'a', u'%', u'\'', u'\"'})
        EXPECT_NE(search(QString(size, c)), 0) << c.toLatin1();
    EXPECT_GT(search(u"' AND "_s + QString(size, u'(')), 0);
}

TEST_F(HostileKeyword, MayRepeatWhatTheLanguageBoundsByDepth)
{
    const int size = 128 * 1024;
    const auto repeated = [](const QString& text) { return text.repeated(size / text.size()); };
    EXPECT_GT(search(u"'"_s + repeated(u")"_s)), 0);
    EXPECT_GT(search(u"' AND "_s + repeated(u"min("_s)), 0);
    EXPECT_GT(search(u"' AND "_s + repeated(u"("_s) + repeated(u")"_s)), 0);
    EXPECT_GT(search(u"' AND 1 IN "_s + repeated(u"(SELECT 1 WHERE 1 IN "_s)), 0);
    EXPECT_GT(search(u"' AND 1"_s + repeated(u" AND 1"_s) + u" AND '"_s), 0);
    EXPECT_GT(search(u"' || "_s + repeated(u"DocumentName || "_s) + u"'"_s), 0);
    EXPECT_GT(search(u"' AND "_s + repeated(u"NOT "_s) + u"'"_s), 0);
    EXPECT_GT(search(u"' AND "_s + repeated(u"- "_s) + u"1 AND '"_s), 0);
    EXPECT_GT(search(u"' AND CASE"_s + repeated(u" WHEN 1 THEN CASE"_s) + u" AND '"_s), 0);
}

TEST_F(HostileKeyword, MayNestOnlySoDeep)
{
    const auto nested = [](int depth) {
        return u"' AND "_s + QString(u"("_s).repeated(depth) + u"1 = 0"_s + QString(u")"_s).repeated(depth) +
               u" AND '"_s;
    };
    EXPECT_EQ(search(nested(20)), -1);
    EXPECT_GT(search(nested(60)), 0);
}

TEST_F(HostileKeyword, ThatWouldRunForHoursIsStopped)
{
    DatabaseSession& session = m_database.session();
    session.setPatience(std::chrono::milliseconds(200));
    const QString join =
        u"Document, Event, Organization, DocumentTypes, EventVenues, DocumentEvents, OrganizationEvents, "
        "DocumentVenues, EventFunctions, OrganizationVenues"_s;
    const QString sum =
        u"Document.DocumentID + Event.EventID + Organization.OrganizationID + DocumentTypes.DocumentTypeID "
        "+ EventVenues.VenueID + DocumentEvents.EventID + OrganizationEvents.EventID + "
        "DocumentVenues.VenueID + EventFunctions.FunctionID + OrganizationVenues.VenueID"_s;
    for (const QString& keyword :
         {u"' AND (SELECT count(*) FROM %1) AND '"_s.arg(join),
          u"' AND (SELECT max(%2) FROM %1 WHERE EventName LIKE '%') LIKE '"_s.arg(join, sum),
          u"' AND EXISTS (SELECT DISTINCT EventName FROM %1 WHERE %2 = -1) AND '"_s.arg(join, sum)}) {
        EXPECT_EQ(search(keyword), interrupted) << keyword.toStdString();
    }
    // the list itself, row by row: after the failure the record set stays where it ended
    RecordSet endless = session.read(u"SELECT count(*) FROM "_s + join);
    EXPECT_EQ(errorNumberOf([&] { endless.next(); }), interrupted);
    EXPECT_EQ(errorNumberOf([&] { endless.next(); }), interrupted);

    // each row has its own time
    session.setPatience(std::chrono::milliseconds(30000));
    EXPECT_EQ(search(u"fire"_s), 0);
}

TEST_F(HostileKeyword, CannotMakeAReadingStatementWrite)
{
    DatabaseSession& session = m_database.session();
    for (const QString& statement : {u"DELETE FROM Document"_s,
                                     u"UPDATE Document SET dStatus = 'DELETED'"_s,
                                     u"INSERT INTO Venue VALUES (7, 'x')"_s,
                                     u"DROP TABLE Venue"_s,
                                     u"PRAGMA user_version = 7"_s,
                                     u"ATTACH 'x' AS y"_s,
                                     u"VACUUM"_s,
                                     u"BEGIN"_s,
                                     u"COMMIT"_s,
                                     u"REPLACE INTO Venue VALUES (2, 'x')"_s,
                                     u"CREATE TABLE x (y)"_s,
                                     u"EXPLAIN SELECT 1"_s,
                                     u"VALUES (1)"_s,
                                     u"WITH x AS (SELECT 1) SELECT * FROM x"_s,
                                     u""_s,
                                     u" "_s,
                                     u";"_s,
                                     u"("_s,
                                     u"SELECT"_s,
                                     u"SELECT ,"_s,
                                     u"SELECT DISTINCT"_s,
                                     u"SELECT FROM Venue"_s,
                                     u"SELECT * FROM"_s,
                                     u"SELECT * FROM Venue,"_s,
                                     u"SELECT * FROM Venue Function"_s,
                                     u"SELECT * FROM (SELECT 1)"_s,
                                     u"FROM Venue SELECT *"_s,
                                     u"SELECT * WHERE 1 FROM Venue"_s,
                                     u"SELECT * FROM Venue WHERE"_s,
                                     u"SELECT * FROM Venue; SELECT 1"_s,
                                     u"SELECT * FROM Venue WHERE 1 WHERE 1"_s,
                                     u"SELECT * FROM main.Venue"_s}) {
        EXPECT_GT(errorNumberOf([&] { session.read(statement).next(); }), 0) << statement.toStdString();
        EXPECT_GT(errorNumberOf([&] { session.edit(statement); }), 0) << statement.toStdString();
    }
}

TEST_F(HostileKeyword, CannotMakeAWritingStatementDoMore)
{
    DatabaseSession& session = m_database.session();
    for (const QString& statement : {u"DELETE FROM"_s,
                                     u"DELETE FROM Nowhere"_s,
                                     u"DELETE FROM sqlite_master"_s,
                                     u"DELETE FROM Q_Document"_s,
                                     u"DELETE FROM Document WHERE"_s,
                                     u"DELETE FROM Document WHERE DocumentID = "_s,
                                     u"DELETE Document"_s,
                                     u"DELETE FROM Document; DELETE FROM Event"_s,
                                     u"DELETE FROM Document WHERE DocumentID = 2 RETURNING 1"_s,
                                     u"UPDATE"_s,
                                     u"UPDATE Document"_s,
                                     u"UPDATE Document SET"_s,
                                     u"UPDATE Document SET Nowhere = 1"_s,
                                     u"UPDATE OR REPLACE Document SET DocumentID = 2"_s,
                                     u"UPDATE Document SET DocumentID = 2 WHERE DocumentID = 3"_s,
                                     u"UPDATE sqlite_master SET sql = ''"_s,
                                     u"UPDATE Document SET Notes = load_extension('x')"_s,
                                     u"UPDATE Document SET Notes = randomblob(1000000)"_s,
                                     u"INSERT INTO Venue VALUES (7, 'x')"_s,
                                     u"DROP TABLE Venue"_s,
                                     u"CREATE TABLE x (y)"_s,
                                     u"PRAGMA user_version = 7"_s,
                                     u"BEGIN"_s,
                                     u"VACUUM INTO 'x'"_s,
                                     u"ANALYZE"_s,
                                     u""_s,
                                     u"SELECT 1"_s}) {
        EXPECT_GT(errorNumberOf([&] { session.execute(statement); }), 0) << statement.toStdString();
    }
}

} // namespace

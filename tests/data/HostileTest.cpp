// SPDX-License-Identifier: GPL-3.0-or-later

#include "support/CaseFile.h"
#include "support/TestDatabase.h"
#include "views/StandardQueries.h"

namespace {

constexpr int interrupted = 9;

/// What a user may type into the search box; it goes into the statement as typed.
class HostileKeyword : public testing::Test
{
protected:
    HostileKeyword()
    {
        m_database.runFile("data/rows/Statements.sql");
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

    /// The number of the error that a search ends with; 0 if it finds rows, -1 if it finds none.
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
    QStringList keywords{u"nul%1nul"_s.arg(QChar(0)), u"%' AND %1 LIKE '"_s.arg(QChar(0)),
                         u"%' AND ~1 LIKE '"_s};
    keywords << linesIn("data/cases/BreakingKeywords.txt");
    keywords.replaceInStrings(u"OTHER"_s, m_database.folder() + u"/other.sqlite"_s);
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

TEST_F(HostileKeyword, MayBeLongAndRepeatWhatTheLanguageBoundsByDepth)
{
    const int megabyte = 1024 * 1024;
    for (const QChar c : {u'a', u'%', u'\'', u'\"'})
        EXPECT_NE(search(QString(megabyte, c)), 0) << c.toLatin1();
    EXPECT_GT(search(u"' AND "_s + QString(megabyte, u'(')), 0);

    const auto repeated = [](const QString& text) {
        return text.repeated(qsizetype{128} * 1024 / text.size());
    };
    for (const QString& keyword :
         {u"'"_s + repeated(u")"_s), u"' AND "_s + repeated(u"min("_s),
          u"' AND "_s + repeated(u"("_s) + repeated(u")"_s),
          u"' AND 1 IN "_s + repeated(u"(SELECT 1 WHERE 1 IN "_s),
          u"' AND 1"_s + repeated(u" AND 1"_s) + u" AND '"_s,
          u"' || "_s + repeated(u"DocumentName || "_s) + u"'"_s, u"' AND "_s + repeated(u"NOT "_s) + u"'"_s,
          u"' AND "_s + repeated(u"- "_s) + u"1 AND '"_s,
          u"' AND CASE"_s + repeated(u" WHEN 1 THEN CASE"_s) + u" AND '"_s}) {
        EXPECT_GT(search(keyword), 0) << keyword.left(40).toStdString();
    }
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

TEST_F(HostileKeyword, CannotMakeAReadingStatementWriteNorAWritingOneDoMore)
{
    DatabaseSession& session = m_database.session();
    // "read" or "execute" is the call that refuses the statement, "either" means that both do
    for (const QString& line : linesIn("data/cases/RefusedStatements.txt")) {
        const QString use = line.section(u' ', 0, 0);
        const QString statement = line.section(u' ', 1);
        SCOPED_TRACE(line.toStdString());
        if (use != u"execute") {
            EXPECT_GT(errorNumberOf([&] { session.read(statement).next(); }), 0);
            EXPECT_GT(errorNumberOf([&] { session.edit(statement); }), 0);
        }
        if (use != u"read") {
            EXPECT_GT(errorNumberOf([&] { session.execute(statement); }), 0);
        }
    }
}

} // namespace

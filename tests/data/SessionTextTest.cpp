// SPDX-License-Identifier: GPL-3.0-or-later

#include "support/TestDatabase.h"

#include <gtest/gtest.h>

#include <vector>

using namespace Qt::StringLiterals;

namespace {

/// The rules for text as a statement meets them.
class SessionTexts : public testing::Test
{
protected:
    void addDocument(int id, const QString& name, const QString& author = {})
    {
        EditableRecordSet records =
            m_database.session().edit(u"SELECT * FROM Document WHERE DocumentID = 0"_s);
        records.addNew();
        records.set(u"DocumentID"_s, qint64{id});
        records.set(u"DocumentName"_s, name);
        if (!author.isNull()) records.set(u"Author"_s, author);
        records.update();
    }

    QString found(const QString& condition)
    {
        return firstColumnOf(m_database.session(), u"SELECT DocumentID FROM Document WHERE "_s + condition +
                                                       u" ORDER BY DocumentID"_s);
    }

    TestDatabase m_database;
};

TEST_F(SessionTexts, EveryComparisonIgnoresCase)
{
    addDocument(2, u"École"_s);
    addDocument(3, u"ecole"_s);
    addDocument(4, u"ЖУРНАЛ"_s);
    addDocument(5, u"οδός"_s);
    addDocument(6, u"\u212A9"_s);
    const std::vector<std::pair<QString, QString>> cases{
        {u"DocumentName = 'ÉCOLE'"_s, u"2"_s},
        {u"'éCOLE' = DocumentName"_s, u"2"_s},
        {u"DocumentName <> 'école'"_s, u"3 4 5 6"_s},
        {u"DocumentName = \"ECOLE\""_s, u"3"_s},
        {u"DocumentName IN ('журнал', 'ΟΔΌΣ')"_s, u"4 5"_s},
        {u"DocumentName NOT IN ('журнал', 'ΟΔΌΣ')"_s, u"2 3 6"_s},
        {u"DocumentName BETWEEN 'ECOLE' AND 'ÉCOLE'"_s, u"2 3"_s},
        {u"DocumentName > 'ECOLE' AND DocumentName < 'f'"_s, u"2"_s},
        {u"DocumentName = 'K9'"_s, u"6"_s},
        {u"DocumentName LIKE '%журн%'"_s, u"4"_s},
        {u"DocumentName LIKE 'οΔΌς'"_s, u"5"_s},
        {u"DocumentName NOT LIKE '%COLE'"_s, u"4 5 6"_s},
        {u"DocumentName LIKE '_cole'"_s, u"2 3"_s},
        {u"DocumentName LIKE 'EC%'"_s, u"3"_s},
        {u"DocumentName LIKE 'k9'"_s, u"6"_s}, // the sign for kelvins is a K
        {u"(DocumentName) = ('ÉCOLE')"_s, u"2"_s},
        {u"DocumentName IN (SELECT DocumentName FROM Document WHERE DocumentName LIKE 'É%')"_s, u"2"_s},
    };
    for (const auto& [condition, rows] : cases)
        EXPECT_EQ(found(condition), rows) << condition.toStdString();
}

TEST_F(SessionTexts, SortsAccentedLettersAmongTheirOwn)
{
    int id = 1;
    for (const QString& name :
         {u"Zoo"_s, u"étude"_s, u"Eagle"_s, u"ÉTUDE b"_s, u"apple"_s, u"Etude"_s, u"жук"_s}) {
        addDocument(++id, name);
    }
    EXPECT_EQ(
        firstColumnOf(m_database.session(), u"SELECT DocumentName FROM Document ORDER BY DocumentName"_s),
        u"apple Eagle Etude étude ÉTUDE b Zoo жук"_s);
    EXPECT_EQ(firstColumnOf(m_database.session(),
                            u"SELECT DocumentName FROM Q_Document ORDER BY DocumentName DESC"_s),
              u"жук Zoo ÉTUDE b étude Etude Eagle apple"_s);
}

TEST_F(SessionTexts, FoldsWhatDiffersByCaseAlone)
{
    addDocument(2, u"x"_s, u"École"_s);
    addDocument(3, u"y"_s, u"éCOLE"_s);
    addDocument(4, u"z"_s, u"ecole"_s);
    DatabaseSession& session = m_database.session();
    EXPECT_EQ(rowsOf(session, u"SELECT DISTINCT Author FROM Document"_s).count(u'\n'), 1);
    EXPECT_EQ(rowsOf(session, u"SELECT DISTINCT Author FROM Q_Document"_s).count(u'\n'), 1);
    EXPECT_EQ(firstColumnOf(session,
                            u"SELECT count(DocumentID) as n FROM Document GROUP BY Author ORDER BY Author"_s),
              u"1 2"_s);
}

TEST_F(SessionTexts, MissingAndEmptyTextsAreTwoThings)
{
    addDocument(2, u"a"_s);
    addDocument(3, u"a"_s, u""_s);
    addDocument(4, u"a"_s, u"A"_s);
    addDocument(12, u"b"_s);
    const std::vector<std::pair<QString, QString>> cases{
        {u"Author LIKE '%'"_s, u"3 4"_s},
        {u"Author NOT LIKE 'x'"_s, u"3 4"_s},
        {u"Author LIKE ''"_s, u"3"_s},
        {u"Author = ''"_s, u"3"_s},
        {u"Author <> ''"_s, u"4"_s},
        {u"Author IS NULL"_s, u"2 12"_s},
        {u"Author IS NOT NULL"_s, u"3 4"_s},
        {u"DocumentName LIKE NULL"_s, u""_s},
        {u"DocumentName LIKE Author"_s, u"4"_s}, // a pattern that changes from row to row
        {u"DocumentID LIKE '%2'"_s, u"2 12"_s},  // numbers match as they are written
        {u"DocumentID LIKE '2'"_s, u"2"_s},
    };
    for (const auto& [condition, rows] : cases)
        EXPECT_EQ(found(condition), rows) << condition.toStdString();
}

TEST_F(SessionTexts, LongTextsAreComparedWhole)
{
    const QString longText(300000, u'é');
    addDocument(2, longText + u'X');
    addDocument(3, longText + u'Y');
    addDocument(4, QString(50000, u'A'));
    addDocument(5, QString(50001, u'A'));
    EXPECT_EQ(found(u"DocumentName = '"_s + longText + u"x'"_s), u"2"_s);
    EXPECT_EQ(found(u"DocumentName LIKE '%ÉÉy'"_s), u"3"_s);
    EXPECT_EQ(
        firstColumnOf(m_database.session(), u"SELECT DocumentID FROM Document ORDER BY DocumentName DESC"_s),
        u"3 2 5 4"_s);
    EXPECT_EQ(found(u"lower(DocumentName) IS NULL"_s), u"2 3 5"_s) << "no name of a city is so long";
    // a pattern has a bound of its own, far above any title
    EXPECT_NE(errorNumberOf([&] { found(u"DocumentName LIKE '"_s + longText + u"'"_s); }), 0);
}

TEST_F(SessionTexts, ReadingPastAnErrorIsAnError)
{
    addDocument(2, u"a"_s);
    addDocument(3, QString(60000, u'z'));
    RecordSet rows =
        m_database.session().read(u"SELECT DocumentID FROM Document WHERE 'A' LIKE DocumentName"_s);
    EXPECT_TRUE(rows.next());
    EXPECT_NE(errorNumberOf([&] { rows.next(); }), 0);
    EXPECT_NE(errorNumberOf([&] { rows.next(); }), 0);
}

TEST_F(SessionTexts, TextThatIsNoTextIsStillFoundAndSorted)
{
    m_database.run(
        "INSERT INTO Document (DocumentID, DocumentName) VALUES (2, CAST(x'C3' AS TEXT)), (3, CAST(x'FF41' "
        "AS TEXT)), (4, 'plain'), (5, CAST(x'C3' AS TEXT)), (6, CAST(x'E28441' AS TEXT))");
    DatabaseSession& session = m_database.session();
    EXPECT_EQ(found(u"DocumentName LIKE '%A'"_s), u"3 6"_s);
    EXPECT_EQ(rowsOf(session, u"SELECT DISTINCT DocumentName FROM Document"_s).count(u'\n'), 3);
    EXPECT_EQ(firstColumnOf(session, u"SELECT DocumentID FROM Document ORDER BY DocumentName, DocumentID"_s),
              u"4 2 5 6 3"_s);
}

TEST_F(SessionTexts, NoTextBetweenQuotesIsEverAName)
{
    addDocument(2, u"Author"_s, u"DocumentName"_s);
    EXPECT_EQ(found(u"DocumentName = \"Author\""_s), u"2"_s);
    EXPECT_EQ(found(u"\"Author\" = \"Author\""_s), u"2"_s);
    EXPECT_EQ(firstColumnOf(m_database.session(), u"SELECT \"Author\" as x FROM Document"_s), u"Author"_s);
    EXPECT_EQ(found(u"DocumentName = 'it''s' OR Author = \"Document\"\"Name\""_s), u""_s);
}

} // namespace

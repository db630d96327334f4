// SPDX-License-Identifier: GPL-3.0-or-later

#include "data/StatementTranslator.h"
#include "support/TestDatabase.h"
#include "views/StandardQueries.h"

#include <QSet>
#include <QStringList>

#include <SQLiteCpp/SQLiteCpp.h>
#include <gtest/gtest.h>

#include <vector>

using namespace Qt::StringLiterals;

namespace {

/// What SQLite is asked in the end, and what it returns.
class StoredQueries : public testing::Test
{
protected:
    StoredQueries() { m_database.runFile("data/rows/Statements.sql"); }

    QString translated(const QString& statement)
    {
        return StatementTranslator(m_database.session().catalog()).select(statement).sql;
    }

    /// The rows of a statement in plain SQLite, which may use the program's rules for text.
    QStringList engineRows(const QString& statement)
    {
        SQLite::Database database(m_database.fileName().toStdString());
        addTextRules(database.getHandle());
        SQLite::Statement rows(database, statement.toStdString());
        QStringList lines;
        while (rows.executeStep()) {
            QStringList values;
            for (int i = 0; i < rows.getColumnCount(); ++i) {
                values << (rows.isColumnNull(i) ? u"NULL"_s : QString::fromUtf8(rows.getColumn(i).getText()));
            }
            lines << values.join(u'|');
        }
        return lines;
    }

    /// The tables that SQLite opens for a statement, by name, and `DISTINCT` where it folds rows.
    QString planOf(const QString& statement)
    {
        QStringList used;
        for (const QString& line : engineRows(u"EXPLAIN QUERY PLAN "_s + translated(statement))) {
            const QStringList words = line.section(u'|', 3).split(u' ');
            if (words.at(0) == u"SCAN" || words.at(0) == u"SEARCH") used << words.at(1);
            if (line.endsWith(u"FOR DISTINCT")) used << u"DISTINCT"_s;
        }
        used.removeDuplicates();
        used.sort();
        return used.join(u' ');
    }

    static QString listOf(const SharedQuery& standard, const QString& condition = {})
    {
        SQLObject query = *standard;
        query.WhereClause += condition;
        return query.sqlStr();
    }

    TestDatabase m_database;
    StandardQueries m_standard;
};

QSet<QString> setOf(const QStringList& lines)
{
    return {lines.begin(), lines.end()};
}

TEST_F(StoredQueries, OnlyTheTablesThatAStatementNeedsAreOpened)
{
    const QString documents = u"Document FileTypes Organization"_s;
    const QString organizations =
        u"CityLocations Function KnownCity Organization OrganizationSubTypes OrganizationTypes"_s;
    const std::vector<std::pair<QString, QString>> cases{
        {listOf(m_standard.documents), documents},
        {listOf(m_standard.documents,
                u" AND ((DocumentName LIKE '%a%') OR (DocumentDescription LIKE '%a%'))"_s),
         documents},
        {listOf(m_standard.documents, u" AND FileTypeID IN (2)  AND Document.OrganizationID IN (2,3) "_s),
         documents},
        {listOf(m_standard.documents, u" AND VenueID IN (2) "_s),
         u"DISTINCT Document DocumentVenues FileTypes Organization"_s},
        {listOf(m_standard.documents, u" AND DocumentTypeID IN (2) "_s),
         u"DISTINCT Document DocumentTypes FileTypes Organization"_s},
        {u"SELECT DocumentTypeID, DocumentTypeName, count(Document.DocumentID) as Docs FROM Q_Document "
         "WHERE dStatus <> 'DELETED' AND Document.DocumentID > 1 AND DocumentTypeID > 0 GROUP BY "
         "DocumentTypeID, DocumentTypeName"_s,
         u"Document DocumentType DocumentTypes"_s},
        {listOf(m_standard.events), u"Event"_s},
        {listOf(m_standard.events,
                u" AND ((((StartDate > #09/11/2001#) OR (StartDate = #09/11/2001# AND StartTime >= "
                "#10:00#)) AND ((StartDate < #09/12/2001#))))"_s),
         u"Event"_s},
        {listOf(m_standard.events, u" AND EventFunctions.FunctionID IN (2) "_s),
         u"DISTINCT Event EventFunctions"_s},
        {listOf(m_standard.events, u" AND DocumentID = 2"_s), u"DISTINCT DocumentEvents Event"_s},
        {listOf(m_standard.events, u" AND Organization.OrganizationID = 2"_s),
         u"DISTINCT Event Organization OrganizationEvents"_s},
        {listOf(m_standard.organizations), organizations},
        {u"SELECT DISTINCT OrganizationName, Organization.OrganizationID FROM Q_Organization WHERE City LIKE 'a'"_s,
         u"Organization"_s},
        {u"SELECT DISTINCT LocationID, City FROM Q_Organization WHERE LocationID > 0"_s,
         u"CityLocations DISTINCT KnownCity Organization"_s},
    };
    for (const auto& [statement, plan] : cases)
        EXPECT_EQ(planOf(statement), plan) << translated(statement).toStdString();
}

TEST_F(StoredQueries, AnyTwoColumnsAreThoseOfTheViewItself)
{
    for (const QString& query : {u"Q_Document"_s, u"Q_Event"_s, u"Q_Organization"_s}) {
        const auto& columns = m_database.session().catalog().findStoredQuery(query)->columns;
        for (const auto& first : columns) {
            for (const auto& second : columns) {
                const QString pair = u"SELECT %1, %2 FROM %3"_s.arg(first.name, second.name, query);
                EXPECT_EQ(setOf(engineRows(translated(pair))), setOf(engineRows(pair))) << pair.toStdString();
                const QString where = u"SELECT %1 FROM %3 WHERE %2 > 1"_s.arg(first.name, second.name, query);
                EXPECT_EQ(setOf(engineRows(translated(where))), setOf(engineRows(where)))
                    << where.toStdString();
            }
        }
    }
}

TEST_F(StoredQueries, AViewOfAnotherShapeIsAnErrorAtOpening)
{
    m_database.session().close();
    for (const char* shape : {
             "CREATE VIEW Q_Event AS SELECT 1 AS EventID UNION SELECT 2",
             "CREATE VIEW Q_Event AS SELECT EventID FROM Event",
             // NOLINTNEXTLINE(bugprone-suspicious-missing-comma): one statement in two lines
             "CREATE VIEW Q_Event AS SELECT Event.EventID AS EventID FROM Event LEFT JOIN EventVenues USING "
             "(EventID)",
             "CREATE VIEW Q_Event AS SELECT e.EventID AS EventID FROM Event AS e",
             "CREATE VIEW Q_Event (a, b) AS SELECT 1, 2",
             "CREATE VIEW Q_Event AS SELECT EventID AS EventID FROM Event -- all",
         }) {
        m_database.run((std::string("DROP VIEW Q_Event; ") + shape).c_str());
        EXPECT_EQ(errorNumberOf([this] { m_database.session(); }), 1) << shape;
    }
}

} // namespace

// SPDX-License-Identifier: GPL-3.0-or-later

#include "data/StatementTranslator.h"
#include "support/CaseFile.h"
#include "support/TestDatabase.h"
#include "views/StandardQueries.h"

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

    /// The tables that SQLite opens for a statement, by name, and `DISTINCT` if it folds rows.
    QString planOf(const QString& statement)
    {
        QStringList used;
        for (const QString& line : m_database.planOf(statement).split(u'\n')) {
            const QStringList words = line.split(u' ');
            if (words.at(0) == u"SCAN" || words.at(0) == u"SEARCH") used << words.at(1);
            if (line.endsWith(u"FOR DISTINCT")) used << u"DISTINCT"_s;
        }
        used.removeDuplicates();
        used.sort();
        return used.join(u' ');
    }

    static QString listOf(const SharedQuery& standard, const QString& condition)
    {
        SQLObject query = *standard;
        query.WhereClause += u' ' + condition;
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
    const QStringList lines = linesIn("data/cases/Plans.txt");
    ASSERT_GT(lines.size(), 20);
    for (qsizetype at = 0; at + 1 < lines.size(); at += 2) {
        // a condition belongs to the list of the kind that it begins with
        const QString kind = lines[at].section(u' ', 0, 0);
        const QString condition = lines[at].section(u' ', 1);
        const QString statement = kind == u"Documents"       ? listOf(m_standard.documents, condition)
                                  : kind == u"Events"        ? listOf(m_standard.events, condition)
                                  : kind == u"Organizations" ? listOf(m_standard.organizations, condition)
                                                             : lines[at];
        EXPECT_EQ(planOf(statement), lines[at + 1]) << translated(statement).toStdString();
    }
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

} // namespace

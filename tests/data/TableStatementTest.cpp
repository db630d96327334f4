// SPDX-License-Identifier: GPL-3.0-or-later

#include "support/TestDatabase.h"

#include <gtest/gtest.h>

#include <vector>

using namespace Qt::StringLiterals;

namespace {

struct Case
{
    QString statement;
    QString rows;
};

/// What holds of every statement over the tables themselves.
class TableStatement : public testing::Test
{
protected:
    TableStatement() { m_database.runFile("data/rows/Statements.sql"); }

    void expectRows(const std::vector<Case>& cases)
    {
        for (const Case& entry : cases) {
            EXPECT_EQ(rowsOf(m_database.session(), entry.statement), entry.rows)
                << entry.statement.toStdString();
        }
    }

    TestDatabase m_database;
};

TEST_F(TableStatement, ANameIsLookedUpBetweenDoubleQuotes)
{
    const auto documents = [](const QString& name) {
        return u"SELECT * FROM Document WHERE DocumentName LIKE \"%1\" AND dStatus = 'ACTIVE'"_s.arg(name);
    };
    const auto found = [this](const QString& statement) {
        return firstColumnOf(m_database.session(), statement);
    };
    EXPECT_EQ(found(documents(u"FIRE PLAN"_s)), u"3"_s);
    EXPECT_EQ(found(documents(u"fire"_s)), u""_s);
    EXPECT_EQ(found(documents(u"Report %A% on 50% of fires"_s)), u"7"_s);
    EXPECT_EQ(found(documents(u"Apple orchard fire plan"_s)), u""_s); // deleted
    EXPECT_EQ(found(documents(u"étude des incendies"_s)), u""_s);     // not active
    EXPECT_EQ(found(documents(u"DocumentName"_s)), u""_s);            // a text, not the column
    EXPECT_EQ(found(documents(u"zoo's plan"_s)), u""_s);
    EXPECT_EQ(found(u"SELECT * FROM Event WHERE EventName LIKE \"élan\" AND Status = 'ACTIVE'"_s), u"7"_s);
    EXPECT_EQ(
        found(u"SELECT * FROM Organization WHERE OrganizationName LIKE \"DALLAS%\" AND Status = 'ACTIVE'"_s),
        u"3"_s);
    EXPECT_EQ(errorNumberOf([&] { found(documents(u"say \"fire\" plan"_s)); }), 1);
}

TEST_F(TableStatement, NamesAreFoundInAnyLetterCase)
{
    expectRows({
        {u"select FILETYPENAME from filetypes where filetypeid = 2 order by FileTypeName desc"_s, u"PDF"_s},
        {u"SELECT eventid FROM q_event WHERE event.STATUS <> 'deleted' AND eventfunctions.functionID = 4"_s,
         u"3"_s},
    });
}

TEST_F(TableStatement, AfterTheLastRowThereIsNone)
{
    RecordSet rows = m_database.session().read(u"SELECT * FROM JurisdictionTypes"_s);
    EXPECT_TRUE(rows.next());
    EXPECT_TRUE(rows.next());
    EXPECT_FALSE(rows.next());
    EXPECT_FALSE(rows.next());
}

TEST_F(TableStatement, WhatCannotBeReadIsAnErrorThatNamesIt)
{
    const auto description = [this](const QString& statement) {
        try {
            rowsOf(m_database.session(), statement);
        } catch (const Error& error) {
            return error.description();
        }
        return QString();
    };
    EXPECT_TRUE(description(u"SELECT * FROM Nowhere"_s).contains(u"Nowhere"));
    EXPECT_TRUE(description(u"SELECT Colour FROM Document"_s).contains(u"Colour"));
    EXPECT_TRUE(description(u"SELECT FunctionID FROM Q_Document"_s).contains(u"FunctionID"));
    EXPECT_TRUE(description(u"SELECT DocumentID FROM Document, DocumentEvents"_s).contains(u"DocumentID"));
    EXPECT_TRUE(description(u"SELECT * FROM Document WHERE DocumentID = "_s).contains(u"incomplete"));
}

} // namespace

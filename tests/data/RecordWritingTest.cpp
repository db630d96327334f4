// SPDX-License-Identifier: GPL-3.0-or-later

#include "data/HeldRows.h"
#include "journal/RecordParts.h"
#include "support/TestDatabase.h"

namespace {

constexpr int notAllowed = 23;

/// The tables whose rows belong to records.
QStringList tablesOfRecords()
{
    QStringList tables;
    for (const RecordKind kind : {RecordKind::Document, RecordKind::Event, RecordKind::Organization}) {
        tables << recordParts(kind).names.record;
        for (const PartTable& part : recordParts(kind).parts)
            tables << part.table;
    }
    return tables;
}

/// Each way to write to a table, as SQLite takes it.
QStringList writesTo(const QString& table, const QString& column)
{
    return {u"INSERT INTO %1 (%2) VALUES (7)"_s.arg(table, column),
            u"REPLACE INTO %1 (%2) VALUES (8)"_s.arg(table, column),
            u"UPDATE %1 SET %2 = 9"_s.arg(table, column), u"DELETE FROM %1"_s.arg(table),
            u"DELETE FROM %1 WHERE %2 = 9"_s.arg(table, column)};
}

class RecordWritings : public testing::Test
{
protected:
    int numberOf(const QString& statement)
    {
        return errorNumberOf([&] { HeldRows(m_database.session()).write(statement); });
    }

    TestDatabase m_database;
};

TEST_F(RecordWritings, AloneLetTheTablesOfRecordsBeChanged)
{
    const QStringList ofRecords = tablesOfRecords();
    EXPECT_EQ(ofRecords.size(), 14);
    const QStringList tables =
        m_database.ask("SELECT name FROM sqlite_master WHERE type = 'table' AND name <> 'Journal'")
            .split(u'\n');
    for (const QString& table : tables) {
        SCOPED_TRACE(table.toStdString());
        const QString column =
            m_database.ask(u"SELECT name FROM pragma_table_info('%1') LIMIT 1"_s.arg(table));
        const int without = ofRecords.contains(table) ? notAllowed : 0;
        for (const QString& statement : writesTo(table, column) + writesTo(table.toLower(), column)) {
            EXPECT_EQ(numberOf(statement), without) << statement.toStdString();
            {
                const RecordWriting writing(m_database.session());
                m_database.run(u"DELETE FROM %1"_s.arg(table));
                EXPECT_EQ(numberOf(statement), 0) << statement.toStdString();
            }
            m_database.run(u"DELETE FROM %1"_s.arg(table));
        }
    }
}

TEST_F(RecordWritings, LetRowsBeAddedToTheJournalAndNothingElse)
{
    const QString add = u"INSERT INTO Journal (Step, Moment, What, Kind, Identifier, UndoStep, RedoStep) "
                        "VALUES (1, '', 'add', 'Event', 2, 1, 0)"_s;
    EXPECT_EQ(numberOf(add), notAllowed);
    {
        const RecordWriting writing(m_database.session());
        EXPECT_EQ(numberOf(add), 0);
        for (const QString& statement :
             {u"UPDATE Journal SET Step = 2"_s, u"UPDATE journal SET Title = ''"_s, u"DELETE FROM Journal"_s,
              u"DELETE FROM JOURNAL WHERE Number = 1"_s}) {
            EXPECT_EQ(numberOf(statement), notAllowed) << statement.toStdString();
        }
    }
    EXPECT_EQ(numberOf(add), notAllowed);
    EXPECT_EQ(m_database.ask("SELECT Number, Step, Kind FROM Journal"), u"1|1|Event"_s);
}

} // namespace

// SPDX-License-Identifier: GPL-3.0-or-later

#include "data/StatementTranslator.h"
#include "support/TestDatabase.h"

#include <QDir>
#include <QStringList>

#include <gtest/gtest.h>

#include <chrono>
#include <random>

using namespace Qt::StringLiterals;

namespace {

/// Statements of the program, to be damaged.
const QStringList realStatements{
    u"SELECT DISTINCT Document.DocumentID, DocumentName, KeyDocument, FileTypeName, "
    "Document.OrganizationID FROM Q_Document WHERE dStatus <> 'DELETED' AND Document.DocumentID > 1 "
    "AND ((DocumentName LIKE '%fire%') OR (DocumentDescription LIKE '%fire%')) ORDER BY DocumentName "
    "ASC"_s,
    u"SELECT DISTINCT EventID, EventName, StartDate, StartTime FROM Q_Event WHERE Event.Status <> "
    "'DELETED' AND Event.EventID > 1 AND StartDate >= #9/11/2001# AND StartTime <= #23:59# AND VenueID "
    "IN (2,3) ORDER BY StartDate"_s,
    u"SELECT DISTINCT FunctionName, LocationID, Lat, Lon, City, State FROM Q_Organization WHERE "
    "Organization.Status <> 'DELETED' AND Organization.FunctionID = 2 AND Lat IS NOT NULL"_s,
    u"SELECT DocumentTypeID, DocumentTypeName, count(Document.DocumentID) as Docs FROM Q_Document WHERE "
    "DocumentID IN (SELECT DISTINCT Document.DocumentID FROM Document, DocumentEvents WHERE "
    "Document.DocumentID = DocumentEvents.DocumentID AND EventID = 2) AND DocumentTypeID > 0 GROUP BY "
    "DocumentTypeID, DocumentTypeName"_s,
    u"SELECT * FROM Organization WHERE OrganizationName LIKE \"Austin%\" AND Status = 'ACTIVE'"_s,
    u"UPDATE Document SET dStatus = 'DELETED' WHERE DocumentID = 2"_s,
    u"DELETE FROM DocumentTypes WHERE DocumentID = 2"_s,
};

const QStringList vocabulary =
    u"SELECT~DISTINCT~FROM~WHERE~GROUP BY~HAVING~ORDER BY~AND~OR~NOT~IN~LIKE~IS NULL~BETWEEN~EXISTS~as~"
    "ASC~CASE~WHEN~THEN~END~UNION~LIMIT~COLLATE~CAST~JOIN~PRAGMA~ATTACH~INSERT INTO~DELETE FROM~UPDATE~"
    "SET~Document~Q_Document~Q_Event~Event~Organization~Q_Organization~sqlite_master~DocumentID~"
    "Document.DocumentID~City~EventID~StartDate~StartTime~LocationID~rowid~nowhere~*~,~,~(~(~)~)~"
    "(SELECT~.~=~<>~<=~>~+~-~/~||~;~--~/*~'~\"~#~'x'~\"y\"~#1/1/2001#~#2/30/2001#~0~1~"
    "9999999999999999999~1.5~..1~count(~min(~max(~substr(~ifnull(~randomblob(~load_extension(~é~"
    "\U0001F525~\u200B~[a]~?~%~_"_s.split(u'~') +
    QStringList{QString(QChar(0)), QString(QChar(0xD800))};

class StatementMaker
{
public:
    explicit StatementMaker(unsigned seed) : m_random(seed) {}

    QString make()
    {
        if (below(3) == 0) return soup();
        QString statement = anyOf(realStatements);
        for (int change = 1 + below(2); change > 0; --change)
            damage(statement);
        return statement;
    }

private:
    int below(qsizetype limit) { return static_cast<int>(m_random() % static_cast<std::uint32_t>(limit)); }
    const QString& anyOf(const QStringList& texts) { return texts[below(texts.size())]; }

    QString soup()
    {
        QString statement = below(4) == 0 ? QString() : u"SELECT "_s;
        for (int words = below(25); words > 0; --words)
            statement += anyOf(vocabulary) + u' ';
        return statement;
    }

    void damage(QString& statement)
    {
        const qsizetype at = below(statement.size() + 1);
        const qsizetype length = std::min<qsizetype>(below(12), statement.size() - at);
        const QString& word = anyOf(vocabulary);
        const int kind = below(5);
        if (kind == 4) {
            const QString& other = anyOf(realStatements);
            statement = statement.left(at) + other.mid(below(other.size()));
            return;
        }
        // a part is left out, repeated, gets a word before it or becomes a word
        const QString texts[]{QString(), statement.mid(at, length) + statement.mid(at, length),
                              u' ' + word + u' ' + statement.mid(at, length), word};
        statement.replace(at, length, texts[kind]);
    }

    std::mt19937 m_random;
};

TEST(Fuzz, WhateverIsAskedOnlyAnErrorComesOutAndNothingChanges)
{
    TestDatabase database;
    database.runFile("data/rows/Statements.sql");
    DatabaseSession& session = database.session();
    session.setPatience(std::chrono::milliseconds(50));
    const QByteArray before = database.bytes();

    const bool longRun = qEnvironmentVariableIsSet("ORVIK_FUZZ_SECONDS");
    const unsigned seed = longRun ? std::random_device{}() : 1u;
    constexpr int shortRun = 15000;
    const auto end = std::chrono::steady_clock::now() +
                     std::chrono::seconds(qEnvironmentVariableIntValue("ORVIK_FUZZ_SECONDS"));
    StatementMaker maker(seed);
    int rounds = 0;
    int answered = 0;
    for (; longRun ? std::chrono::steady_clock::now() < end : rounds < shortRun; ++rounds) {
        const QString statement = maker.make();
        try {
            (void)errorNumberOf([&] { (void)StatementTranslator(session.catalog()).change(statement); });
            (void)errorNumberOf([&] { (void)session.edit(statement); });
            const int number = errorNumberOf([&] {
                RecordSet rows = session.read(statement);
                for (int row = 0; row < 50 && rows.next(); ++row) {
                    for (int i = 0; i < static_cast<int>(rows.columnNames().size()); ++i)
                        (void)rows.value(i);
                }
            });
            if (number == 0) ++answered;
        } catch (const std::exception& exception) {
            FAIL() << exception.what() << " from seed " << seed << " by " << statement.toStdString();
        }
        if (rounds % 1000 == 0) {
            ASSERT_TRUE(database.bytes() == before) << "seed " << seed;
        }
    }
    EXPECT_TRUE(database.bytes() == before) << "seed " << seed;
    EXPECT_EQ(QDir(database.folder()).entryList(QDir::Files | QDir::Hidden), QStringList{u"test.sqlite"_s});
    EXPECT_GT(answered, 0);
}

} // namespace

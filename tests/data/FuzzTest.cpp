// SPDX-License-Identifier: GPL-3.0-or-later

#include "data/StatementTranslator.h"
#include "support/CaseFile.h"
#include "support/TestDatabase.h"

#include <chrono>

namespace {

const QStringList realStatements = linesIn("data/cases/RealStatements.txt");

const QStringList vocabulary =
    linesIn("data/cases/Vocabulary.txt") + QStringList{QString(QChar(0)), QString(QChar(0xD800))};

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

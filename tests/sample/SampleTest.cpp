// SPDX-License-Identifier: GPL-3.0-or-later

#include "support/TestFiles.h"

#include <QStringList>

#include <SQLiteCpp/SQLiteCpp.h>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

/// The first column of all rows of the sample, so that a failure names the culprits.
QStringList textsOf(const QString& question)
{
    const SQLite::Database database(ORVIK_SAMPLE_DIR "/data/orvik-sample.sqlite", SQLite::OPEN_READONLY);
    SQLite::Statement statement(database, question.toStdString());
    QStringList texts;
    while (statement.executeStep())
        texts << QString::fromUtf8(statement.getColumn(0).getText());
    return texts;
}

void expectAnswer(const QString& question, const QString& expected)
{
    SCOPED_TRACE(question.toStdString());
    const QString found = textsOf(question).join(u" | "_s);
    if (expected.startsWith(u"at least "))
        EXPECT_GE(found.toInt(), expected.section(u' ', 2).toInt());
    else
        EXPECT_EQ(found.toStdString(), expected == u"none" ? "" : expected.section(u' ', 1).toStdString());
}

TEST(Sample, IsLargeAndVariedEnoughAndSoundInAllItsRows)
{
    const QByteArray file = contentOf(QStringLiteral(ORVIK_SAMPLE_CASES "/Collection.sql"));
    const QStringList lines = QString::fromUtf8(file).split(u'\n');
    const std::pair<QString, QString> kinds[] = {
        {u"Document"_s, u"dStatus"_s}, {u"Event"_s, u"Status"_s}, {u"Organization"_s, u"Status"_s}};
    int questions = 0;
    for (qsizetype at = 1; at < lines.size(); ++at) {
        if (!lines[at].endsWith(u';')) continue;
        SCOPED_TRACE(lines[at - 1].toStdString());
        const QString expected = lines[at - 1].mid(3).section(u':', 0, 0);
        for (const auto& [kind, status] : kinds) {
            const QString question =
                QString(lines[at]).replace(u"[Kind]"_s, kind).replace(u"[Status]"_s, status);
            expectAnswer(question, expected);
            ++questions;
            if (question == lines[at]) break;
        }
    }
    EXPECT_GT(questions, 80);
}

} // namespace

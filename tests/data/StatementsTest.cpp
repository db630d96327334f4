// SPDX-License-Identifier: GPL-3.0-or-later

#include "support/CaseFile.h"
#include "support/TestDatabase.h"

namespace {

/// Runs a file of statements and their answers. A blank line begins a new database. Each other line has a
/// sign, a blank and the rest of the line:
///
///     #  a comment
///     <  a file of rows, past the session
///     +  SQL past the session
///     @  what the next questions stand in, in place of %1; {a|b} asks each twice, once with a, once with b
///     ?  a question: what is asked of the session
///     x  a statement that changes one row
///
/// and, of the question before it:
///
///     =  the values of the first column
///     :  the rows, divided by " ; "
///     n  the number of rows
///     !  the number of the error
///     e  a part of the error's description
class StatementFile : public testing::TestWithParam<const char*>
{
protected:
    void obey(const QString& line)
    {
        const QString rest = line.mid(2);
        switch (line.isEmpty() ? '\0' : line[0].toLatin1()) {
        case '\0':
            m_database = std::make_unique<TestDatabase>();
            m_frame = u"%1"_s;
            break;
        case '#':
            break;
        case '<':
            m_database->runFile(qPrintable(rest));
            break;
        case '+':
            m_database->run(rest.toUtf8().constData());
            break;
        case '@':
            m_frame = rest;
            break;
        case '?':
            m_question = rest;
            break;
        case 'x': {
            const RecordWriting writing(m_database->session());
            EXPECT_EQ(m_database->session().execute(rest), 1);
            break;
        }
        default:
            for (const QString& statement : questions())
                expectAnswer(statement, line[0], rest);
        }
    }

private:
    /// Returns what is asked: the question in its frame, once for each alternative of the frame.
    [[nodiscard]] QStringList questions() const
    {
        const qsizetype open = m_frame.indexOf(u'{');
        const qsizetype close = m_frame.indexOf(u'}');
        if (open < 0) return {QString(m_frame).replace(u"%1"_s, m_question)};
        QStringList found;
        for (const QString& part : m_frame.mid(open + 1, close - open - 1).split(u'|')) {
            QString statement = m_frame.left(open) + part + m_frame.mid(close + 1);
            found << statement.replace(u"%1"_s, m_question);
        }
        return found;
    }

    void expectAnswer(const QString& statement, QChar sign, const QString& expected)
    {
        SCOPED_TRACE(statement.toStdString());
        DatabaseSession& session = m_database->session();
        try {
            const RecordWriting writing(session);
            if (statement.startsWith(u"UPDATE"_s)) session.execute(statement);
            const QString rows = rowsOf(session, statement);
            if (sign == u'=') {
                EXPECT_EQ(firstColumnOf(session, statement), expected);
            } else if (sign == u':') {
                EXPECT_EQ(QString(rows).replace(u'\n', u" ; "_s), expected);
            } else {
                EXPECT_EQ(QString(sign), u"n"_s) << "no error";
                EXPECT_EQ(rows.count(u'\n') + 1, expected.toInt());
            }
        } catch (const Error& error) {
            const bool isExpected = (sign == u'!' && error.number() == expected.toInt()) ||
                                    (sign == u'e' && error.description().contains(expected));
            EXPECT_TRUE(isExpected) << error.number() << ' ' << error.what();
        }
    }

    std::unique_ptr<TestDatabase> m_database = std::make_unique<TestDatabase>();
    QString m_frame = u"%1"_s;
    QString m_question;
};

TEST_P(StatementFile, IsAnsweredAsItSays)
{
    const QStringList lines = linesIn(GetParam());
    ASSERT_GT(lines.size(), 50);
    for (qsizetype at = 0; at < lines.size(); ++at) {
        SCOPED_TRACE("line " + std::to_string(at + 1));
        obey(lines[at]);
    }
}

INSTANTIATE_TEST_SUITE_P(Cases, StatementFile,
                         testing::Values("data/cases/Dates.txt", "data/cases/Lists.txt",
                                         "data/cases/Texts.txt"));

} // namespace

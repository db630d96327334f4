// SPDX-License-Identifier: GPL-3.0-or-later

#include "support/TestDatabase.h"

#include "data/EngineRules.h"
#include "data/StatementTranslator.h"
#include "support/TestFiles.h"

#include <QStringList>

#include <SQLiteCpp/SQLiteCpp.h>

#include <stdexcept>

namespace {

QByteArray statementsOf(const QString& name)
{
    QByteArray statements = contentOf(name);
    if (statements == "(no file)") throw std::runtime_error("cannot read " + name.toStdString());
    return statements;
}

} // namespace

TestDatabase::TestDatabase(const char* encoding)
{
    SQLite::Database database(fileName().toStdString(), SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE);
    database.exec(std::string("PRAGMA synchronous = OFF; PRAGMA encoding = '") + encoding + '\'');
    database.exec(statementsOf(QStringLiteral(ORVIK_SCHEMA)).toStdString());
}

QByteArray TestDatabase::bytes() const
{
    return contentOf(fileName());
}

void TestDatabase::run(const char* statements) const
{
    SQLite::Database database(fileName().toStdString(), SQLite::OPEN_READWRITE);
    database.exec("PRAGMA synchronous = OFF");
    database.exec(statements);
}

void TestDatabase::runFile(const char* name, const QString& text) const
{
    QString statements =
        QString::fromUtf8(statementsOf(QStringLiteral(ORVIK_TESTS "/") + QString::fromUtf8(name)));
    if (!text.isEmpty()) statements.replace(QStringLiteral("NAME"), text);
    run(statements);
}

QString TestDatabase::ask(const char* statement) const
{
    return ask(QString::fromUtf8(statement));
}

QString TestDatabase::answer(const QString& file, const QString& statement)
{
    SQLite::Database database(file.toStdString());
    SQLite::Statement rows(database, statement.toStdString());
    QStringList lines;
    while (rows.executeStep()) {
        QStringList values;
        for (int i = 0; i < rows.getColumnCount(); ++i) {
            values << (rows.isColumnNull(i) ? QStringLiteral("NULL")
                                            : QString::fromUtf8(rows.getColumn(i).getText()));
        }
        lines << values.join(u'|');
    }
    return lines.join(u'\n');
}

QString TestDatabase::planOf(const QString& statement)
{
    const QString sql = StatementTranslator(session().catalog()).select(statement).sql;
    SQLite::Database database(fileName().toStdString());
    addTextRules(database.getHandle());
    SQLite::Statement steps(database, "EXPLAIN QUERY PLAN " + sql.toStdString());
    QString plan;
    while (steps.executeStep())
        plan += QString::fromUtf8(steps.getColumn(3).getText()) + u'\n';
    return plan;
}

DatabaseSession& TestDatabase::session()
{
    if (!m_session.isOpen()) m_session.open(fileName());
    return m_session;
}

QString rowsOf(DatabaseSession& session, const QString& statement)
{
    RecordSet rows = session.read(statement);
    QStringList lines;
    while (rows.next()) {
        QStringList values;
        for (int i = 0; i < static_cast<int>(rows.columnNames().size()); ++i) {
            values << (rows.isNull(i) ? QStringLiteral("NULL") : rows.text(i));
        }
        lines << values.join(u'|');
    }
    return lines.join(u'\n');
}

QString firstColumnOf(DatabaseSession& session, const QString& statement)
{
    RecordSet rows = session.read(statement);
    QStringList values;
    while (rows.next())
        values << (rows.isNull(0) ? QStringLiteral("NULL") : rows.text(0));
    return values.join(u' ');
}

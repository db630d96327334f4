// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "data/DatabaseSession.h"
#include "support/Testing.h"
#include "util/Error.h"

/// A database file of its own for one test: the program's schema, then the rows that the test adds. The
/// folder goes with the object.
class TestDatabase
{
public:
    /// `encoding` is that of the texts in the file, as SQLite names it.
    explicit TestDatabase(const char* encoding = "UTF-8");

    [[nodiscard]] QString fileName() const { return m_folder.filePath(QStringLiteral("test.sqlite")); }
    [[nodiscard]] QString folder() const { return m_folder.path(); }

    /// All that the file holds, byte for byte.
    [[nodiscard]] QByteArray bytes() const;

    /// Runs statements by SQLite alone, past the session and its rules.
    void run(const char* statements) const;
    void run(const QString& statements) const { run(statements.toUtf8().constData()); }

    /// Runs the statements of a file of the folder of all tests; `NAME` in them stands for a text, if there
    /// is one.
    void runFile(const char* name, const QString& text = {}) const;

    /// What SQLite alone answers, one line a row, values joined by `|`.
    [[nodiscard]] QString ask(const char* statement) const;
    [[nodiscard]] QString ask(const QString& statement) const { return answer(fileName(), statement); }

    /// The same of any database file.
    [[nodiscard]] static QString answer(const QString& file, const QString& statement);

    /// The steps in which SQLite answers a statement of the session, one a line.
    [[nodiscard]] QString planOf(const QString& statement);

    /// The session with the file, opened when first asked for.
    DatabaseSession& session();

private:
    QTemporaryDir m_folder;
    DatabaseSession m_session;
};

/// The rows of a statement, values joined by `|`, rows by line ends: short to compare in a test.
QString rowsOf(DatabaseSession& session, const QString& statement);

/// The values of the first column, joined by blanks, in the order of the rows.
QString firstColumnOf(DatabaseSession& session, const QString& statement);

/// The number of the Error that a call ends with; 0 if it ends well.
template <typename Call>
int errorNumberOf(Call&& call)
{
    try {
        call();
    } catch (const Error& error) {
        return error.number();
    }
    return 0;
}

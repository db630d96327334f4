// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "data/ListEntry.h"
#include "state/ProgramState.h"
#include "support/ScriptedPlatform.h"
#include "support/TestDatabase.h"

/// A program folder with a database, for the stores of the three kinds.
class EditorTest : public testing::Test
{
protected:
    EditorTest();

    /// A file of the user, outside the program folder.
    QString userFile(const QString& name, const QByteArray& content) const;

    /// The content of a file in the data folder, or `(no file)`.
    [[nodiscard]] QByteArray stored(const QString& pathInData) const;

    [[nodiscard]] QString ask(const char* statement) const { return m_database.ask(statement); }

    /// Makes the file refuse rows of a table that have that number in that column, with error 1, until the
    /// index `refuse` is dropped.
    void refuseRows(const QString& table, const QString& column, int number) const;

    static void check(std::vector<CheckEntry>& entries, std::initializer_list<qint64> keys);

    TestDatabase m_database;
    ProgramState m_state;
    ScriptedClock m_clock;
};

/// The keys of the entries, joined by blanks; of a list with check boxes, the checked ones.
QString keysOf(const std::vector<ListEntry>& entries);
QString keysOf(const std::vector<CheckEntry>& entries);

/// The entries' texts, joined by `|`.
QString textsOf(const std::vector<ListEntry>& entries);

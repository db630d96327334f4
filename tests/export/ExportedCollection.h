// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "export/ExportFormat.h"
#include "support/TestDatabase.h"

/// A small collection with all that is hard to export: texts that look like formulas, quotes, line ends of
/// every system, other scripts, memos of 64 KB, characters that some formats cannot hold, dates that are none
/// or older than a spreadsheet's calendar, links to nothing, to deleted records and twice to the same one.
class ExportedCollection
{
public:
    ExportedCollection();

    [[nodiscard]] TestDatabase& database() { return m_database; }
    [[nodiscard]] DatabaseSession& session() { return m_database.session(); }

    /// The identifiers of the records of a kind that are not deleted, in the order of their list.
    [[nodiscard]] std::vector<qint64> identifiers(RecordKind kind);

    /// Exports those into a file of the test's folder and returns its name.
    QString exportTo(const char* format, RecordKind kind, const ExportOptions& options = {});

    /// The same, returning what the file holds.
    QByteArray exported(const char* format, RecordKind kind, const ExportOptions& options = {});

private:
    TestDatabase m_database;
};

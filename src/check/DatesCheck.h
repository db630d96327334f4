// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "check/ScanCheck.h"

/// Looks for dates and times that the program cannot read: in events, in former versions and in the journal.
/// The date of a document is a text and may be anything.
class DatesCheck final : public ScanCheck
{
public:
    explicit DatesCheck(CheckedDatabase& database) : ScanCheck(CheckTopic::UnreadableDates, database) {}

private:
    /// A column that holds dates, times or moments.
    struct Column
    {
        QString name;
        const char* caption;
        QString unreadable; ///< the condition for a value that is not in held form
    };

    void begin(DatabaseSession& session) override;
    void addTable(const QString& table, RecordKind kind, const QString& keyColumn,
                  const std::vector<Column>& columns);
    void addJournal();
    static std::vector<Column> columnsOfEvents();
    static Column momentColumn(const QString& name);
};

// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "check/TopicCheck.h"
#include "data/HeldRows.h"

#include <QSet>

#include <map>
#include <optional>

class CheckedDatabase;
struct Snapshot;

/// Compares each record with what the journal says of the last time that it was saved, and reads every row of
/// the journal. A record that a change to a list touched after that is left out: the journal tells of such a
/// change row by row only. So is a record that the journal does not know.
class RecordsCheck final : public TopicCheck
{
public:
    /// The database must outlive the check.
    explicit RecordsCheck(CheckedDatabase& database)
        : TopicCheck(CheckTopic::ChangedRecords), m_database(database)
    {
    }

    bool step() override;
    [[nodiscard]] std::optional<int> percent() const override;

private:
    void look(const HeldRow& row);
    [[nodiscard]] bool isKnown(const Snapshot& rows) const;
    void leaveOut(const Snapshot& rows);
    void compare(RecordKind kind, qint64 identifier, const Snapshot& saved);

    CheckedDatabase& m_database;
    std::optional<qint64> m_next; ///< the number of the last row of the journal that was not read yet
    qint64 m_rows = 0;
    std::map<QString, QSet<qint64>> m_done; ///< records by their tables that were compared or are not to be
};

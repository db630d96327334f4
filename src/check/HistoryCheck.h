// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "check/ScanCheck.h"

#include <QSet>

#include <map>

/// Looks for former versions, and steps of the journal, of records that are not there. A record whose
/// addition was undone is not there, and its versions are no fault; the journal tells of that.
class HistoryCheck final : public ScanCheck
{
public:
    explicit HistoryCheck(CheckedDatabase& database) : ScanCheck(CheckTopic::HistoryWithoutRecord, database)
    {
    }

private:
    void begin(DatabaseSession& session) override;
    void found(RecordKind kind, const Value& key);

    std::map<RecordKind, QSet<qint64>> m_told; ///< the identifiers that were looked into already
};

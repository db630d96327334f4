// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "data/RecordKind.h"

#include <QString>

#include <vector>

class Clock;
class DatabaseSession;

/// A record that was deleted and not restored since.
struct DeletedRecord
{
    qint64 identifier = 0;
    QString name;
    QString moment; ///< of the deletion, in held form; empty if the journal does not tell of it
};

/// Reads the deleted records of each kind, and restores them. The reserved record "None" is not among them,
/// nor is a record without a status. Session and clock must outlive it. Every failure is an Error.
class DeletedRecords final
{
public:
    DeletedRecords(DatabaseSession& session, const Clock& clock) : m_session(session), m_clock(clock) {}

    [[nodiscard]] std::size_t count(RecordKind kind) const;

    /// In no particular order.
    [[nodiscard]] std::vector<DeletedRecord> read(RecordKind kind) const;

    /// Makes those of the records active again that are still deleted, in one step: all of them or, if it
    /// throws, none. Returns their identifiers.
    std::vector<qint64> restore(RecordKind kind, const std::vector<qint64>& identifiers) const;

private:
    DatabaseSession& m_session;
    const Clock& m_clock;
};

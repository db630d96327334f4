// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "history/ComparedFields.h"

#include <QStringList>

class Clock;
class DatabaseSession;
class JournaledSave;
class ProgramFolder;

/// Makes a record what it was in an earlier version, as a new version: the past stays.
class VersionRestore
{
public:
    struct Outcome
    {
        bool isDone = false;  ///< false if the record is not what its user saw, and nothing was written
        QStringList leftOut;  ///< links to what is gone from the database: the field and the name
        QStringList messages; ///< what else could not be restored
    };

    /// Session, clock and the folder of the open database must outlive it.
    VersionRestore(DatabaseSession& session, const Clock& clock, const ProgramFolder& folder, RecordKind kind,
                   qint64 identifier)
        : m_session(session),
          m_clock(clock),
          m_folder(folder),
          m_kind(kind),
          m_identifier(identifier),
          m_fields(recordFields(kind))
    {
    }

    /// The rows that the record gets from a version: a deleted record is active again, and what the version
    /// does not hold stays as it is in `present`.
    [[nodiscard]] Snapshot target(const VersionContent& version, const Snapshot& present) const;

    /// Whether another chart lies there than in the version.
    [[nodiscard]] bool needsCharts(const VersionContent& version) const;

    /// Writes the version with its row of the history table, in one transaction. `known` is the record as
    /// its user saw it. Links to what is gone are left out. Throws Error; nothing is written then.
    Outcome restore(const VersionContent& version, const Snapshot& known);

private:
    [[nodiscard]] bool isThere(const QString& table, const QString& keyColumn, qint64 key) const;
    void leaveOutKeys(Snapshot& target, QStringList& leftOut) const;
    void leaveOutLinks(Snapshot& target, QStringList& leftOut) const;
    void bringBackCharts(const VersionContent& version, JournaledSave& save, QStringList& messages) const;

    DatabaseSession& m_session;
    const Clock& m_clock;
    const ProgramFolder& m_folder;
    RecordKind m_kind;
    qint64 m_identifier;
    RecordFields m_fields;
};

// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "data/DatabaseSession.h"
#include "journal/FormerFiles.h"
#include "journal/Journal.h"
#include "platform/Clock.h"

#include <QStringList>

#include <optional>
#include <vector>

/// A save of one record: a transaction in which records can be written, and the row of the journal that tells
/// what it changed.
///
/// Everything that changes a record is done while there is one of these. What was written before a trapped
/// error is kept, as `Transaction` has it, and then the journal tells of that; if the journal cannot be
/// written, nothing is. Nothing is noted if nothing was changed.
class JournaledSave
{
public:
    /// Session, clock and step must outlive it. Without an identifier, which is then to be set before
    /// anything is written, the record is a new one. Without a step, the save is one of its own. Throws
    /// Error.
    JournaledSave(DatabaseSession& session, const Clock& clock, RecordKind kind,
                  std::optional<qint64> identifier, JournalStep* step = nullptr);
    ~JournaledSave();
    JournaledSave(const JournaledSave&) = delete;
    JournaledSave& operator=(const JournaledSave&) = delete;

    void setIdentifier(qint64 identifier);

    /// Says what the save is, where what it changed does not.
    void setAction(JournalAction action) { m_action = action; }

    /// The files that the save replaces; the row tells of them. The folder must outlive the save.
    [[nodiscard]] FormerFiles& files(const ProgramFolder& folder);

    /// Tells of files that the save took into the folder of documents, by their names there: the row tells
    /// what they hold. Throws Error if one of them cannot be read.
    void noteUploads(const ProgramFolder& folder, const QStringList& names);

    /// Throws Error if the file cannot take the rows; then none of them is in it.
    void commit();

    /// Takes back what was written; nothing is noted.
    void rollBack();

private:
    void note();
    void noteUploadsAlone();

    DatabaseSession& m_session;
    RecordKind m_kind;
    QDateTime m_moment; ///< not after that of the row that the save adds to the history
    Transaction m_transaction;
    RecordWriting m_writing;
    JournalStep m_own;
    JournalStep* m_step;
    std::optional<qint64> m_identifier;
    std::optional<JournalAction> m_action;
    Snapshot m_before;
    std::optional<FormerFiles> m_files;
    std::vector<HeldRow> m_uploads;
    bool m_isOpen = true;
};

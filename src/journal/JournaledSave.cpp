// SPDX-License-Identifier: GPL-3.0-or-later

#include "journal/JournaledSave.h"

#include "journal/UploadedFiles.h"
#include "util/Error.h"

JournaledSave::JournaledSave(DatabaseSession& session, const Clock& clock, RecordKind kind,
                             std::optional<qint64> identifier, JournalStep* step)
    : m_session(session),
      m_kind(kind),
      m_moment(clock.now()),
      m_transaction(session),
      m_writing(session),
      m_step(step == nullptr ? &m_own : step)
{
    if (identifier) setIdentifier(*identifier);
}

JournaledSave::~JournaledSave()
{
    if (!m_isOpen) return;
    try {
        commit();
    } catch (...) {
        // the error that led here is the one the user sees; the file is as it was
    }
}

void JournaledSave::setIdentifier(qint64 identifier)
{
    if (!m_session.keepsJournal()) return;
    m_before = Snapshots::ofRecord(m_session, m_kind, identifier);
    m_identifier = identifier;
}

FormerFiles& JournaledSave::files(const ProgramFolder& folder)
{
    return m_files ? *m_files : m_files.emplace(folder);
}

void JournaledSave::noteUploads(const ProgramFolder& folder, const QStringList& names)
{
    if (!m_session.keepsJournal()) return;
    m_uploads = UploadedFiles::rowsOf(folder.folderPath(ProgramFolders::documents), names);
}

void JournaledSave::commit()
{
    m_isOpen = false;
    try {
        // SQLite may have rolled back by itself, as on a full disk; then there is nothing to tell of
        if (m_session.isInTransaction()) note();
    } catch (...) {
        m_transaction.rollBack();
        throw;
    }
    m_transaction.commit();
    if (m_files) m_files->finish();
}

void JournaledSave::rollBack()
{
    m_isOpen = false;
    m_transaction.rollBack();
}

void JournaledSave::note()
{
    if (!m_identifier) return;
    const RecordNames names = recordNames(m_kind);
    JournalEntry entry;
    entry.after = Snapshots::ofRecord(m_session, m_kind, *m_identifier);
    const bool hasFiles = m_files && m_files->hasReplaced();
    if (!hasFiles && Snapshots::areEqual(m_kind, m_before, entry.after)) return noteUploadsAlone();
    entry.before = std::move(m_before);
    if (hasFiles) m_files->note(entry.before, entry.after);
    if (!m_uploads.empty()) entry.after.tables[Snapshots::uploadRows.toString()] = std::move(m_uploads);
    entry.action = m_action.value_or(Journal::actionBetween(m_kind, entry.before, entry.after));
    entry.kind = names.record;
    entry.identifier = *m_identifier;
    entry.title =
        Snapshots::titleOf(m_kind, entry.after.rows(names.record).empty() ? entry.before : entry.after);
    Journal::append(m_session, m_moment, entry, *m_step);
}

/// The files of a record were replaced and nothing else: that is no step, since Undo does not bring them
/// back.
void JournaledSave::noteUploadsAlone()
{
    if (m_uploads.empty()) return;
    JournalEntry entry;
    entry.kind = Snapshots::uploadRows.toString();
    entry.identifier = *m_identifier;
    entry.title = Snapshots::titleOf(m_kind, m_before);
    entry.after.tables[entry.kind] = std::move(m_uploads);
    Journal::note(m_session, m_moment, entry);
}

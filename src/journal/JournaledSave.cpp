// SPDX-License-Identifier: GPL-3.0-or-later

#include "journal/JournaledSave.h"

#include "journal/RecordParts.h"
#include "util/Error.h"

namespace {

QString textOf(const std::vector<HeldRow>& rows, const QString& column)
{
    const auto* text = rows.empty() ? nullptr : std::get_if<QString>(&valueOf(rows.front(), column));
    return text == nullptr ? QString() : *text;
}

/// What a save did, by the rows of the record's own table before and after it.
JournalAction actionOf(const RecordParts& record, const std::vector<HeldRow>& before,
                       const std::vector<HeldRow>& after)
{
    if (before.empty()) return JournalAction::Add;
    const auto isDeleted = [&record](const std::vector<HeldRow>& rows) {
        return rows.empty() ||
               textOf(rows, record.statusColumn).compare(u"DELETED", Qt::CaseInsensitive) == 0;
    };
    if (isDeleted(before) == isDeleted(after)) return JournalAction::Change;
    return isDeleted(after) ? JournalAction::Delete : JournalAction::Restore;
}

} // namespace

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
    } catch (const Error&) {
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

void JournaledSave::commit()
{
    m_isOpen = false;
    try {
        note();
    } catch (const Error&) {
        m_transaction.rollBack();
        throw;
    }
    m_transaction.commit();
    if (m_files) m_files->finish();
}

void JournaledSave::note()
{
    if (!m_identifier) return;
    const RecordParts& record = recordParts(m_kind);
    JournalEntry entry;
    entry.after = Snapshots::ofRecord(m_session, m_kind, *m_identifier);
    const bool hasFiles = m_files && m_files->hasReplaced();
    if (!hasFiles && Snapshots::areEqual(m_kind, m_before, entry.after)) return;
    entry.before = std::move(m_before);
    if (hasFiles) m_files->note(entry.before, entry.after);
    const std::vector<HeldRow>& before = entry.before.rows(record.names.record);
    const std::vector<HeldRow>& after = entry.after.rows(record.names.record);
    entry.action = m_action.value_or(actionOf(record, before, after));
    entry.kind = record.names.record;
    entry.identifier = *m_identifier;
    entry.title = textOf(after.empty() ? before : after, record.names.name);
    Journal::append(m_session, m_moment, entry, *m_step);
}

// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "editors/EditorTest.h"
#include "journal/JournaledSave.h"
#include "journal/RecordDump.h"
#include "journal/UndoSteps.h"
#include "lists/ListStore.h"
#include "records/EventStore.h"

/// Saves, and the steps back and forth through them.
class UndoStepsTest : public EditorTest
{
protected:
    qint64 addEvent(const QString& name, DatabaseSession& session)
    {
        EventStore store(session, m_clock);
        EventRecord record = store.blank(std::nullopt);
        record.eventName = name;
        EXPECT_FALSE(store.saveEvent(record));
        return record.id;
    }
    qint64 addEvent(const QString& name) { return addEvent(name, m_state.session); }

    void rename(qint64 event, const QString& name)
    {
        EventStore store(m_state.session, m_clock);
        EventRecord record = store.load(event).record;
        record.eventName = name;
        EXPECT_FALSE(store.updateEvent(record));
    }

    /// Changes rows of a record by a statement of SQLite, as a save.
    void save(RecordKind kind, qint64 id, const QString& statement)
    {
        JournaledSave save(m_state.session, m_clock, kind, id);
        HeldRows(m_state.session).write(statement);
        save.commit();
    }

    [[nodiscard]] QString undoText() const
    {
        const auto step = m_undo.undoable();
        return step ? StepTexts::undo(*step) : QString();
    }

    [[nodiscard]] QString redoText() const
    {
        const auto step = m_undo.redoable();
        return step ? StepTexts::redo(*step) : QString();
    }

    [[nodiscard]] QByteArray dump() const { return RecordDump(m_database.fileName()).rows(); }

    UndoSteps m_undo{m_state.session, m_clock, m_state.folder};
    ListStore m_lists{m_state.session, m_clock};
};

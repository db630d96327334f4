// SPDX-License-Identifier: GPL-3.0-or-later

#include "journal/Undeletion.h"

#include "data/DatabaseSession.h"
#include "data/HeldRows.h"
#include "journal/Journal.h"
#include "journal/RecordParts.h"
#include "platform/Clock.h"

using namespace Qt::StringLiterals;

namespace {

bool isDeleted(const RecordParts& record, const Snapshot& snapshot)
{
    const std::vector<HeldRow>& rows = snapshot.rows(record.names.record);
    return !rows.empty() &&
           textOf(rows.front(), record.statusColumn).compare(u"DELETED", Qt::CaseInsensitive) == 0;
}

JournalEntry entryOf(DatabaseSession& session, RecordKind kind, qint64 identifier, Snapshot before)
{
    const RecordNames names = recordNames(kind);
    JournalEntry entry;
    entry.action = JournalAction::Restore;
    entry.kind = names.record;
    entry.identifier = identifier;
    entry.title = textOf(before.rows(names.record).front(), names.name);
    entry.before = std::move(before);
    entry.after = Snapshots::ofRecord(session, kind, identifier);
    return entry;
}

} // namespace

std::vector<qint64> Undeletion::restore(DatabaseSession& session, const Clock& clock, RecordKind kind,
                                        const std::vector<qint64>& identifiers)
{
    const RecordParts& record = recordParts(kind);
    const QString statement = u"UPDATE %1 SET %2 = 'ACTIVE' WHERE %3 = ?"_s.arg(
        record.names.record, record.statusColumn, record.names.key);
    std::vector<qint64> restored;
    writeWholly(session, [&] {
        const RecordWriting writing(session);
        JournalStep step;
        for (const qint64 identifier : identifiers) {
            Snapshot before = Snapshots::ofRecord(session, kind, identifier);
            if (!isDeleted(record, before)) continue;
            HeldRows(session).write(statement, {identifier});
            Journal::append(session, clock.now(), entryOf(session, kind, identifier, std::move(before)),
                            step);
            restored.push_back(identifier);
        }
    });
    return restored;
}

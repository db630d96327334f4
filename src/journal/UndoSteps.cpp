// SPDX-License-Identifier: GPL-3.0-or-later

#include "journal/UndoSteps.h"

#include "data/DatabaseSession.h"
#include "journal/FormerFiles.h"
#include "journal/JournalTexts.h"
#include "journal/RecordParts.h"
#include "journal/SnapshotWriter.h"
#include "util/Error.h"

#include <sqlite3.h>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

/// Columns of the row of that number; an empty row if there is none.
HeldRow rowAt(DatabaseSession& session, const QString& columns, qint64 number)
{
    auto rows = HeldRows(session).read(u"SELECT %1 FROM Journal WHERE Number = ?"_s.arg(columns), {number});
    return rows.empty() ? HeldRow() : std::move(rows.front());
}

/// A row of the journal without its snapshots.
HeldRow lastRow(DatabaseSession& session)
{
    auto rows = HeldRows(session).read(
        u"SELECT Number, UndoStep, RedoStep FROM Journal ORDER BY Number DESC LIMIT 1"_s);
    return rows.empty() ? HeldRow() : std::move(rows.front());
}

/// The number after that of the last row of a step. The rows of a step follow one another, so that a few of
/// them tell how many there are.
qint64 endOf(DatabaseSession& session, qint64 step)
{
    const auto belongs = [&](qint64 number) {
        return wholeNumberOf(rowAt(session, u"Step"_s, number), u"Step") == step;
    };
    qint64 last = step;
    qint64 stride = 1;
    for (; belongs(last + stride); stride *= 2)
        last += stride;
    for (; stride > 0; stride /= 2)
        if (belongs(last + stride)) last += stride;
    return last + 1;
}

[[noreturn]] void refuse()
{
    throw Error(SQLITE_CORRUPT, JournalTexts::tr("The journal holds a step that cannot be read."));
}

JournalAction actionOf(const HeldRow& row)
{
    const auto action = Journal::actionOf(textOf(row, u"What"));
    if (!action) refuse();
    return *action;
}

/// Adds what was done to a list, which stands before its rows.
void addOperation(DatabaseSession& session, StepSummary& step)
{
    constexpr qint64 enough = 300;
    const HeldRow row = rowAt(session, u"substr(After, 1, %1) AS Beginning"_s.arg(enough), step.number);
    QString json = textOf(row, u"Beginning");
    const auto end = json.indexOf(u"}]"_s);
    Snapshot operation;
    if (end > 0 && json.startsWith(u"{\"Operation\":"_s)) {
        operation = Snapshots::fromJson(QString(json.first(end) + u"}]}"_s));
    } else {
        operation = Snapshots::fromJson(valueOf(rowAt(session, u"After"_s, step.number), u"After"));
    }
    const auto& rows = operation.rows(Snapshots::operationRows.toString());
    if (rows.empty()) return;
    step.listOperation = textOf(rows.front(), u"Name");
    step.entryWord = textOf(rows.front(), u"Word");
}

StepSummary summaryOf(DatabaseSession& session, qint64 number)
{
    const QString columns = u"What, Kind, Identifier, Title"_s;
    const HeldRow first = rowAt(session, columns, number);
    StepSummary step{number, actionOf(first), textOf(first, u"Kind"), wholeNumberOf(first, u"Identifier"),
                     textOf(first, u"Title")};
    step.rows = endOf(session, number) - number;
    // a command that changes several kinds of record does so kind by kind
    if (step.rows > 1)
        step.isMixed = textOf(rowAt(session, columns, number + step.rows - 1), u"Kind") != step.kind;
    if (step.action == JournalAction::List) addOperation(session, step);
    return step;
}

std::optional<RecordKind> recordKindOf(const QString& table)
{
    for (const RecordKind kind : recordKinds)
        if (recordNames(kind).record == table) return kind;
    return std::nullopt;
}

/// Whether a record differs in more than whether it is deleted.
bool differsBesideStatus(RecordKind kind, Snapshot before, Snapshot after)
{
    const RecordParts& record = recordParts(kind);
    for (Snapshot* each : {&before, &after}) {
        const auto rows = each->tables.find(record.names.record);
        if (rows == each->tables.end()) continue;
        for (HeldRow& row : rows->second)
            std::erase_if(row, [&record](const auto& value) { return value.first == record.statusColumn; });
    }
    return !Snapshots::areEqual(kind, before, after);
}

/// Takes over what the snapshot of a step tells beside the rows of tables.
void addNotes(Snapshot& snapshot, const Snapshot& step)
{
    for (const auto& [name, rows] : step.tables)
        if (!Snapshots::isTable(name)) snapshot.tables[name] = rows;
}

} // namespace

/// A step that is taken back, or done again, and what comes of it.
struct UndoSteps::Reversal
{
    Undo mode;
    qint64 taken; ///< the step whose rows are reversed
    bool isRedo;
    QDateTime moment;
    JournalStep step; ///< the one that tells of it
    UndoOutcome outcome;
    FormerFiles files; ///< that it exchanges
};

std::optional<StepSummary> UndoSteps::undoable() const
{
    return next(Direction::Undo);
}

std::optional<StepSummary> UndoSteps::redoable() const
{
    return next(Direction::Redo);
}

std::optional<StepSummary> UndoSteps::next(Direction direction) const
{
    if (!m_session.isOpen() || !m_session.keepsJournal()) return std::nullopt;
    const HeldRow last = lastRow(m_session);
    if (direction == Direction::Undo) {
        const qint64 step = wholeNumberOf(last, u"UndoStep");
        return step == 0 ? std::nullopt : std::optional(summaryOf(m_session, step));
    }
    const qint64 step = wholeNumberOf(last, u"RedoStep");
    if (step == 0) return std::nullopt;
    return summaryOf(m_session, wholeNumberOf(rowAt(m_session, u"Reverses"_s, step), u"Reverses"));
}

UndoOutcome UndoSteps::undo(Undo mode, std::optional<qint64> expected)
{
    return go(Direction::Undo, mode, expected);
}

UndoOutcome UndoSteps::redo(Undo mode, std::optional<qint64> expected)
{
    return go(Direction::Redo, mode, expected);
}

UndoOutcome UndoSteps::go(Direction direction, Undo mode, std::optional<qint64> expected)
{
    if (!m_session.keepsJournal()) return {};
    m_session.requireWritable();
    Transaction transaction(m_session);
    const RecordWriting writing(m_session);
    Reversal reversal{mode, 0, direction == Direction::Redo, m_clock.now(), {}, {}, FormerFiles(m_folder)};
    UndoOutcome& outcome = reversal.outcome;
    try {
        outcome.step = next(direction);
        if (expected && outcome.step && outcome.step->number != *expected) outcome.step.reset();
        if (outcome.step) reverse(reversal);
    } catch (...) {
        transaction.rollBack();
        throw;
    }
    if (outcome.isDone()) {
        transaction.commit();
        reversal.files.finish();
        return std::move(outcome);
    }
    transaction.rollBack();
    outcome.changed.clear();
    for (StepDifference& each : outcome.differences)
        if (!recordKindOf(each.kind)) each.found = SnapshotWriter::presentRows(m_session, each.expected);
    return std::move(outcome);
}

/// Reverses the rows of a step, the last one first, as a step of its own.
void UndoSteps::reverse(Reversal& reversal)
{
    const HeldRow last = lastRow(m_session);
    reversal.taken = wholeNumberOf(last, reversal.isRedo ? u"RedoStep" : u"UndoStep");
    const HeldRow before = rowAt(m_session, u"UndoStep, RedoStep"_s, reversal.taken - 1);
    JournalStep& step = reversal.step;
    step.reverses = reversal.taken;
    step.undoStep = reversal.isRedo ? reversal.outcome.step->number : wholeNumberOf(before, u"UndoStep");
    step.redoStep = reversal.isRedo ? wholeNumberOf(before, u"RedoStep") : wholeNumberOf(last, u"Number") + 1;
    const qint64 end = endOf(m_session, reversal.taken);
    for (qint64 number = end - 1; number >= reversal.taken; --number) {
        const HeldRow row = rowAt(m_session, u"What, Kind, Identifier, Title, Before, After"_s, number);
        JournalEntry entry{actionOf(row),
                           textOf(row, u"Kind"),
                           wholeNumberOf(row, u"Identifier"),
                           textOf(row, u"Title"),
                           Snapshots::fromJson(valueOf(row, u"After")),
                           Snapshots::fromJson(valueOf(row, u"Before"))};
        if (reversal.isRedo) // as it was called at first
            entry.action = actionOf(rowAt(m_session, u"What"_s, step.undoStep + end - 1 - number));
        if (const auto kind = recordKindOf(entry.kind)) {
            reverseRecord(reversal, *kind, std::move(entry));
        } else {
            reverseList(reversal, std::move(entry));
        }
    }
}

/// `entry` tells what the record should be now, and what it is to be.
void UndoSteps::reverseRecord(Reversal& reversal, RecordKind kind, JournalEntry entry)
{
    UndoOutcome& outcome = reversal.outcome;
    Snapshot found = Snapshots::ofRecord(m_session, kind, entry.identifier);
    if (reversal.mode == Undo::UnlessChanged && !Snapshots::areEqual(kind, entry.before, found)) {
        outcome.differences.push_back({entry.kind, entry.identifier, entry.title, entry.before, found});
        return;
    }
    SnapshotWriter::writeRecord(m_session, kind, entry.identifier, found, entry.after);
    for (const QString& name :
         reversal.files.bringBack(FormerFiles::wanted(entry.after, entry.before), entry.identifier))
        outcome.messages << FormerFiles::goneMessage(name);
    Snapshot written = Snapshots::ofRecord(m_session, kind, entry.identifier);
    if (differsBesideStatus(kind, found, written))
        SnapshotWriter::addToHistory(m_session, kind, entry.identifier, reversal.moment);
    entry.title = Snapshots::titleOf(kind, written.rows(entry.kind).empty() ? found : written);
    if (!reversal.isRedo) entry.action = Journal::actionBetween(kind, found, written);
    reversal.files.note(found, written);
    entry.before = std::move(found);
    entry.after = std::move(written);
    Journal::append(m_session, reversal.moment, entry, reversal.step);
    outcome.changed.push_back({entry.kind, entry.identifier});
}

void UndoSteps::reverseList(Reversal& reversal, JournalEntry entry)
{
    UndoOutcome& outcome = reversal.outcome;
    auto exchanged = SnapshotWriter::exchange(m_session, entry.before, entry.after);
    if (reversal.mode == Undo::UnlessChanged && !exchanged.unmatched.isEmpty()) {
        outcome.differences.push_back(
            {entry.kind, entry.identifier, entry.title, std::move(exchanged.unmatched), {}});
        return;
    }
    addNotes(exchanged.removed, entry.before);
    addNotes(exchanged.written, entry.after);
    entry.before = std::move(exchanged.removed);
    entry.after = std::move(exchanged.written);
    Journal::append(m_session, reversal.moment, entry, reversal.step);
    outcome.changed.push_back({entry.kind, entry.identifier});
}

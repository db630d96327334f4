// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "journal/Snapshot.h"
#include "journal/StepSummary.h"
#include "platform/Clock.h"

#include <QStringList>

#include <optional>
#include <vector>

class DatabaseSession;
class ProgramFolder;

/// What to do if a record is not as the step left it.
enum class Undo
{
    UnlessChanged, ///< nothing
    EvenIfChanged  ///< make it what it was before the step; of a list, take back what still matches
};

/// A record, or an entry of a list, that is not as a step left it.
struct StepDifference
{
    QString kind; ///< the table of a kind of record or, of a list, its own
    qint64 identifier = 0;
    QString title;
    Snapshot expected; ///< what the step left; of a list, only the rows that differ
    Snapshot found;
};

/// A record, or an entry of a list, that was changed.
struct ChangedItem
{
    QString kind;
    qint64 identifier = 0;
};

/// What became of an Undo or a Redo.
struct UndoOutcome
{
    std::optional<StepSummary> step;         ///< std::nullopt if there was none
    std::vector<ChangedItem> changed;        ///< in the order in which they were changed
    std::vector<StepDifference> differences; ///< if there are any, nothing was written
    QStringList messages;                    ///< what could not be done although the step was taken

    [[nodiscard]] bool isDone() const { return step.has_value() && differences.empty(); }
};

/// Goes back and forth through the steps of the journal. Takes back whole steps, each in one transaction, and
/// notes it as a step of its own, so that the journal only grows.
///
/// Lives as long as the window; holds nothing of the file, which may be another one from call to call. Every
/// failure is an Error; then nothing is written.
class UndoSteps
{
public:
    /// All must outlive it. The folder is that of the open database.
    UndoSteps(DatabaseSession& session, const Clock& clock, const ProgramFolder& folder)
        : m_session(session), m_clock(clock), m_folder(folder)
    {
    }

    /// The step that `undo` would take back, or that `redo` would do again; std::nullopt if there is none, or
    /// if the open file has no journal. Fast enough to be asked after every change.
    [[nodiscard]] std::optional<StepSummary> undoable() const;
    [[nodiscard]] std::optional<StepSummary> redoable() const;

    /// With the number of a step, nothing is done if another one is next by now.
    UndoOutcome undo(Undo mode = Undo::UnlessChanged, std::optional<qint64> expected = {});
    UndoOutcome redo(Undo mode = Undo::UnlessChanged, std::optional<qint64> expected = {});

private:
    enum class Direction
    {
        Undo,
        Redo
    };
    struct Reversal;

    [[nodiscard]] std::optional<StepSummary> next(Direction direction) const;
    UndoOutcome go(Direction direction, Undo mode, std::optional<qint64> expected);
    void reverse(Reversal& reversal);
    void reverseRecord(Reversal& reversal, RecordKind kind, JournalEntry entry);
    void reverseList(Reversal& reversal, JournalEntry entry);

    DatabaseSession& m_session;
    const Clock& m_clock;
    const ProgramFolder& m_folder;
};

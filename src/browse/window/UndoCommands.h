// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "data/RecordKind.h"
#include "journal/UndoSteps.h"
#include "platform/Platform.h"

#include <QObject>

#include <functional>
#include <vector>

struct ProgramState;
class MainCommands;
class QAction;
class QWidget;

/// The commands Undo and Redo, which go back and forth through the steps of the journal and are named after
/// the step that they take. They live as long as the window.
class UndoCommands final : public QObject
{
    Q_OBJECT

public:
    /// `unwritable` says why the database cannot be changed; empty if it can. All must outlive the commands.
    UndoCommands(const Platform& platform, ProgramState& state, const MainCommands& commands,
                 std::function<QString()> unwritable, QWidget& window);

    /// Names and enables the commands as the journal is now.
    void refresh();

    /// What Undo takes back, as "Undo Delete of 3 Documents".
    [[nodiscard]] QString undoText() const { return m_undo.text; }

Q_SIGNALS:
    /// Records of a kind were changed, in the order of the step.
    void recordsChanged(RecordKind kind, const std::vector<qint64>& identifiers);

    /// Entries of lists were changed.
    void listsChanged();

    /// Another program has changed what the command would have taken back, which was not done.
    void outdated();

    /// Says what was done. Comes last.
    void done(const QString& text);

private:
    /// One of the two commands.
    struct Command
    {
        QAction* action;
        std::optional<StepSummary> (UndoSteps::*next)() const;
        UndoOutcome (UndoSteps::*take)(Undo mode, std::optional<qint64> expected);
        QString (*nameOf)(const StepSummary& step);
        QString (*reportOf)(const StepSummary& step);
        QString procedure;
        QString text;    ///< what it would do; empty if there is no step
        qint64 step = 0; ///< the step that it is named after, or 0
    };

    void name(Command& command, const QString& plainText, const QString& nothing);
    void run(const Command& command);
    [[nodiscard]] UndoOutcome take(const Command& command);
    void announce(const UndoOutcome& outcome);

    Platform m_platform;
    UndoSteps m_steps;
    std::function<QString()> m_unwritable;
    QWidget& m_window;
    Command m_undo;
    Command m_redo;
};

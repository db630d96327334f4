// SPDX-License-Identifier: GPL-3.0-or-later

#include "browse/window/UndoCommands.h"

#include "browse/commands/CommandState.h"
#include "browse/commands/MainCommands.h"
#include "history/frmChangedSince.h"
#include "platform/Procedure.h"
#include "state/ProgramState.h"
#include "widgets/PlainToolTip.h"
#include "widgets/WaitCursor.h"

#include <QMenu>

#include <algorithm>
#include <map>

namespace {

constexpr int widestText = 400; ///< of a command in its menu, in pixels

/// The same line with the key of the command's first letter.
QString menuText(const QMenu& menu, const QString& text)
{
    QString shown = menu.fontMetrics().elidedText(text, Qt::ElideRight, widestText);
    return u'&' + shown.replace(u'&', QStringLiteral("&&"));
}

} // namespace

UndoCommands::UndoCommands(const Platform& platform, ProgramState& state, const MainCommands& commands,
                           std::function<QString()> unwritable, QWidget& window)
    : QObject(&window),
      m_platform(platform),
      m_steps(state.session, platform.clock, state.folder),
      m_unwritable(std::move(unwritable)),
      m_window(window),
      m_undo{commands.mnuRecordUndo,
             &UndoSteps::undoable,
             &UndoSteps::undo,
             &StepTexts::undo,
             &StepTexts::undone,
             QStringLiteral("undo"),
             {}},
      m_redo{commands.mnuRecordRedo,
             &UndoSteps::redoable,
             &UndoSteps::redo,
             &StepTexts::redo,
             &StepTexts::redone,
             QStringLiteral("redo"),
             {}}
{
    connect(m_undo.action, &QAction::triggered, this, [this] { run(m_undo); });
    connect(m_redo.action, &QAction::triggered, this, [this] { run(m_redo); });
}

void UndoCommands::refresh()
{
    name(m_undo, tr("&Undo"), tr("There is nothing to undo."));
    name(m_redo, tr("&Redo"), tr("There is nothing to redo."));
}

void UndoCommands::name(Command& command, const QString& plainText, const QString& nothing)
{
    QString hindrance = m_unwritable();
    std::optional<StepSummary> step;
    try {
        if (hindrance.isEmpty()) step = (m_steps.*command.next)();
    } catch (const Error&) {
        return; // the command stays as it is, and says so if it is used
    }
    if (hindrance.isEmpty() && !step) hindrance = nothing;
    command.step = step ? step->number : 0;
    command.text = step ? command.nameOf(*step) : QString();
    QString tip = step ? command.text : plainText;
    if (!step) tip.remove(u'&');
    const QString key = command.action->shortcut().toString(QKeySequence::NativeText);
    const auto* menu = qobject_cast<QMenu*>(command.action->associatedObjects().value(0));
    renameCommand(*command.action, step && menu != nullptr ? menuText(*menu, command.text) : plainText,
                  PlainToolTip::text(QStringLiteral("%1 (%2)").arg(tip, key)));
    enableUnless(*command.action, hindrance);
}

void UndoCommands::run(const Command& command)
{
    UndoOutcome outcome;
    const bool isTried =
        runProcedure(m_platform.messages, command.procedure, [&] { outcome = take(command); });
    if (isTried && !outcome.step) Q_EMIT outdated();
    if (!outcome.isDone()) return refresh();
    // what was changed first is taken back last
    if (&command == &m_undo) std::reverse(outcome.changed.begin(), outcome.changed.end());
    announce(outcome);
    refresh();
    if (!outcome.messages.isEmpty()) m_platform.messages.show(outcome.messages.join(u'\n'));
    Q_EMIT done(command.reportOf(*outcome.step));
}

/// Takes the step that the command is named after, if it is still the next one; if something was changed
/// since, only if the user wants it.
UndoOutcome UndoCommands::take(const Command& command)
{
    const auto attempt = [&](Undo mode) {
        const WaitCursor wait;
        return (m_steps.*command.take)(mode, command.step);
    };
    UndoOutcome outcome = attempt(Undo::UnlessChanged);
    if (outcome.differences.empty()) return outcome;
    frmChangedSince dialog(m_platform, &m_window);
    return dialog.ask(command.text, outcome.differences) ? attempt(Undo::EvenIfChanged) : outcome;
}

/// A step has records of a kind or of several, or it is one of a list.
void UndoCommands::announce(const UndoOutcome& outcome)
{
    std::map<RecordKind, std::vector<qint64>> records;
    bool hasLists = false;
    for (const ChangedItem& item : outcome.changed) {
        const auto kind = std::find_if(recordKinds.begin(), recordKinds.end(), [&](RecordKind each) {
            return recordNames(each).record == item.kind;
        });
        if (kind == recordKinds.end())
            hasLists = true;
        else
            records[*kind].push_back(item.identifier);
    }
    for (const auto& [kind, identifiers] : records)
        Q_EMIT recordsChanged(kind, identifiers);
    if (hasLists) Q_EMIT listsChanged();
}

// SPDX-License-Identifier: GPL-3.0-or-later

#include "journal/StepSummary.h"

#include "journal/JournalTexts.h"
#include "util/ReadableLine.h"

using namespace Qt::StringLiterals;

namespace {

/// Several records, such as `3 Documents`.
QString recordsOf(const StepSummary& step)
{
    const int count = static_cast<int>(step.rows);
    if (step.isMixed) return JournalTexts::tr("%n Records", nullptr, count);
    if (step.kind == u"Document") return JournalTexts::tr("%n Documents", nullptr, count);
    if (step.kind == u"Event") return JournalTexts::tr("%n Events", nullptr, count);
    return JournalTexts::tr("%n Organizations", nullptr, count);
}

QString objectOf(const StepSummary& step)
{
    if (step.rows > 1) return recordsOf(step);
    const QString title = readableLine(step.title);
    if (step.action == JournalAction::List) {
        // the words for the entries are texts of the room of the lists
        const QString word = QCoreApplication::translate("Lists", step.entryWord.toUtf8().constData());
        return JournalTexts::tr("%1 \"%2\"", "an entry of a list").arg(word, title);
    }
    if (step.kind == u"Document") return JournalTexts::tr("Document \"%1\"").arg(title);
    if (step.kind == u"Event") return JournalTexts::tr("Event \"%1\"").arg(title);
    return JournalTexts::tr("Organization \"%1\"").arg(title);
}

/// The operation of a list as the action of a record; a merge has none.
std::optional<JournalAction> actionOf(const StepSummary& step)
{
    if (step.action != JournalAction::List) return step.action;
    if (step.listOperation == u"merge") return std::nullopt;
    return Journal::actionOf(step.listOperation);
}

QString undoFrame(std::optional<JournalAction> action)
{
    if (!action) return JournalTexts::tr("Undo Merge of %1");
    switch (*action) {
    case JournalAction::Add:
        return JournalTexts::tr("Undo Add of %1");
    case JournalAction::Delete:
        return JournalTexts::tr("Undo Delete of %1");
    case JournalAction::Restore:
        return JournalTexts::tr("Undo Restore of %1");
    default:
        return JournalTexts::tr("Undo Change of %1");
    }
}

QString redoFrame(std::optional<JournalAction> action)
{
    if (!action) return JournalTexts::tr("Redo Merge of %1");
    switch (*action) {
    case JournalAction::Add:
        return JournalTexts::tr("Redo Add of %1");
    case JournalAction::Delete:
        return JournalTexts::tr("Redo Delete of %1");
    case JournalAction::Restore:
        return JournalTexts::tr("Redo Restore of %1");
    default:
        return JournalTexts::tr("Redo Change of %1");
    }
}

QString undoneFrame(std::optional<JournalAction> action)
{
    if (!action) return JournalTexts::tr("Undone: Merge of %1");
    switch (*action) {
    case JournalAction::Add:
        return JournalTexts::tr("Undone: Add of %1");
    case JournalAction::Delete:
        return JournalTexts::tr("Undone: Delete of %1");
    case JournalAction::Restore:
        return JournalTexts::tr("Undone: Restore of %1");
    default:
        return JournalTexts::tr("Undone: Change of %1");
    }
}

QString redoneFrame(std::optional<JournalAction> action)
{
    if (!action) return JournalTexts::tr("Redone: Merge of %1");
    switch (*action) {
    case JournalAction::Add:
        return JournalTexts::tr("Redone: Add of %1");
    case JournalAction::Delete:
        return JournalTexts::tr("Redone: Delete of %1");
    case JournalAction::Restore:
        return JournalTexts::tr("Redone: Restore of %1");
    default:
        return JournalTexts::tr("Redone: Change of %1");
    }
}

} // namespace

QString StepTexts::undo(const StepSummary& step)
{
    return undoFrame(actionOf(step)).arg(objectOf(step));
}

QString StepTexts::redo(const StepSummary& step)
{
    return redoFrame(actionOf(step)).arg(objectOf(step));
}

QString StepTexts::undone(const StepSummary& step)
{
    return undoneFrame(actionOf(step)).arg(objectOf(step));
}

QString StepTexts::redone(const StepSummary& step)
{
    return redoneFrame(actionOf(step)).arg(objectOf(step));
}

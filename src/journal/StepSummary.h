// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "journal/Journal.h"

#include <QString>

/// What a step did, as far as its name tells. The record or entry is the one of the step's first row.
struct StepSummary
{
    qint64 number = 0;
    JournalAction action = JournalAction::Change;
    QString kind; ///< the table of a kind of record or, of a list, its own
    qint64 identifier = 0;
    QString title;
    qint64 rows = 1;         ///< how many records it changed; 1 for a list
    bool isMixed = false;    ///< whether the records are of several kinds
    QString listOperation{}; ///< of a list: `add`, `change`, `merge` or `delete`
    QString entryWord{};     ///< of a list: the word for an entry, not translated
};

/// The texts of a step, for menus, tool-tips and messages, without `&`.
namespace StepTexts {

/// Such as `Undo Delete of 3 Documents` or `Undo Merge of Venue "Capitol"`.
[[nodiscard]] QString undo(const StepSummary& step);

/// The same with `Redo`.
[[nodiscard]] QString redo(const StepSummary& step);

/// What was done, such as `Undone: Delete of 3 Documents`.
[[nodiscard]] QString undone(const StepSummary& step);

/// The same with `Redone`.
[[nodiscard]] QString redone(const StepSummary& step);

} // namespace StepTexts

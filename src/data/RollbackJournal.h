// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>

/// The file in which SQLite keeps what it needs to undo a change that was not finished, beside the
/// database of that path. Symbolic links are followed, as SQLite does.
[[nodiscard]] QString rollbackJournalOf(const QString& database);

/// Throws Error if the journal beside a database names another file: after SQLite has undone a change to
/// several databases, it deletes the file that their journals name, whatever that is.
void refuseForeignJournal(const QString& database);

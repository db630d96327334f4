#pragma once

#include <QString>

/// The file in which the engine keeps what it needs to undo a change that was not finished, beside the
/// database of that path. Symbolic links are followed, as the engine does.
[[nodiscard]] QString rollbackJournalOf(const QString& database);

/// Throws Error if the journal beside a database names a file of its own: when the engine has undone a change
/// to several databases, it deletes the file that the journal of each of them names, whatever that is.
void refuseForeignJournal(const QString& database);

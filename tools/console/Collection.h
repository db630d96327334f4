// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "data/DatabaseSession.h"
#include "data/RecordKind.h"
#include "files/ProgramFolder.h"
#include "opening/StartRequest.h"

#include <QString>

namespace console {

/// The database that a user means who names a collection's folder, its data folder or the file itself, by an
/// absolute path. Throws Error if there is none, or if it is an Access file.
[[nodiscard]] QString databaseOf(const QString& collection);

/// The folder that the files of a database are in.
[[nodiscard]] ProgramFolder folderOf(const QString& database);

/// Opens a collection so that nothing can change it, its folder included. Throws Error.
void openForReading(DatabaseSession& session, const QString& collection);

/// A folder that is to become a collection.
struct NewFolder
{
    QString place; ///< the folder around it
    QString name;

    /// Throws Error if there is something of that name, in any letter case, or if it cannot be the name of a
    /// collection.
    [[nodiscard]] static NewFolder at(const QString& path);
};

/// The absolute path of a file that is to be written. Throws Error if there is something of that name
/// already, or no folder for it.
[[nodiscard]] QString newFileAt(const QString& path);

/// What the tool calls a kind of record, such as `documents`.
[[nodiscard]] QString wordOf(RecordKind kind);

/// Throws Error for a text that is no kind of record, or no record such as `events:7`.
[[nodiscard]] RecordKind kindOf(const QString& word);
[[nodiscard]] RecordReference recordOf(const QString& text);

/// Throws Error that says that a collection has no such record.
[[noreturn]] void refuseMissing(const RecordReference& record);

} // namespace console

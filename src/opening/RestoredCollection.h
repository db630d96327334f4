// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "backup/Manifest.h"
#include "files/ProgramFolder.h"

#include <QString>

#include <optional>

class WorkRunner;

/// A new collection that is made of a backup.
namespace RestoredCollection {

struct Options
{
    QString name; ///< of the new collection; if empty, as it was called when backed up
    std::optional<ProgramFolder> filesFrom =
        std::nullopt; ///< whose files are copied if the backup holds the database alone
};

struct Made
{
    QString database;
    Manifest manifest; ///< what was restored and compared; without the files brought along from elsewhere
};

/// The collection whose files a backup needs: the one that keeps it, if it holds the database alone. Throws
/// Error if it cannot be read.
[[nodiscard]] std::optional<ProgramFolder> filesFor(const QString& archive);

/// Makes a collection in a place, with a number after its name if that is taken. It has its name only once
/// everything in it was compared with what was backed up. The archive, and the collection whose files are
/// copied, are only read.
///
/// Returns std::nullopt if the user cancelled it. Throws Error. Unless a collection is returned, nothing of
/// it is left.
[[nodiscard]] std::optional<Made> make(WorkRunner& works, const QString& archive, const QString& place,
                                       const Options& options = {});

} // namespace RestoredCollection

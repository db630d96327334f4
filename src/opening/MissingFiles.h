// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QStringList>

class DatabaseSession;
class ProgramFolder;

/// The records whose files are not in the folders of a database. Deleted records do not count.
struct MissingFiles
{
    /// Looks for the files of all records, whatever the letter case of their names. Throws Error.
    static MissingFiles count(DatabaseSession& session, const ProgramFolder& folder);

    /// What the user should know of them: one line for each kind of record, none if nothing is missing.
    [[nodiscard]] QStringList lines() const;

    int documents = 0;
    int charts = 0;
};

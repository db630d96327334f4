// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>
#include <QStringList>

#include <optional>
#include <vector>

/// What a database that shares its folder with others takes to a folder of its own.
struct FolderMove
{
    QString database;   ///< the path of its file, which keeps its name
    QString working;    ///< the new folder until all is in it
    QString target;     ///< the new folder after that
    QStringList copied; ///< files that others may need too, relative to the data folder
    QStringList moved;  ///< files that are its own, likewise
};

/// A database that stays where it is although it should move.
struct FailedMove
{
    QString database;
    QString reason;
};

/// How the databases of one data folder come to have folders of their own. While it is carried out the plan
/// lies in a file, so that a program that was killed goes on with the same one.
struct SplitPlan
{
    QString stays; ///< the path of the database that keeps the folder
    std::vector<FolderMove> moves;
    std::vector<FailedMove> failed; ///< not in the file: it is tried again

    /// The plan of a file; std::nullopt if there is none.
    static std::optional<SplitPlan> load(const QString& file);

    /// Writes the file, whole or not at all. Throws Error.
    void save(const QString& file) const;
};

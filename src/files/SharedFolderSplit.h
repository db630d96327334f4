// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "files/SplitPlan.h"
#include "util/Error.h"

#include <QString>

#include <optional>
#include <vector>

/// A database that has a folder of its own now.
struct MovedDatabase
{
    QString from;
    QString to;
};

/// Parts the databases of a data folder, so that no two share its files: one keeps the folder, each other
/// moves to a folder of its own with the files that only its records name, and with copies of those that
/// others name too. What no record names stays.
///
/// Each file is whole in one of the two places at every moment, and nothing is overwritten. A split that was
/// interrupted is finished by the next one. Two processes do not do it at once.
class SharedFolderSplit
{
public:
    /// `dataFolder` holds the databases; new folders are made in `place`. Both are absolute paths.
    SharedFolderSplit(const QString& dataFolder, QString place);

    struct Result
    {
        QString stays; ///< the database that keeps the folder; empty if there was nothing to do
        std::vector<MovedDatabase> moved;
        std::vector<FailedMove> failed;
        int movedFiles = 0;
        int copiedFiles = 0;
    };

    /// Does what an earlier split left, then all that there is to do. `preferred` keeps the folder if it is
    /// in it, else `opened` does. A folder that cannot be written is left alone. Throws Error if another
    /// process is doing this and does not end soon.
    Result run(const QString& opened, const QString& preferred);

private:
    void carryOut(SplitPlan plan, Result& result);
    void save(SplitPlan plan) const;
    [[nodiscard]] bool leave(const FolderMove& move, Result& result) const;
    [[nodiscard]] std::optional<Error> takeFiles(FolderMove& move) const;
    void removeEmptyFolders(const QStringList& files) const;
    void nameFolder(SplitPlan& plan, std::size_t index) const;

    QString m_data; ///< ends with `/`
    QString m_place;
    QString m_planFile;                   ///< of a split that is not finished
    std::vector<FolderMove> m_unfinished; ///< what has failed after the database has moved
};

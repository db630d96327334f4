// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "files/ProgramFolder.h"

#include <QDateTime>
#include <QString>

#include <memory>
#include <optional>
#include <vector>

class SteppedWork;

/// The backups of its database that a collection keeps by itself, in a folder `backups` beside its `data`.
class KeptBackups
{
public:
    struct Kept
    {
        QString file;
        QDateTime made; ///< local time, to the second
        qint64 size = 0;
    };

    explicit KeptBackups(const ProgramFolder& folder);

    [[nodiscard]] const QString& folder() const { return m_folder; }

    /// The newest first. Files of other names are not listed and never touched.
    [[nodiscard]] std::vector<Kept> list() const;

    /// Whether this process may write to the folder, or make it.
    [[nodiscard]] bool canBeAdded() const;

    /// The work that adds a backup of the database in `folder`; `tidy` follows once it is done. Throws Error
    /// if it cannot begin. If it fails or is given up, the backups are as they were.
    [[nodiscard]] std::unique_ptr<SteppedWork> work(const QString& database, const ProgramFolder& folder,
                                                    const QDateTime& now) const;

    /// Removes the backups that are kept no longer, what a killed program left of others, and the folder if
    /// it is empty. Never fails. Backups of a time to come stay: the clock was put back since, and what is
    /// made now must not go before them.
    void tidy(const QDateTime& now) const;

    /// Adds a backup of the database without a window, and tidies. Throws Error as `work` and its steps do.
    void add(const QString& database, const ProgramFolder& folder, const QDateTime& now) const;

    /// Those of `backups`, the newest first, that are kept no longer: all but the newest ten and the last one
    /// of each month.
    [[nodiscard]] static std::vector<Kept> dispensable(const std::vector<Kept>& backups);

    /// The collection that keeps a backup, judged by the place of its file; std::nullopt if it lies
    /// elsewhere.
    [[nodiscard]] static std::optional<ProgramFolder> keeperOf(const QString& backup);

private:
    QString m_folder;
};

// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QDateTime>
#include <QString>

#include <memory>
#include <vector>

class CollectionBackup;
class ProgramFolder;

/// The backups of its database that a collection keeps by itself, in a folder `backups` beside its `data`;
/// for a database that is used in another folder, beside the database.
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

    /// The work that adds a backup of the database. Throws Error.
    [[nodiscard]] std::unique_ptr<CollectionBackup> work(const QString& database, const ProgramFolder& folder,
                                                         const QDateTime& now) const;

    /// Removes those that are kept no longer, and the folder if there are none. Never fails.
    void tidy() const;

    /// Which of these are kept: the newest ten, and the last one of each month. `backups` are the newest
    /// first.
    [[nodiscard]] static std::vector<Kept> dispensable(const std::vector<Kept>& backups);

private:
    QString m_folder;
};

// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QDateTime>
#include <QString>

#include <vector>

class ProgramFolder;

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

    /// Adds a backup of the database, and removes those that are kept no longer. Throws Error if the backup
    /// cannot be made; those that are there are then as they were.
    void add(const QString& database, const ProgramFolder& folder, const QDateTime& now) const;

    /// Which of these are kept: the newest ten, and the last one of each month. `backups` are the newest
    /// first.
    [[nodiscard]] static std::vector<Kept> dispensable(const std::vector<Kept>& backups);

private:
    QString m_folder;
};

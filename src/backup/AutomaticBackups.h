// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "backup/KeptBackups.h"
#include "files/ProgramFolder.h"
#include "platform/Platform.h"

#include <QDateTime>
#include <QString>

#include <vector>

class DatabaseSession;

/// Backs up a database by itself: before something that changes many records, and when it is closed. A backup
/// that takes long shows its progress, and the user can go on without it. If it cannot be made, a message
/// says why; nothing is stopped.
class AutomaticBackups
{
public:
    /// `folder` is that of the database. The doors of the platform must outlive the object.
    AutomaticBackups(const Platform& platform, QString database, ProgramFolder folder)
        : m_platform(platform), m_database(std::move(database)), m_folder(std::move(folder))
    {
    }

    /// Backs up before a change to so many records, unless they are few.
    void beforeChange(qint64 records) const;

    /// Backs up before another database takes the place of this one.
    void beforeReplacement() const;

    /// Backs up the database that is open in the session, at most once a day, if it was changed since the
    /// newest backup. If nothing can be written there, nothing is said either: the user could not help it.
    void atExit(DatabaseSession& session) const;

    /// Whether a backup is due at exit, by those that are kept. The moment of the last change is invalid if
    /// there was none; all moments are in local time.
    [[nodiscard]] static bool isDue(const std::vector<KeptBackups::Kept>& kept, const QDateTime& lastChange,
                                    const QDateTime& now);

private:
    void backUp(const QString& remark, const QString& comfort) const;

    Platform m_platform;
    QString m_database;
    ProgramFolder m_folder;
};

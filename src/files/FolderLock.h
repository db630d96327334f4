// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>

#ifndef Q_OS_UNIX
#include <QLockFile>
#endif

#include <chrono>

/// Keeps other processes that ask for the same lock away from a folder. The system lets go of it if the
/// process is killed; nothing is left in the folder.
class FolderLock
{
public:
    explicit FolderLock(QString folder);
    ~FolderLock();
    FolderLock(const FolderLock&) = delete;
    FolderLock& operator=(const FolderLock&) = delete;

    /// Takes the lock; returns false if another process does not let go of it in time. On a file system that
    /// knows no locks there is nothing to wait for.
    [[nodiscard]] bool tryLock(std::chrono::milliseconds patience);

private:
#ifdef Q_OS_UNIX
    QString m_folder;
    int m_descriptor = -1;
#else
    QLockFile m_file;
#endif
};

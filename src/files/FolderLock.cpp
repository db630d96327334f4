// SPDX-License-Identifier: GPL-3.0-or-later

#include "files/FolderLock.h"

#ifdef Q_OS_UNIX

#include <QDeadlineTimer>
#include <QFile>
#include <QThread>

#include <cerrno>
#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

FolderLock::FolderLock(QString folder) : m_folder(std::move(folder)) {}

FolderLock::~FolderLock()
{
    if (m_descriptor >= 0) ::close(m_descriptor);
}

bool FolderLock::tryLock(std::chrono::milliseconds patience)
{
    constexpr unsigned long pauseMilliseconds = 20;
    // the folder itself is locked: a lock file that a killed process left could not be told from one in use
    m_descriptor = ::open(QFile::encodeName(m_folder).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    const QDeadlineTimer deadline(patience);
    while (::flock(m_descriptor, LOCK_EX | LOCK_NB) != 0) {
        if (errno != EWOULDBLOCK && errno != EINTR) return true;
        if (deadline.hasExpired()) return false;
        QThread::msleep(pauseMilliseconds);
    }
    return true;
}

#else

FolderLock::FolderLock(QString folder) : m_file(std::move(folder) + QStringLiteral("/.moving.lock")) {}

FolderLock::~FolderLock() = default;

bool FolderLock::tryLock(std::chrono::milliseconds patience)
{
    return m_file.tryLock(static_cast<int>(patience.count())) || m_file.error() != QLockFile::LockFailedError;
}

#endif

// SPDX-License-Identifier: GPL-3.0-or-later

#include "files/UnfinishedFile.h"

#include "files/FileBlocks.h"
#include "files/FilesTexts.h"
#include "util/Error.h"

#include <QFile>
#include <QFileInfo>

#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

namespace {

[[noreturn]] void fail(int number, const QString& file)
{
    FileBlocks::fail(number, FileBlocks::pathOf(file));
}

/// Where a link leads to, if there is something; otherwise the file itself.
QString targetOf(const QString& file)
{
    const QFileInfo found(file);
    return found.isSymLink() && found.exists() ? found.canonicalFilePath() : file;
}

} // namespace

/// The lock says that somebody is at it; the end of the process that holds it frees it.
void UnfinishedFile::clearLeftOver(const QString& file)
{
    const QByteArray name = QFile::encodeName(unfinishedName(file));
    const int descriptor = ::open(name.constData(), O_WRONLY | O_CLOEXEC | O_NONBLOCK);
    if (descriptor < 0) return;
    const bool isInUse = ::flock(descriptor, LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK;
    if (!isInUse) ::unlink(name.constData());
    ::close(descriptor);
}

UnfinishedFile::UnfinishedFile(const QString& file)
    : m_file(targetOf(file)), m_unfinished(unfinishedName(m_file))
{
    mode_t permissions = 0666; // less what the user's umask takes away
    struct stat before = {};
    const bool isThere = ::stat(QFile::encodeName(m_file).constData(), &before) == 0;
    if (isThere && S_ISDIR(before.st_mode)) fail(EISDIR, file);
    if (isThere && !QFileInfo(m_file).isWritable()) fail(EACCES, file);
    if (isThere) permissions &= before.st_mode;
    clearLeftOver(m_file);
    const QByteArray name = QFile::encodeName(m_unfinished);
    m_descriptor = ::open(name.constData(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, permissions);
    if (m_descriptor < 0 && errno == EEXIST)
        throw Error(EBUSY, FilesTexts::tr("Another program is just writing this file. (%1)").arg(file));
    if (m_descriptor < 0) fail(errno, m_file);
    // not every file system can do these
    if (isThere) ::fchmod(m_descriptor, permissions);
    ::flock(m_descriptor, LOCK_EX | LOCK_NB);
}

UnfinishedFile::~UnfinishedFile()
{
    if (m_descriptor < 0) return;
    ::close(m_descriptor);
    QFile::remove(m_unfinished);
}

void UnfinishedFile::write(std::string_view content)
{
    while (!content.empty()) {
        const ssize_t written = ::write(m_descriptor, content.data(), content.size());
        if (written < 0 && errno == EINTR) continue;
        if (written <= 0) fail(written < 0 ? errno : ENOSPC, m_file);
        content.remove_prefix(static_cast<std::size_t>(written));
    }
}

void UnfinishedFile::finish()
{
    if (::fsync(m_descriptor) != 0) fail(errno, m_file);
    if (std::rename(QFile::encodeName(m_unfinished).constData(), QFile::encodeName(m_file).constData()) != 0)
        fail(errno, m_file);
    ::close(std::exchange(m_descriptor, -1));
    FileBlocks::syncFolder(FileBlocks::pathOf(QFileInfo(m_file).absolutePath()));
}

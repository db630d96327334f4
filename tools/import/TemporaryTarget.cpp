// SPDX-License-Identifier: GPL-3.0-or-later

#include "TemporaryTarget.h"

#include "ImportError.h"

#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <filesystem>
#include <random>
#include <sys/file.h>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>

namespace accessimport {

namespace {

constexpr const char* suffix = ".part";
constexpr std::size_t letterCount = 8;

std::string systemMessage(int number)
{
    return std::generic_category().message(number);
}

[[noreturn]] void failToWrite(const std::string& path, int number)
{
    throw ImportError(ExitStatus::TargetUnwritable,
                      "Cannot write " + path + ": " + systemMessage(number) + ".");
}

bool exists(const std::string& path)
{
    struct stat status = {};
    return ::lstat(path.c_str(), &status) == 0;
}

std::filesystem::path folderOf(const std::string& path)
{
    const std::filesystem::path folder = std::filesystem::path(path).parent_path();
    return folder.empty() ? std::filesystem::path(".") : folder;
}

std::string randomLetters()
{
    std::random_device source;
    std::uniform_int_distribution<int> letter('a', 'z');
    std::string letters;
    while (letters.size() < letterCount)
        letters += static_cast<char>(letter(source));
    return letters;
}

void syncFolder(const std::string& path)
{
    const int folder = ::open(folderOf(path).c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (folder < 0) return;
    ::fsync(folder);
    ::close(folder);
}

/// Not every file system can rename without replacing; there a check has to do.
int renameToFreeName(const std::string& from, const std::string& to)
{
    if (::renameat2(AT_FDCWD, from.c_str(), AT_FDCWD, to.c_str(), RENAME_NOREPLACE) == 0) return 0;
    if (errno != EINVAL && errno != ENOSYS) return errno;
    if (exists(to)) return EEXIST;
    return ::rename(from.c_str(), to.c_str()) == 0 ? 0 : errno;
}

} // namespace

TemporaryTarget::TemporaryTarget(const std::string& target, bool replace)
    : m_target(target), m_replace(replace)
{
    struct stat status = {};
    const bool isThere = ::stat(target.c_str(), &status) == 0;
    if (isThere && !S_ISREG(status.st_mode))
        throw ImportError(ExitStatus::TargetUnwritable, "Cannot write " + target + ": it is not a file.");
    if (!replace && exists(target)) throw ImportError(ExitStatus::TargetExists, target + " exists already.");
    removeLeftovers();
    create();
}

TemporaryTarget::~TemporaryTarget()
{
    if (!m_path.empty()) {
        ::unlink(m_path.c_str());
        ::unlink((m_path + "-journal").c_str());
    }
    if (m_descriptor >= 0) ::close(m_descriptor);
}

void TemporaryTarget::removeLeftovers() const
{
    const std::string start = std::filesystem::path(m_target).filename().string() + '.';
    std::error_code ignored;
    for (std::filesystem::directory_iterator entry(folderOf(m_target), ignored), end; entry != end;
         entry.increment(ignored)) {
        const std::string name = entry->path().filename().string();
        const bool isOurs = name.starts_with(start) && name.ends_with(suffix) &&
                            name.size() == start.size() + letterCount + std::string_view(suffix).size();
        if (!isOurs) continue;
        const int left = ::open(entry->path().c_str(), O_RDONLY | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK);
        if (left < 0) continue;
        if (::flock(left, LOCK_EX | LOCK_NB) == 0) ::unlink(entry->path().c_str());
        ::close(left);
    }
}

void TemporaryTarget::create()
{
    while (m_descriptor < 0) {
        const std::string path = m_target + '.' + randomLetters() + suffix;
        m_descriptor = ::open(path.c_str(), O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
        if (m_descriptor < 0 && errno != EEXIST) failToWrite(m_target, errno);
        if (m_descriptor >= 0) m_path = path;
    }
    // If a file system has no locks, leftovers are not told apart and stay.
    ::flock(m_descriptor, LOCK_EX | LOCK_NB);
}

void TemporaryTarget::publish()
{
    if (::fsync(m_descriptor) != 0) failToWrite(m_target, errno);
    // A journal that belongs to the replaced database would be played back into the new one.
    if (m_replace)
        for (const char* companion : {"-journal", "-wal", "-shm"})
            ::unlink((m_target + companion).c_str());
    const int failure = m_replace ? (::rename(m_path.c_str(), m_target.c_str()) == 0 ? 0 : errno)
                                  : renameToFreeName(m_path, m_target);
    if (failure == EEXIST) throw ImportError(ExitStatus::TargetExists, m_target + " exists already.");
    if (failure != 0) failToWrite(m_target, failure);
    m_path.clear();
    syncFolder(m_target);
}

} // namespace accessimport

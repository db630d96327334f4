// SPDX-License-Identifier: GPL-3.0-or-later

#include "SourceFile.h"

#include "FileHeader.h"
#include "ImportError.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>

namespace accessimport {

namespace {

constexpr std::size_t cachedPages = 256;

std::string systemMessage(int number)
{
    return std::generic_category().message(number);
}

/// Not to touch the access time is allowed to the owner only; anyone else opens the plain way. Without
/// O_NONBLOCK a pipe in the file's place would hold the process up.
int openForReading(const std::string& path)
{
    constexpr int flags = O_RDONLY | O_CLOEXEC | O_NONBLOCK;
    const int descriptor = ::open(path.c_str(), flags | O_NOATIME);
    return descriptor < 0 && errno == EPERM ? ::open(path.c_str(), flags) : descriptor;
}

} // namespace

SourceFile::SourceFile(const std::string& path) : m_descriptor(openForReading(path)), m_cache(cachedPages)
{
    if (m_descriptor < 0)
        throw ImportError(ExitStatus::SourceUnreadable,
                          "Cannot read " + path + ": " + systemMessage(errno) + ".");
    try {
        judge(path);
    } catch (...) {
        ::close(m_descriptor);
        throw;
    }
}

SourceFile::~SourceFile()
{
    ::close(m_descriptor);
}

void SourceFile::judge(const std::string& path)
{
    struct stat status = {};
    if (::fstat(m_descriptor, &status) != 0)
        throw ImportError(ExitStatus::SourceUnreadable,
                          "Cannot read " + path + ": " + systemMessage(errno) + ".");
    if (!S_ISREG(status.st_mode))
        throw ImportError(ExitStatus::SourceUnreadable, "Cannot read " + path + ": it is not a file.");

    Page first{};
    const ssize_t got = ::pread(m_descriptor, first.data(), first.size(), 0);
    if (got < 0)
        throw ImportError(ExitStatus::SourceUnreadable,
                          "Cannot read " + path + ": " + systemMessage(errno) + ".");
    m_kind = judgeFileHeader(Bytes(first.data(), static_cast<std::size_t>(got)));

    const auto size = static_cast<std::uint64_t>(status.st_size);
    if (size % pageSize != 0)
        throw ImportError(ExitStatus::Damaged,
                          "The file is cut short: it does not end at the end of a page.");
    if (size / pageSize < 3)
        throw ImportError(ExitStatus::Damaged, "The file is cut short: it holds no tables any more.");
    // A row or page reference has 24 bits for the page number.
    if (size / pageSize > 0x1000000)
        throw ImportError(ExitStatus::Damaged,
                          "The file is damaged: it is larger than an Access file can be.");
    m_pageCount = static_cast<std::uint32_t>(size / pageSize);
}

void SourceFile::readPage(std::uint32_t number, Page& into) const
{
    if (number >= m_pageCount)
        throw ImportError(ExitStatus::Damaged,
                          "The file is damaged or cut short: it has " + std::to_string(m_pageCount) +
                              " pages, but refers to page " + std::to_string(number) + ".");
    std::size_t done = 0;
    while (done < pageSize) {
        const off_t offset =
            static_cast<off_t>(number) * static_cast<off_t>(pageSize) + static_cast<off_t>(done);
        const ssize_t got = ::pread(m_descriptor, into.data() + done, pageSize - done, offset);
        if (got < 0 && errno == EINTR) continue;
        if (got < 0)
            throw ImportError(ExitStatus::SourceUnreadable, "Reading failed: " + systemMessage(errno) + ".");
        if (got == 0) throw ImportError(ExitStatus::Damaged, "The file became shorter while it was read.");
        done += static_cast<std::size_t>(got);
    }
}

const Page& SourceFile::page(std::uint32_t number)
{
    CachedPage& cached = m_cache[number % m_cache.size()];
    if (cached.number != number) {
        cached.number = UINT32_MAX;
        readPage(number, cached.content);
        cached.number = number;
    }
    return cached.content;
}

} // namespace accessimport

// SPDX-License-Identifier: GPL-3.0-or-later

#include "files/FileBlocks.h"

#include "util/Error.h"

#include <QFile>

#include <cerrno>
#include <utility>

#ifdef Q_OS_UNIX
#include <fcntl.h>
#include <unistd.h>
#endif

namespace fs = std::filesystem;

namespace {

/// More at once would keep a slow disk busy for too long when it is asked to have written it.
constexpr std::size_t mostUnsynced = 2 * FileBlocks::blockSize;

} // namespace

std::filesystem::path FileBlocks::pathOf(const QString& path)
{
    return {QFile::encodeName(path).toStdString()};
}

void FileBlocks::fail(int number, const fs::path& path)
{
    if (number == 0) number = EIO; // the library did not pass the reason on
    const std::string reason = std::generic_category().message(number);
    throw Error(number, QStringLiteral("%1 (%2)").arg(QString::fromLocal8Bit(reason.c_str()),
                                                      QFile::decodeName(path.c_str())));
}

bool FileBlocks::isOfReading(int number)
{
    return number == EIO || number == ENOENT || number == EACCES || number == EPERM || number == EISDIR ||
           number == EINVAL;
}

void FileBlocks::require(const std::error_code& code, const fs::path& path)
{
    if (code) fail(code.value(), path);
}

fs::file_status FileBlocks::statusOf(const fs::path& path)
{
    std::error_code code;
    const fs::file_status status = fs::status(path, code);
    if (!fs::status_known(status)) fail(code.value(), path);
    return status;
}

std::ifstream FileBlocks::open(const fs::path& file)
{
    const fs::file_status status = statusOf(file);
    if (!fs::exists(status)) fail(ENOENT, file);
    if (fs::is_directory(status)) fail(EISDIR, file);
    if (!fs::is_regular_file(status)) fail(EINVAL, file); // a pipe or device may never end
    std::ifstream stream(file, std::ios::binary);
    if (!stream) fail(errno, file);
    return stream;
}

std::ofstream FileBlocks::create(const fs::path& file)
{
    std::ofstream stream(file, std::ios::binary | std::ios::trunc);
    if (!stream) fail(errno, file);
    return stream;
}

std::string_view FileBlocks::read(std::ifstream& stream, std::string& buffer, const fs::path& file)
{
    buffer.resize(blockSize);
    errno = 0;
    stream.read(buffer.data(), static_cast<std::streamsize>(buffer.size()));
    if (stream.bad()) fail(errno, file);
    return {buffer.data(), static_cast<std::size_t>(stream.gcount())};
}

void FileBlocks::write(std::ofstream& stream, std::string_view content, const fs::path& file)
{
    errno = 0;
    stream.write(content.data(), static_cast<std::streamsize>(content.size()));
    if (!stream) fail(errno, file);
}

void FileBlocks::sync(std::ofstream& stream, const fs::path& file)
{
    errno = 0;
    stream.flush();
    if (!stream) fail(errno, file);
#ifdef Q_OS_UNIX
    const int descriptor = ::open(file.c_str(), O_RDONLY | O_CLOEXEC);
    if (descriptor < 0) fail(errno, file);
    const int failure = ::fsync(descriptor) == 0 ? 0 : errno;
    ::close(descriptor);
    if (failure != 0) fail(failure, file);
#endif
}

void FileBlocks::syncFolder(const fs::path& folder)
{
#ifdef Q_OS_UNIX
    const int descriptor = ::open(folder.c_str(), O_RDONLY | O_CLOEXEC);
    if (descriptor < 0) return;
    ::fsync(descriptor);
    ::close(descriptor);
#endif
}

void FileBlocks::finish(std::ofstream& stream, const fs::path& file)
{
    sync(stream, file);
    errno = 0;
    stream.close();
    if (!stream) fail(errno, file);
}

BlockWriter::BlockWriter(fs::path file) : m_file(std::move(file)), m_stream(FileBlocks::create(m_file)) {}

void BlockWriter::write(std::string_view content)
{
    FileBlocks::write(m_stream, content, m_file);
    m_unsynced += content.size();
    if (m_unsynced < mostUnsynced) return;
    FileBlocks::sync(m_stream, m_file);
    m_unsynced = 0;
}

void BlockWriter::finish()
{
    FileBlocks::finish(m_stream, m_file);
}

BlockCopy::BlockCopy(const fs::path& from, fs::path to)
    : m_from(from), m_to(std::move(to)), m_source(FileBlocks::open(from))
{
}

std::size_t BlockCopy::step()
{
    const std::string_view block = FileBlocks::read(m_source, m_buffer, m_from);
    if (!m_target) m_target.emplace(m_to);
    block.empty() ? m_target->finish() : m_target->write(block);
    return block.size();
}

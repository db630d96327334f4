// SPDX-License-Identifier: GPL-3.0-or-later

#include "files/FileCopy.h"

#include "files/FilesTexts.h"
#include "files/LinkTarget.h"
#include "util/Error.h"
#include "util/Logging.h"

#include <QFile>
#include <QRegularExpression>

#include <algorithm>
#include <cerrno>
#include <fstream>
#include <string>
#include <string_view>
#include <system_error>
#include <vector>

#ifdef Q_OS_UNIX
#include <fcntl.h>
#include <unistd.h>
#endif

namespace fs = std::filesystem;

namespace {

constexpr std::size_t blockSize = 1 << 20;

/// Prefixes of the names of unfinished copies; the name of the target follows.
constexpr auto uploadName = ".upload-";
constexpr auto replacedName = ".replaced-";

QString textOf(const fs::path& path)
{
    return QFile::decodeName(path.c_str());
}

[[noreturn]] void fail(int number, const fs::path& path)
{
    if (number == 0) number = EIO; // the library did not pass the reason on
    const std::string reason = std::generic_category().message(number);
    throw Error(number, QStringLiteral("%1 (%2)").arg(QString::fromLocal8Bit(reason.c_str()), textOf(path)));
}

void require(const std::error_code& code, const fs::path& path)
{
    if (code) fail(code.value(), path);
}

/// Removes what was not finished.
class Unfinished
{
public:
    /// The name stands beside the target, and is short: the target's own may be as long as names can be.
    Unfinished(const fs::path& target, const char* kind)
        : m_path(target.parent_path() / (kind + stemOf(target)))
    {
        remove();
    }
    ~Unfinished() { remove(); }
    Unfinished(const Unfinished&) = delete;
    Unfinished& operator=(const Unfinished&) = delete;

    [[nodiscard]] const fs::path& path() const { return m_path; }

private:
    static std::string stemOf(const fs::path& target)
    {
        constexpr std::size_t longest = 100;
        return target.stem().string().substr(0, longest);
    }

    void remove() const
    {
        std::error_code ignored;
        fs::remove_all(m_path, ignored);
    }

    fs::path m_path;
};

std::ifstream openFile(const fs::path& file)
{
    std::error_code code;
    const fs::file_status status = fs::status(file, code);
    if (!fs::exists(status)) fail(code ? code.value() : ENOENT, file);
    if (fs::is_directory(status)) fail(EISDIR, file);
    if (!fs::is_regular_file(status)) fail(EINVAL, file); // a pipe or device may never end
    std::ifstream stream(file, std::ios::binary);
    if (!stream) fail(errno, file);
    return stream;
}

std::ofstream createFile(const fs::path& file)
{
    std::ofstream stream(file, std::ios::binary | std::ios::trunc);
    if (!stream) fail(errno, file);
    return stream;
}

/// Closes a file and makes sure that it is on the disk before it gets its final name.
void finish(std::ofstream& stream, const fs::path& file)
{
    stream.close();
    if (!stream) fail(errno, file);
#ifdef Q_OS_UNIX
    const int descriptor = ::open(file.c_str(), O_RDONLY | O_CLOEXEC);
    if (descriptor < 0) fail(errno, file);
    const int failure = ::fsync(descriptor) == 0 ? 0 : errno;
    ::close(descriptor);
    if (failure != 0) fail(failure, file);
#endif
}

/// Hands the content of a file to `take`, block by block.
template <typename Take>
void readBlocks(const fs::path& file, Take&& take)
{
    std::ifstream source = openFile(file);
    std::vector<char> block(blockSize);
    for (;;) {
        errno = 0;
        source.read(block.data(), static_cast<std::streamsize>(block.size()));
        if (source.bad()) fail(errno, file);
        if (source.gcount() == 0) return;
        take(std::string_view(block.data(), static_cast<std::size_t>(source.gcount())));
    }
}

void write(std::ofstream& stream, std::string_view content, const fs::path& file)
{
    errno = 0;
    stream.write(content.data(), static_cast<std::streamsize>(content.size()));
    if (!stream) fail(errno, file);
}

void copyContent(const fs::path& from, const fs::path& to)
{
    std::ofstream target;
    readBlocks(from, [&](std::string_view block) {
        if (!target.is_open()) target = createFile(to);
        write(target, block, to);
    });
    if (!target.is_open()) target = createFile(to); // an empty file
    finish(target, to);
}

[[noreturn]] void refuse(const QString& what, const fs::path& path)
{
    throw Error(EINVAL, QStringLiteral("%1 (%2)").arg(what, textOf(path)));
}

/// The folders that are being copied, without links, the one that holds all others first.
using OpenFolders = std::vector<fs::path>;

void refuseLinkOut(const OpenFolders& open, const fs::path& entry)
{
    std::error_code code;
    const bool leadsOut = fs::is_symlink(fs::symlink_status(entry, code)) && fs::exists(entry, code) &&
                          !LinkTarget::liesIn(open.front(), entry);
    if (leadsOut) refuse(FilesTexts::tr("A link leads out of the folder"), entry);
}

void copyTree(const fs::path& from, const fs::path& to, OpenFolders& open)
{
    std::error_code code;
    const fs::path folder = fs::canonical(from, code);
    require(code, from);
    if (std::find(open.begin(), open.end(), folder) != open.end()) {
        refuse(FilesTexts::tr("A folder cannot be copied into itself"), from);
    }
    open.push_back(folder);
    fs::create_directory(to, code);
    require(code, to);
    fs::directory_iterator entries(from, code);
    require(code, from);
    for (const fs::directory_iterator end; entries != end; entries.increment(code)) {
        const fs::path& entry = entries->path();
        const fs::path target = to / entry.filename();
        refuseLinkOut(open, entry);
        fs::is_directory(entry, code) ? copyTree(entry, target, open) : copyContent(entry, target);
    }
    require(code, from);
    open.pop_back();
}

void move(const fs::path& from, const fs::path& to)
{
    std::error_code code;
    fs::rename(from, to, code);
    require(code, to);
}

void logCopy(const fs::path& from, const fs::path& to)
{
    qCInfo(filesLog).noquote() << "copied:" << textOf(from) << "to" << textOf(to);
}

} // namespace

std::string FileCopy::read(const fs::path& file)
{
    std::string content;
    readBlocks(file, [&content](std::string_view block) { content += block; });
    return content;
}

void FileCopy::requireReadable(const fs::path& file)
{
    openFile(file);
}

void FileCopy::copyFile(const fs::path& from, const fs::path& to)
{
    const Unfinished unfinished(to, uploadName);
    copyContent(from, unfinished.path());
    move(unfinished.path(), to);
    logCopy(from, to);
}

void FileCopy::writeFile(const std::string& content, const fs::path& to)
{
    const Unfinished unfinished(to, uploadName);
    std::ofstream target = createFile(unfinished.path());
    write(target, content, unfinished.path());
    finish(target, unfinished.path());
    move(unfinished.path(), to);
    qCInfo(filesLog).noquote() << "written:" << textOf(to);
}

void FileCopy::copyFolder(const fs::path& from, const fs::path& to)
{
    const Unfinished unfinished(to, uploadName);
    OpenFolders open;
    copyTree(from, unfinished.path(), open);
    const Unfinished replaced(to, replacedName);
    std::error_code code;
    const bool isThere = fs::exists(fs::symlink_status(to, code));
    if (isThere) move(to, replaced.path());
    fs::rename(unfinished.path(), to, code);
    if (code && isThere) move(replaced.path(), to);
    require(code, to);
    logCopy(from, to);
}

void FileCopy::clearUnfinished(const fs::path& folder)
{
    static const QRegularExpression name(QStringLiteral(R"(\A\.(upload|replaced)-[0-9]+(_files)?\z)"));
    std::vector<fs::path> found;
    std::error_code code;
    for (fs::directory_iterator entry(folder, code), end; !code && entry != end; entry.increment(code)) {
        if (name.match(textOf(entry->path().filename())).hasMatch()) found.push_back(entry->path());
    }
    for (const fs::path& path : found) {
        const std::string leftOver = path.filename().string();
        const fs::path target = folder / leftOver.substr(leftOver.find('-') + 1);
        const bool isOnlyOne =
            leftOver.starts_with(replacedName) && !fs::exists(fs::symlink_status(target, code));
        isOnlyOne ? fs::rename(path, target, code) : static_cast<void>(fs::remove_all(path, code));
    }
}

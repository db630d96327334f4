// SPDX-License-Identifier: GPL-3.0-or-later

#include "files/FileCopy.h"

#include "files/FileBlocks.h"
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

namespace fs = std::filesystem;

using FileBlocks::require;

namespace {

/// Prefixes of the names of unfinished copies; the name of the target follows.
constexpr auto uploadName = ".upload-";
constexpr auto replacedName = ".replaced-";

QString textOf(const fs::path& path)
{
    return QFile::decodeName(path.c_str());
}

/// Whether a name is that prefix with the name of a record's copy, without its ending.
bool isNamedAfterRecord(const char* prefix, const fs::path& name)
{
    static const QRegularExpression copy(QStringLiteral(R"(\A[0-9]+(_files)?\z)"));
    const QString text = textOf(name);
    const QLatin1String begin(prefix);
    return text.startsWith(begin) && copy.match(text.mid(begin.size())).hasMatch();
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

void copyContent(const fs::path& from, const fs::path& to)
{
    BlockCopy copy(from, to);
    while (copy.step() != 0) {
    }
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
    std::string buffer;
    std::ifstream stream = FileBlocks::open(file);
    for (;;) {
        const std::string_view block = FileBlocks::read(stream, buffer, file);
        if (block.empty()) return content;
        content += block;
    }
}

bool FileCopy::haveSameContent(const fs::path& file, const fs::path& other)
{
    std::error_code code;
    std::error_code otherCode;
    const bool mayBe = fs::file_size(file, code) == fs::file_size(other, otherCode) || code || otherCode;
    return mayBe && read(file) == read(other);
}

void FileCopy::requireReadable(const fs::path& file)
{
    FileBlocks::open(file);
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
    std::ofstream target = FileBlocks::create(unfinished.path());
    FileBlocks::write(target, content, unfinished.path());
    FileBlocks::finish(target, unfinished.path());
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

bool FileCopy::isUnfinished(const fs::path& name)
{
    return isNamedAfterRecord(uploadName, name);
}

void FileCopy::clearUnfinished(const fs::path& folder)
{
    std::vector<fs::path> found;
    std::error_code code;
    for (fs::directory_iterator entry(folder, code), end; !code && entry != end; entry.increment(code)) {
        const fs::path name = entry->path().filename();
        if (isUnfinished(name) || isNamedAfterRecord(replacedName, name)) found.push_back(entry->path());
    }
    for (const fs::path& path : found) {
        const std::string leftOver = path.filename().string();
        const fs::path target = folder / leftOver.substr(leftOver.find('-') + 1);
        const bool isOnlyOne =
            leftOver.starts_with(replacedName) && !fs::exists(fs::symlink_status(target, code));
        isOnlyOne ? fs::rename(path, target, code) : static_cast<void>(fs::remove_all(path, code));
    }
}

// SPDX-License-Identifier: GPL-3.0-or-later

#include "check/FindingSteps.h"

#include "check/CheckTexts.h"
#include "files/FileBlocks.h"
#include "files/FileCopy.h"
#include "files/ProgramFolder.h"
#include "journal/UploadedFiles.h"
#include "util/Error.h"

#include <QFile>
#include <QFileInfo>
#include <QStringList>

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <system_error>

namespace fs = std::filesystem;
using namespace Qt::StringLiterals;

namespace {

/// The place of a finding's file; it need not exist. Throws Error if that is not among the files of records.
fs::path placeOf(const ProgramFolder& folder, const QString& file)
{
    const QStringList parts = file.split(u'/');
    const bool isPlain = std::all_of(parts.begin(), parts.end(), &ProgramFolder::isPlainName);
    if (isPlain && parts.size() > 1) {
        const QString below = parts.mid(1).join(u'/');
        if (parts.front() == u"documents"_s)
            return FileBlocks::pathOf(folder.folderPath(ProgramFolders::documents) + below);
        if (parts.front() == u"orgcharts"_s)
            return FileBlocks::pathOf(folder.folderPath(ProgramFolders::organizationCharts) + below);
    }
    throw Error(EINVAL, CheckTexts::tr("This is no file of a record. (%1)").arg(file));
}

bool isThere(const fs::path& path)
{
    std::error_code code;
    return fs::exists(fs::symlink_status(path, code));
}

/// A name in the folder for what is put aside that nothing has yet. Makes the folders.
fs::path freePlace(const ProgramFolder& folder, const QString& file)
{
    const fs::path wanted = FileBlocks::pathOf(folder.folderPath(ProgramFolders::data) + u"aside/"_s + file);
    std::error_code code;
    fs::create_directories(wanted.parent_path(), code);
    FileBlocks::require(code, wanted.parent_path());
    fs::path place = wanted;
    for (int number = 2; isThere(place); ++number) {
        place = wanted;
        place.replace_filename(wanted.stem().string() + '-' + std::to_string(number) +
                               wanted.extension().string());
    }
    return place;
}

/// Removes a file that was made unless it is kept.
class Made
{
public:
    explicit Made(fs::path file) : m_file(std::move(file)) {}
    ~Made()
    {
        std::error_code ignored;
        if (!m_file.empty()) fs::remove(m_file, ignored);
    }
    Made(const Made&) = delete;
    Made& operator=(const Made&) = delete;

    void keep() { m_file.clear(); }

private:
    fs::path m_file;
};

} // namespace

QString FindingSteps::putAside(const ProgramFolder& folder, const QString& file)
{
    const fs::path from = placeOf(folder, file);
    if (!isThere(from)) FileBlocks::fail(ENOENT, from);
    const fs::path to = freePlace(folder, file);
    std::error_code code;
    fs::rename(from, to, code);
    FileBlocks::require(code, to);
    FileBlocks::syncFolder(to.parent_path());
    FileBlocks::syncFolder(from.parent_path());
    return QFile::decodeName(to.c_str());
}

void FindingSteps::bringBack(const ProgramFolder& folder, const QString& file, const QByteArray& sha256,
                             const QString& found)
{
    const fs::path place = placeOf(folder, file);
    const fs::path source = FileBlocks::pathOf(found);
    if (UploadedFiles::hashOf(source) != sha256)
        throw Error(EINVAL, CheckTexts::tr("The file does not hold what it should. (%1)").arg(found));
    std::error_code code;
    fs::create_directories(place.parent_path(), code);
    FileBlocks::require(code, place.parent_path());
    if (!isThere(place)) return FileCopy::copyFile(source, place);
    const fs::path aside = freePlace(folder, file);
    FileCopy::copyFile(place, aside);
    Made copy(aside);
    FileCopy::copyFile(source, place);
    copy.keep();
}

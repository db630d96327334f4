// SPDX-License-Identifier: GPL-3.0-or-later

#include "files/FileUpload.h"

#include "files/FileBlocks.h"
#include "files/FileCopy.h"
#include "files/FilesTexts.h"
#include "files/LinkTarget.h"
#include "files/WebPage.h"
#include "util/Error.h"
#include "util/FileStrings.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QUrl>

#include <cerrno>
#include <filesystem>
#include <system_error>

namespace fs = std::filesystem;

namespace {

constexpr QChar point = u'.';
const QString folderEnding = QStringLiteral("_files");

FileStrings partsOf(const QString& chosenPath)
{
    FileStrings parts;
    parts.CrackFileName(ProgramFolder::programForm(chosenPath));
    return parts;
}

/// The file that a chosen path means, whether it exists or not.
fs::path sourceOf(const QString& chosenPath)
{
    return FileBlocks::pathOf(FileUpload::existingFile(chosenPath).value_or(chosenPath));
}

/// A folder of that name beside a file, in any letter case; the exact one first.
std::optional<fs::path> folderBeside(const fs::path& file, const QString& name)
{
    std::error_code code;
    const fs::path exact = file.parent_path() / FileBlocks::pathOf(name);
    if (fs::is_directory(exact, code)) return exact;
    const fs::path surroundings = file.has_parent_path() ? file.parent_path() : fs::path(".");
    for (fs::directory_iterator entry(surroundings, code), end; !code && entry != end;
         entry.increment(code)) {
        const QString entryName = QFile::decodeName(entry->path().filename().c_str());
        if (entryName.compare(name, Qt::CaseInsensitive) == 0 && entry->is_directory(code))
            return entry->path();
    }
    return std::nullopt;
}

/// Refuses a folder that holds the one it would be copied into: the copy would never end.
void refuseHolderOf(const fs::path& target, const fs::path& folder)
{
    std::error_code code;
    const fs::path relative = fs::relative(target, folder, code);
    if (code || relative.empty() || *relative.begin() == "..") return;
    throw Error(
        EINVAL,
        FilesTexts::tr("A folder cannot be copied into itself (%1)").arg(QFile::decodeName(folder.c_str())));
}

/// Refuses a page's folder that is a link to somewhere else.
void refuseFolderElsewhere(const fs::path& folder)
{
    const fs::path surroundings = folder.has_parent_path() ? folder.parent_path() : fs::path(".");
    if (LinkTarget::liesIn(surroundings, folder)) return;
    throw Error(EINVAL, FilesTexts::tr("The page's folder is a link to another place (%1)")
                            .arg(QFile::decodeName(folder.c_str())));
}

/// The folder of the machine that a program folder stands for; created if it is missing.
QString targetFolder(const ProgramFolder& folder, const QString& programPath)
{
    QString path = folder.folderPath(programPath);
    QDir().mkpath(path); // if it fails, so does the copy, with the system's reason
    return path;
}

/// The files in a folder of a page, with the folder's own name before theirs. Throws Error.
QStringList filesBelow(const fs::path& folder)
{
    QStringList names;
    std::error_code code;
    for (fs::recursive_directory_iterator entry(folder, code), end; !code && entry != end;
         entry.increment(code)) {
        if (!fs::is_regular_file(FileBlocks::statusOf(entry->path()))) continue;
        const std::string path = entry->path().lexically_relative(folder.parent_path()).generic_string();
        const QString name = QFile::decodeName(path.c_str());
        // some names cannot be said in a text
        if (QFile::encodeName(name) == path.c_str()) names << name;
    }
    FileBlocks::require(code, folder);
    names.sort();
    return names;
}

} // namespace

QString FileUpload::extension(const QString& chosenPath)
{
    return partsOf(chosenPath).extension();
}

std::optional<QString> FileUpload::existingFile(const QString& chosenPath)
{
    if (chosenPath.isEmpty()) return std::nullopt;
    for (const QString& path : {chosenPath, QString(chosenPath).replace(u'\\', u'/')}) {
        std::error_code code;
        const fs::file_status status = fs::status(FileBlocks::pathOf(path), code);
        if (fs::exists(status) && !fs::is_directory(status)) return path;
    }
    return std::nullopt;
}

QString FileUpload::typedPath(const QString& text)
{
    if (existingFile(text)) return text;
    QString path = text;
    path.remove(u'\n').remove(u'\r');
    path = path.trimmed();
    const bool isQuoted =
        path.size() > 1 && path.front() == path.back() && (path.front() == u'"' || path.front() == u'\'');
    if (isQuoted) path = path.mid(1, path.size() - 2).trimmed();
    if (!path.startsWith(QStringLiteral("file://"), Qt::CaseInsensitive)) return path;
    return QUrl(path).toLocalFile();
}

void FileUpload::requireSource(const QString& chosenPath)
{
    FileCopy::requireReadable(sourceOf(chosenPath));
}

QStringList FileUpload::convertDocument(const QString& chosenPath, qint64 documentId) const
{
    const FileStrings parts = partsOf(chosenPath);
    const fs::path source = sourceOf(chosenPath);
    const QString oldFolder = parts.baseName() + folderEnding;
    const QString newFolder = QString::number(documentId) + folderEnding;
    const QString target = targetFolder(m_folder, ProgramFolders::documents) + QString::number(documentId);
    const std::optional<fs::path> folder = folderBeside(source, oldFolder);
    if (!folder) {
        const QString name = QString::number(documentId) + point + parts.extension();
        FileCopy::copyFile(source, FileBlocks::pathOf(target + point + parts.extension()));
        return {name};
    }
    refuseHolderOf(FileBlocks::pathOf(target).parent_path(), *folder);
    refuseFolderElsewhere(*folder);
    const QString folderName = QFile::decodeName(folder->filename().c_str());
    const std::string page =
        WebPage::withFolderRenamed(FileCopy::read(source), {oldFolder, folderName}, newFolder);
    FileCopy::copyFolder(*folder, FileBlocks::pathOf(target + folderEnding));
    FileCopy::writeFile(page, FileBlocks::pathOf(target + QStringLiteral(".htm")));
    return QStringList(QString::number(documentId) + QStringLiteral(".htm")) +
           filesBelow(FileBlocks::pathOf(target + folderEnding));
}

QString FileUpload::chartName(const QString& chosenPath, qint64 organizationId)
{
    return QString::number(organizationId) + point + extension(chosenPath);
}

void FileUpload::copyChart(const QString& chosenPath, qint64 organizationId) const
{
    const QString target =
        targetFolder(m_folder, ProgramFolders::organizationCharts) + chartName(chosenPath, organizationId);
    FileCopy::copyFile(sourceOf(chosenPath), FileBlocks::pathOf(target));
}

std::optional<QString> FileUpload::copyOfChart(const QString& chosenPath, qint64 organizationId) const
{
    const QString ending = extension(chosenPath);
    if (ending.isEmpty()) return storedChart(chosenPath, organizationId);
    return fileInCharts(QString::number(organizationId) + point + ending);
}

std::optional<QString> FileUpload::fileInCharts(const QString& text) const
{
    return m_folder.find(ProgramFolders::organizationCharts, text);
}

std::optional<QString> FileUpload::storedChart(const QString& chosenPath, qint64 organizationId) const
{
    const QString name = QString::number(organizationId) + point;
    const std::optional<QString> stored = fileInCharts(name + extension(chosenPath));
    return stored ? stored : fileInCharts(name + QStringLiteral("pdf"));
}

void FileUpload::clearUnfinished() const
{
    for (const QString& folder : {ProgramFolders::documents, ProgramFolders::organizationCharts})
        FileCopy::clearUnfinished(FileBlocks::pathOf(m_folder.folderPath(folder)));
}

// SPDX-License-Identifier: GPL-3.0-or-later

#include "files/ProgramFolder.h"

#include "files/FileBlocks.h"
#include "files/FilesTexts.h"
#include "files/FolderNames.h"
#include "files/LinkTarget.h"
#include "util/Error.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <cerrno>
#include <filesystem>

namespace {

/// On Windows a colon ends the name of a drive; elsewhere it may be part of a name.
#ifdef Q_OS_WIN
constexpr bool colonLeadsOut = true;
#else
constexpr bool colonLeadsOut = false;
#endif

[[noreturn]] void refuse(const QString& what, const QString& path)
{
    throw Error(errno, QStringLiteral("%1 (%2)").arg(what, path));
}

void makeFolder(const QString& path)
{
    if (!QDir().mkpath(path)) refuse(FilesTexts::tr("The folder cannot be made."), path);
}

void copyFolder(const QString& from, const QString& to)
{
    makeFolder(to);
    const QDir source(from);
    QDirIterator entries(from, QDir::Files | QDir::Dirs | QDir::NoDotAndDotDot, QDirIterator::Subdirectories);
    while (entries.hasNext()) {
        const QString entry = entries.next();
        const QString target = QDir(to).filePath(source.relativeFilePath(entry));
        if (entries.fileInfo().isDir()) {
            makeFolder(target);
            continue;
        }
        makeFolder(QFileInfo(target).path());
        if (!QFile::copy(entry, target)) refuse(FilesTexts::tr("The file cannot be copied."), target);
        QFile::setPermissions(target, QFile::permissions(target) | QFile::WriteOwner);
    }
}

/// The file or folder of that name in a folder, whatever the letter case of its name. The exact name comes
/// before one that is merely taken for it.
std::optional<QString> entryOf(const QString& folder, const QString& name, QDir::Filter kind)
{
    const QString exact = folder + u'/' + name;
    const QFileInfo file(exact);
    if (kind == QDir::Files ? file.isFile() : file.isDir()) return exact;
    const QString sought = FolderNames::comparable(name);
    std::optional<QString> other;
    QDirIterator entries(folder, kind | QDir::NoDotAndDotDot);
    while (entries.hasNext()) {
        const QString entry = entries.next();
        if (entries.fileName().compare(name, Qt::CaseInsensitive) == 0) return entry;
        if (kind == QDir::Files && FolderNames::comparable(entries.fileName()) == sought) other = entry;
    }
    return other;
}

} // namespace

QString ProgramFolder::choose(const Surroundings& surroundings)
{
    if (!surroundings.orvikHome.isEmpty()) return QDir::cleanPath(surroundings.orvikHome);
    if (QFileInfo(surroundings.executableFolder + QStringLiteral("/data")).isDir()) {
        return surroundings.executableFolder;
    }
    return surroundings.userDataFolder + QStringLiteral("/orvik");
}

bool ProgramFolder::fillFromSample(const QString& root, const QString& sample)
{
    if (QFileInfo::exists(root)) return false;
    makeFolder(QFileInfo(root).path());
    const QString unfinished = root + QStringLiteral(".new");
    QDir(unfinished).removeRecursively();
    const bool hasSample = QFileInfo(sample).isDir();
    if (hasSample) copyFolder(sample + QStringLiteral("/data"), unfinished + QStringLiteral("/data"));
    for (const QString& folder :
         {QStringLiteral("documents"), QStringLiteral("orgcharts"), QStringLiteral("maps")}) {
        makeFolder(unfinished + QStringLiteral("/data/") + folder);
    }
    if (!QDir().rename(unfinished, root)) refuse(FilesTexts::tr("The folder cannot be made."), root);
    return hasSample;
}

ProgramFolder ProgramFolder::ofDatabase(const QString& databaseFile) const
{
    const QString data = QFileInfo(databaseFile).absolutePath();
    ProgramFolder folder(QFileInfo(data).path(), m_installed);
    folder.m_data = data;
    return folder;
}

QString ProgramFolder::collection() const
{
    const bool isAround = m_data.isEmpty() || QFileInfo(m_data).fileName().compare(QStringLiteral("data"),
                                                                                   Qt::CaseInsensitive) == 0;
    return isAround ? m_root : m_data;
}

ProgramFolder::Place ProgramFolder::placeOf(const QString& programPath) const
{
    Place place{m_root, programPath.split(u'\\', Qt::SkipEmptyParts)};
    if (m_data.isEmpty() || place.below.value(0) != QStringLiteral("data")) return place;
    place.below.removeFirst();
    place.folder = m_data;
    return place;
}

QString ProgramFolder::machinePath(const QString& programPath) const
{
    const QString data = QStringLiteral("\\data");
    const bool isData = !m_data.isEmpty() && programPath.startsWith(data + u'\\');
    const QString below = isData ? programPath.mid(data.size()) : programPath;
    return (isData ? m_data : m_root) + QString(below).replace(u'\\', u'/');
}

QString ProgramFolder::folderPath(const QString& programPath) const
{
    auto [folder, parts] = placeOf(programPath);
    for (const QString& part : std::as_const(parts))
        folder = entryOf(folder, part, QDir::Dirs).value_or(folder + u'/' + part);
    return folder + u'/';
}

QString ProgramFolder::programForm(const QString& machinePath)
{
    return QString(machinePath).replace(u'/', u'\\');
}

std::optional<QString> ProgramFolder::find(const QString& programPath, const QString& fileName) const
{
    if (!isPlainName(fileName)) return std::nullopt;
    auto [folder, parts] = placeOf(programPath);
    for (const QString& part : std::as_const(parts)) {
        const auto next = entryOf(folder, part, QDir::Dirs);
        if (!next) return std::nullopt;
        folder = *next;
    }
    auto file = entryOf(folder, fileName, QDir::Files);
    if (file && !LinkTarget::liesIn(FileBlocks::pathOf(folder), FileBlocks::pathOf(*file)))
        return std::nullopt;
    return file;
}

std::optional<QString> ProgramFolder::findMap(const QString& fileName) const
{
    auto own = find(ProgramFolders::maps, fileName);
    if (own || m_installed.isEmpty()) return own;
    return ProgramFolder(m_installed).find(ProgramFolders::maps, fileName);
}

bool ProgramFolder::isPlainName(const QString& fileName)
{
    if (fileName.isEmpty() || fileName == QStringLiteral(".") || fileName == QStringLiteral(".."))
        return false;
    return std::none_of(fileName.begin(), fileName.end(), [](QChar c) {
        return c == u'/' || c == u'\\' || (colonLeadsOut && c == u':') ||
               c.category() == QChar::Other_Control;
    });
}

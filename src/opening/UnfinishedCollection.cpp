// SPDX-License-Identifier: GPL-3.0-or-later

#include "opening/UnfinishedCollection.h"

#include "files/CollectionNames.h"
#include "files/FileBlocks.h"
#include "opening/OpeningTexts.h"
#include "util/Error.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <cerrno>
#include <filesystem>
#include <system_error>

namespace {

QString markIn(const QString& folder)
{
    return folder + QStringLiteral("/unfinished.lock");
}

void requireDone(const std::error_code& code, const QString& path)
{
    if (!code) return;
    throw Error(code.value(), OpeningTexts::tr("The folder cannot be made: %1 (%2)")
                                  .arg(QString::fromLocal8Bit(code.message().c_str()), path));
}

void makeFolders(const QString& path)
{
    std::error_code code;
    std::filesystem::create_directories(FileBlocks::pathOf(path), code);
    requireDone(code, path);
}

/// The mark of a folder; only the end of the process that holds it frees it.
std::unique_ptr<QLockFile> markOf(const QString& folder)
{
    auto mark = std::make_unique<QLockFile>(markIn(folder));
    mark->setStaleLockTime(0);
    return mark;
}

} // namespace

UnfinishedCollection::UnfinishedCollection(const QString& place, const QString& name)
    : UnfinishedCollection(QDir::cleanPath(place))
{
    for (QString path = m_place; !QFileInfo::exists(path); path = QFileInfo(path).path())
        m_madeFolders << path;
    makeFolders(m_place);
    takeName(name);
    makeFolders(dataFolder());
}

UnfinishedCollection::~UnfinishedCollection()
{
    removeWork();
    for (const QString& made : std::as_const(m_madeFolders))
        QDir().rmdir(made); // fails if it holds the collection
}

/// Takes the first name that is free, whatever the letter case of the names there, by making the folder
/// around the unfinished collection.
void UnfinishedCollection::takeName(const QString& name)
{
    for (int number = 1;; ++number) {
        m_name = CollectionNames::variant(name, number);
        const QString work = workName(m_name);
        if (CollectionNames::isTaken(m_place, m_name) || CollectionNames::isTaken(m_place, work)) continue;
        const QString path = m_place + u'/' + work;
        std::error_code code;
        const bool isMade = std::filesystem::create_directory(FileBlocks::pathOf(path), code);
        requireDone(code, path);
        if (!isMade) continue; // somebody else was faster
        m_work = path;
        break;
    }
    m_mark = markOf(m_work);
    if (!m_mark->tryLock(0)) requireDone(std::make_error_code(std::errc::io_error), m_work);
}

void UnfinishedCollection::complete()
{
    for (const QString& folder : {QStringLiteral("documents"), QStringLiteral("orgcharts")})
        makeFolders(dataFolder() + folder);
    const QString target = m_place + u'/' + m_name;
    std::error_code code;
    if (QFileInfo::exists(target)) code = std::make_error_code(std::errc::file_exists);
    if (!code)
        std::filesystem::rename(FileBlocks::pathOf(m_work + u'/' + m_name), FileBlocks::pathOf(target), code);
    requireDone(code, target);
    removeWork();
}

void UnfinishedCollection::removeWork()
{
    if (m_work.isEmpty()) return;
    QDir(m_work + u'/' + m_name).removeRecursively();
    m_mark.reset();
    QDir().rmdir(m_work);
    m_work.clear();
}

void UnfinishedCollection::clearLeftOver(const QString& place)
{
    const QString ending = workName(QString());
    const QStringList names = QDir(place).entryList({u'*' + ending}, QDir::Dirs | QDir::NoSymLinks);
    for (const QString& name : names) {
        const QString work = QDir(place).filePath(name);
        if (!QFileInfo::exists(markIn(work))) {
            QDir().rmdir(work); // fails unless it is empty, as one is that could not be removed with the rest
            continue;
        }
        std::unique_ptr<QLockFile> mark = markOf(work);
        if (!mark->tryLock(0)) continue; // another program is at it
        QDir(work + u'/' + name.chopped(ending.size())).removeRecursively();
        mark.reset();
        QDir().rmdir(work);
    }
}

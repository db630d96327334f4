// SPDX-License-Identifier: GPL-3.0-or-later

#include "files/SharedFolderSplit.h"

#include "files/DatabaseFile.h"
#include "files/DatabaseLock.h"
#include "files/FileBlocks.h"
#include "files/FileCopy.h"
#include "files/FilesTexts.h"
#include "files/FolderLock.h"
#include "files/SplitPlanner.h"
#include "util/Error.h"
#include "util/FileAccess.h"
#include "util/Logging.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSet>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <filesystem>
#include <optional>
#include <system_error>

namespace fs = std::filesystem;

namespace {

constexpr std::chrono::seconds lockPatience{10};
const QString dataName = QStringLiteral("/data/");

/// Whether there is anything of that name, even a link that leads nowhere.
bool exists(const QString& path)
{
    std::error_code ignored;
    return fs::exists(fs::symlink_status(FileBlocks::pathOf(path), ignored));
}

void makeFolder(const QString& path)
{
    std::error_code code;
    fs::create_directories(FileBlocks::pathOf(path), code);
    FileBlocks::require(code, FileBlocks::pathOf(path));
}

void remove(const QString& path)
{
    std::error_code code;
    fs::remove(FileBlocks::pathOf(path), code);
    FileBlocks::require(code, FileBlocks::pathOf(path));
}

/// Makes sure that the names in a folder are on the disk before what they replace goes.
void sync(const QString& folder)
{
    FileBlocks::syncFolder(FileBlocks::pathOf(folder));
}

/// The place of a file in a new folder, whose own folders have the names that the program gives them.
QString newPath(const QString& root, const QString& file)
{
    const qsizetype end = file.indexOf(u'/');
    return root + dataName + file.left(end).toLower() + file.mid(end);
}

/// The same for the folders of files in a new data folder, and those above them.
void syncFolders(const QString& root, const QStringList& files)
{
    QSet<QString> folders{root + dataName + QStringLiteral("documents"),
                          root + dataName + QStringLiteral("orgcharts"), root + dataName, root,
                          QFileInfo(root).path()};
    for (const QString& file : files)
        folders.insert(QFileInfo(newPath(root, file)).path());
    for (const QString& folder : std::as_const(folders))
        sync(folder);
}

/// A file of that name that is there already keeps it; the other one then stays where it is.
void moveFile(const QString& from, const QString& to)
{
    if (!exists(from)) return;
    makeFolder(QFileInfo(to).path());
    std::error_code code;
    if (!exists(to)) {
        fs::rename(FileBlocks::pathOf(from), FileBlocks::pathOf(to), code);
        if (!code) return;
        if (code != std::errc::cross_device_link) FileBlocks::fail(code.value(), FileBlocks::pathOf(from));
        FileCopy::copyFile(FileBlocks::pathOf(from), FileBlocks::pathOf(to));
        sync(QFileInfo(to).path());
    }
    if (FileCopy::haveSameContent(FileBlocks::pathOf(from), FileBlocks::pathOf(to))) remove(from);
}

QString databaseIn(const QString& root, const FolderMove& move)
{
    return root + dataName + QFileInfo(move.database).fileName();
}

/// The new folder of a database that has left the old one: the one that is filled, or the finished one.
QString rootOf(const FolderMove& move)
{
    return exists(databaseIn(move.working, move)) ? move.working : move.target;
}

/// Whether a database still has to leave the old folder. One that is there although its files have begun to
/// move, or its new folder is finished, is another one of the same name.
bool hasToLeave(const FolderMove& move)
{
    if (!exists(move.database)) return false;
    if (!exists(move.working) && exists(databaseIn(move.target, move))) return false;
    return std::none_of(move.moved.begin(), move.moved.end(),
                        [&](const QString& file) { return exists(newPath(move.working, file)); });
}

/// Leads to a database that lies elsewhere from the new folder instead of the old one.
void leaveByLink(const FolderMove& move)
{
    const QString to = databaseIn(move.working, move);
    if (!exists(to) && !QFile::link(QFileInfo(move.database).canonicalFilePath(), to))
        FileBlocks::fail(EIO, FileBlocks::pathOf(to));
    syncFolders(move.working, move.copied);
    remove(move.database);
    sync(QFileInfo(move.database).path());
}

/// The database leaves the old folder at the moment its file there is removed. Nobody can write to it from
/// before it is copied until then.
void leaveFolder(const FolderMove& move)
{
    if (QFileInfo(move.database).isSymLink()) return leaveByLink(move);
    QFile::setPermissions(move.database,
                          QFile::permissions(move.database) | QFile::ReadOwner | QFile::WriteOwner);
    const DatabaseLock lock(move.database);
    copyDatabase(move.database, databaseIn(move.working, move));
    syncFolders(move.working, move.copied);
    remove(move.database);
    sync(QFileInfo(move.database).path());
}

/// Removes what belongs to a database that has left: its journals, and the index, which is made again.
void removeRestOf(const QString& database)
{
    for (const QString& file : {database, database + fileTextEnding})
        for (const char* ending : {"-journal", "-wal", "-shm"})
            remove(file + QLatin1String(ending));
    remove(database + fileTextEnding);
}

} // namespace

SharedFolderSplit::SharedFolderSplit(const QString& dataFolder, QString place)
    : m_data(dataFolder + u'/'), m_place(std::move(place))
{
    const QByteArray name = QFileInfo(m_data).canonicalFilePath().toUtf8();
    const QByteArray hash = QCryptographicHash::hash(name, QCryptographicHash::Sha1).toHex().left(12);
    m_planFile = m_place + QStringLiteral("/.moving-") + QString::fromLatin1(hash);
}

SharedFolderSplit::Result SharedFolderSplit::run(const QString& opened, const QString& preferred)
{
    Result result;
    const SplitPlanner planner(m_data.chopped(1), m_place);
    if (!isWritable(m_data)) return result;
    if (!QFileInfo::exists(m_planFile) && !planner.mayBeNeeded()) return result;

    FolderLock lock(m_data);
    if (!lock.tryLock(lockPatience)) {
        throw Error(EBUSY, FilesTexts::tr("Another window is moving the databases of this folder. (%1)")
                               .arg(m_data.chopped(1)));
    }
    if (auto interrupted = SplitPlan::load(m_planFile)) {
        result.stays = interrupted->stays;
        carryOut(std::move(*interrupted), result);
        // what has not begun to move is planned anew
        std::erase_if(result.failed, [](const FailedMove& failure) { return exists(failure.database); });
    }
    try {
        SplitPlan plan = planner.plan(opened, preferred);
        if (!plan.stays.isEmpty()) result.stays = plan.stays;
        result.failed.insert(result.failed.end(), plan.failed.begin(), plan.failed.end());
        if (plan.moves.empty()) return result;
        makeFolder(m_place);
        save(plan);
        carryOut(std::move(plan), result);
    } catch (const Error& error) {
        result.failed.push_back({opened, error.description()});
    }
    return result;
}

/// Follows a plan, from its beginning or from where a killed program left it: each step does nothing if it
/// was done before. What cannot be finished now stays in the plan.
void SharedFolderSplit::carryOut(SplitPlan plan, Result& result)
{
    for (std::size_t i = 0; i < plan.moves.size(); ++i) {
        FolderMove& move = plan.moves[i];
        if (hasToLeave(move) && !leave(move, result)) continue;
        if (!exists(databaseIn(rootOf(move), move))) continue; // somebody took it elsewhere
        const qsizetype files = move.moved.size();
        qsizetype remaining = 0;
        try {
            const std::optional<Error> failure = takeFiles(move);
            nameFolder(plan, i);
            if (failure) throw Error(*failure);
        } catch (const Error& error) {
            result.failed.push_back({move.database, error.description()});
            m_unfinished.push_back(move);
            remaining = move.moved.size();
        }
        result.moved.push_back({move.database, databaseIn(rootOf(move), move)});
        result.movedFiles += static_cast<int>(files - remaining);
        result.copiedFiles += static_cast<int>(move.copied.size());
        qCInfo(filesLog).noquote() << "moved:" << move.database << "to" << rootOf(move);
    }
    plan.moves.clear();
    try {
        m_unfinished.empty() ? remove(m_planFile) : save(plan);
    } catch (const Error&) {
        // the plan as it was does no harm: what is done is not done again
    }
}

/// Writes down a plan, and what could not be finished of an earlier one.
void SharedFolderSplit::save(SplitPlan plan) const
{
    plan.moves.insert(plan.moves.end(), m_unfinished.begin(), m_unfinished.end());
    plan.save(m_planFile);
    sync(m_place);
}

/// Copies the database, and what it shares with others, to its new folder; then it is removed from the old
/// one. If that fails all is as it was; returns false.
bool SharedFolderSplit::leave(const FolderMove& move, Result& result) const
{
    try {
        for (const char* folder : {"documents", "orgcharts"})
            makeFolder(move.working + dataName + QLatin1String(folder));
        for (const QString& file : move.copied) {
            const QString to = newPath(move.working, file);
            if (exists(to) || !exists(m_data + file)) continue;
            makeFolder(QFileInfo(to).path());
            FileCopy::copyFile(FileBlocks::pathOf(m_data + file), FileBlocks::pathOf(to));
        }
        leaveFolder(move);
        return true;
    } catch (const Error& error) {
        QDir(move.working).removeRecursively();
        result.failed.push_back({move.database, error.description()});
        return false;
    }
}

/// Moves the files that are the database's own. Those that cannot be moved now remain in `moved`; returns the
/// reason of the last one.
std::optional<Error> SharedFolderSplit::takeFiles(FolderMove& move) const
{
    if (!exists(move.database)) removeRestOf(move.database);
    const QString root = rootOf(move);
    QStringList remaining;
    std::optional<Error> failure;
    for (const QString& file : std::as_const(move.moved)) {
        try {
            moveFile(m_data + file, newPath(root, file));
        } catch (const Error& error) {
            remaining << file;
            failure = error;
        }
    }
    syncFolders(root, move.moved);
    removeEmptyFolders(move.moved);
    move.moved = remaining;
    return failure;
}

/// Removes the folders of pages that have moved.
void SharedFolderSplit::removeEmptyFolders(const QStringList& files) const
{
    for (const QString& file : files) {
        for (QString folder = QFileInfo(file).path(); folder.contains(u'/');
             folder = QFileInfo(folder).path())
            QDir().rmdir(m_data + folder);
    }
}

/// Gives a folder that has all its files its name, or one like it if that was taken meanwhile.
void SharedFolderSplit::nameFolder(SplitPlan& plan, std::size_t index) const
{
    const FolderMove& move = plan.moves[index];
    if (!exists(move.working)) return;
    if (exists(move.target)) {
        const QString name = QFileInfo(move.database).completeBaseName();
        plan.moves[index].target = SplitPlanner::freeFolder(m_place, name, plan);
        save(plan);
    }
    std::error_code code;
    fs::rename(FileBlocks::pathOf(move.working), FileBlocks::pathOf(move.target), code);
    FileBlocks::require(code, FileBlocks::pathOf(move.target));
    sync(m_place);
}

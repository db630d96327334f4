// SPDX-License-Identifier: GPL-3.0-or-later

#include "files/SplitPlanner.h"

#include "data/DatabaseSession.h"
#include "files/CollectionNames.h"
#include "files/DatabaseFile.h"
#include "files/FileBlocks.h"
#include "files/FilesTexts.h"
#include "files/LinkTarget.h"
#include "files/ProgramFolder.h"
#include "files/RecordFiles.h"
#include "files/VersionCopies.h"
#include "util/Error.h"
#include "util/FileAccess.h"

#include <QDir>
#include <QDirIterator>
#include <QFileInfo>
#include <QRandomGenerator>

#include <sqlite3.h>

#include <algorithm>
#include <filesystem>
#include <functional>
#include <memory>

namespace {

/// A database that shares the folder, with the files that its records name: any, as long as they are not
/// read.
struct Sharer
{
    QString file;
    std::unique_ptr<DatabaseSession> session; ///< null if it cannot be read
    RecordFiles records;
    bool isMoving = false;
};

/// A file of the folder that some records name.
struct SharedFile
{
    QString path; ///< relative to the data folder
    bool mayMove; ///< a link, and what lies behind one, is only copied
    std::vector<std::size_t> sharers;
};

bool isSame(const QString& file, const QString& other)
{
    return !other.isEmpty() && QFileInfo(file).canonicalFilePath() == QFileInfo(other).canonicalFilePath();
}

/// The SQLite files of a folder, but no second names for one of them, no copies that were not
/// finished and none that are kept from an earlier version of the program.
QStringList databaseFilesIn(const QString& folder)
{
    QStringList files;
    const QString canonical = QFileInfo(folder).canonicalFilePath();
    for (const QFileInfo& entry : QDir(folder).entryInfoList(QDir::Files, QDir::Name)) {
        const bool isSecondName =
            entry.isSymLink() && QFileInfo(entry.canonicalFilePath()).path() == canonical;
        const bool isCopy =
            entry.fileName().endsWith(QStringLiteral(".part")) || VersionCopies::isCopy(entry.fileName());
        if (isSecondName || isCopy) continue;
        if (kindOfDatabaseFile(entry.filePath()) == DatabaseFileKind::Orvik) files << entry.filePath();
    }
    return files;
}

bool isOfAnotherProgram(const Error& error)
{
    return error.number() == SQLITE_ERROR || error.number() == SQLITE_NOTADB;
}

/// The program's databases in a folder. One that another program locks has failed to move; one that is
/// damaged cannot be used and stays.
std::vector<Sharer> openSharers(const QString& folder, std::vector<FailedMove>& failed)
{
    std::vector<Sharer> sharers;
    for (const QString& file : databaseFilesIn(folder)) {
        auto session = std::make_unique<DatabaseSession>();
        try {
            session->open(file);
        } catch (const Error& error) {
            if (isOfAnotherProgram(error)) continue;
            if (error.isOfLock()) failed.push_back({file, error.description()});
            session.reset();
        }
        sharers.push_back({file, std::move(session), {}, false});
    }
    return sharers;
}

/// Finds out which files each database needs, and which databases can move.
void readRecords(std::vector<Sharer>& sharers, SplitPlan& plan)
{
    for (Sharer& sharer : sharers) {
        if (!sharer.session) continue;
        try {
            sharer.records = RecordFiles(*sharer.session);
            sharer.isMoving = sharer.file != plan.stays;
        } catch (const Error& error) {
            if (sharer.file != plan.stays) plan.failed.push_back({sharer.file, error.description()});
        }
    }
}

/// Collects the files of one of the two folders beside the databases.
class FolderFiles
{
public:
    using IsNamed = std::function<bool(const RecordFiles&, const QString& name)>;

    FolderFiles(const QString& dataFolder, const QString& folder, const std::vector<Sharer>& sharers)
        : m_data(dataFolder),
          m_folder(folder),
          m_sharers(sharers),
          m_mayMove(!QFileInfo(m_folder.chopped(1)).isSymLink() && isWritable(folder))
    {
    }

    void add(std::vector<SharedFile>& files, const IsNamed& isNamed, const IsNamed& isNamedFolder) const
    {
        for (const QFileInfo& entry :
             QDir(m_folder).entryInfoList(QDir::AllEntries | QDir::NoDotAndDotDot | QDir::Hidden)) {
            const bool isFolder = entry.isDir();
            if (isFolder && entry.isSymLink()) continue;
            const auto sharers = sharersOf(entry.fileName(), isFolder ? isNamedFolder : isNamed);
            if (sharers.empty()) continue;
            isFolder ? addTree(files, entry.filePath(), sharers) : addFile(files, entry, sharers);
        }
    }

private:
    [[nodiscard]] std::vector<std::size_t> sharersOf(const QString& name, const IsNamed& isNamed) const
    {
        std::vector<std::size_t> sharers;
        for (std::size_t i = 0; i < m_sharers.size(); ++i) {
            if (isNamed(m_sharers[i].records, name)) sharers.push_back(i);
        }
        return sharers;
    }

    void addTree(std::vector<SharedFile>& files, const QString& folder,
                 const std::vector<std::size_t>& sharers) const
    {
        QDirIterator entries(folder, QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
        while (entries.hasNext())
            addFile(files, QFileInfo(entries.next()), sharers);
    }

    void addFile(std::vector<SharedFile>& files, const QFileInfo& file,
                 const std::vector<std::size_t>& sharers) const
    {
        using FileBlocks::pathOf;
        if (!file.isFile()) return;
        if (file.isSymLink() && !LinkTarget::liesIn(pathOf(m_folder), pathOf(file.filePath()))) return;
        files.push_back(
            {QDir(m_data).relativeFilePath(file.filePath()), m_mayMove && !file.isSymLink(), sharers});
    }

    QString m_data;
    QString m_folder;
    const std::vector<Sharer>& m_sharers;
    bool m_mayMove;
};

std::vector<SharedFile> readFiles(const QString& dataFolder, const std::vector<Sharer>& sharers)
{
    std::vector<SharedFile> files;
    const ProgramFolder folder = ProgramFolder(QString()).ofDatabase(dataFolder + QStringLiteral("/x"));
    const auto isNever = [](const RecordFiles&, const QString&) { return false; };
    FolderFiles(dataFolder, folder.folderPath(ProgramFolders::documents), sharers)
        .add(files, std::mem_fn(&RecordFiles::hasDocument), std::mem_fn(&RecordFiles::hasPageFolder));
    FolderFiles(dataFolder, folder.folderPath(ProgramFolders::organizationCharts), sharers)
        .add(files, std::mem_fn(&RecordFiles::hasChart), isNever);
    FolderFiles(dataFolder, folder.folderPath(ProgramFolders::formerCharts), sharers)
        .add(files, std::mem_fn(&RecordFiles::hasFormerChart), isNever);
    return files;
}

/// A file goes with the only database that names it; if others do too, each takes a copy.
void share(const SharedFile& file, const std::vector<Sharer>& sharers, const std::vector<FolderMove*>& moveOf)
{
    const bool isExclusive =
        file.mayMove && file.sharers.size() == 1 && sharers[file.sharers.front()].isMoving;
    for (const std::size_t sharer : file.sharers) {
        if (!sharers[sharer].isMoving) continue;
        (isExclusive ? moveOf[sharer]->moved : moveOf[sharer]->copied) << file.path;
    }
}

QString workingFolder(const QString& target)
{
    QString folder;
    do {
        folder =
            target + QStringLiteral(".moving-") + QString::number(QRandomGenerator::global()->generate(), 16);
    } while (QFileInfo::exists(folder));
    return folder;
}

} // namespace

SplitPlanner::SplitPlanner(QString dataFolder, QString place)
    : m_dataFolder(std::move(dataFolder)), m_place(std::move(place))
{
}

bool SplitPlanner::mayBeNeeded() const
{
    return databaseFilesIn(m_dataFolder).size() > 1;
}

SplitPlan SplitPlanner::plan(const QString& opened, const QString& preferred) const
{
    SplitPlan plan;
    std::vector<Sharer> sharers = openSharers(m_dataFolder, plan.failed);
    const auto find = [&sharers](const QString& file) {
        return std::find_if(sharers.begin(), sharers.end(), [&](const Sharer& sharer) {
            return sharer.session && isSame(sharer.file, file);
        });
    };
    const auto named = find(preferred);
    const auto stays = named != sharers.end() ? named : find(opened);
    if (sharers.size() < 2 || find(opened) == sharers.end()) return {};
    plan.stays = stays->file;
    if (std::count_if(sharers.begin(), sharers.end(),
                      [](const Sharer& sharer) { return bool(sharer.session); }) < 2)
        return plan;

    readRecords(sharers, plan);
    plan.moves.reserve(sharers.size());
    std::vector<FolderMove*> moveOf(sharers.size());
    for (std::size_t i = 0; i < sharers.size(); ++i) {
        const QString& file = sharers[i].file;
        if (!sharers[i].isMoving) continue;
        const QString target = freeFolder(m_place, QFileInfo(file).completeBaseName(), plan);
        plan.moves.push_back({file, workingFolder(target), target, {}, {}});
        moveOf[i] = &plan.moves.back();
    }
    for (const SharedFile& file : readFiles(m_dataFolder, sharers))
        share(file, sharers, moveOf);
    return plan;
}

QString SplitPlanner::freeFolder(const QString& place, const QString& name, const SplitPlan& plan)
{
    const auto isPlanned = [&plan](const QString& folder) {
        return std::any_of(plan.moves.begin(), plan.moves.end(), [&folder](const FolderMove& move) {
            return move.target.compare(folder, Qt::CaseInsensitive) == 0;
        });
    };
    for (int number = 1;; ++number) {
        const QString variant = CollectionNames::variant(name, number);
        QString folder = place + u'/' + variant;
        if (!CollectionNames::isTaken(place, variant) && !isPlanned(folder)) return folder;
    }
}

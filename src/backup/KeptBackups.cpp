// SPDX-License-Identifier: GPL-3.0-or-later

#include "backup/KeptBackups.h"

#include "backup/CollectionBackup.h"
#include "files/UnfinishedFile.h"
#include "util/FileAccess.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <set>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

constexpr std::size_t newestKept = 10;

const QString folderName = u"backups"_s;
const QString momentForm = u"yyyy-MM-dd HHmmss"_s;
const QString ending = u".tar.zst"_s;
const QString unfinishedEnding = UnfinishedFile::unfinishedName({});

/// The moment that the name of a backup says; invalid for any other file.
QDateTime momentOf(const QString& fileName)
{
    if (!fileName.endsWith(ending)) return {};
    return QDateTime::fromString(fileName.chopped(ending.size()).right(momentForm.size()), momentForm);
}

} // namespace

KeptBackups::KeptBackups(const ProgramFolder& folder) : m_folder(folder.collection() + u'/' + folderName) {}

std::vector<KeptBackups::Kept> KeptBackups::list() const
{
    std::vector<Kept> backups;
    for (const QFileInfo& entry : QDir(m_folder).entryInfoList(QDir::Files | QDir::NoSymLinks)) {
        const QDateTime made = momentOf(entry.fileName());
        if (made.isValid()) backups.push_back({entry.filePath(), made, entry.size()});
    }
    std::sort(backups.begin(), backups.end(), [](const Kept& a, const Kept& b) { return a.made > b.made; });
    return backups;
}

bool KeptBackups::canBeAdded() const
{
    return isWritable(QFileInfo::exists(m_folder) ? m_folder : QFileInfo(m_folder).path());
}

std::unique_ptr<SteppedWork> KeptBackups::work(const QString& database, const ProgramFolder& folder,
                                               const QDateTime& now) const
{
    QDir().mkpath(m_folder); // if it fails, so does the backup, with the system's reason
    const QString name = QFileInfo(database).completeBaseName() + u' ' + now.toString(momentForm) + ending;
    return std::make_unique<CollectionBackup>(database, folder, m_folder + u'/' + name, now,
                                              BackupContents::DatabaseAlone);
}

void KeptBackups::tidy(const QDateTime& now) const
{
    std::vector<Kept> past = list();
    std::erase_if(past, [&now](const Kept& backup) { return backup.made > now; });
    for (const Kept& old : dispensable(past))
        QFile::remove(old.file);
    for (const QFileInfo& entry : QDir(m_folder).entryInfoList(QDir::Files | QDir::NoSymLinks)) {
        const QString name = entry.fileName();
        if (name.endsWith(unfinishedEnding) && momentOf(name.chopped(unfinishedEnding.size())).isValid())
            UnfinishedFile::clearLeftOver(entry.filePath().chopped(unfinishedEnding.size()));
    }
    QDir().rmdir(m_folder); // fails if it holds a backup
}

void KeptBackups::add(const QString& database, const ProgramFolder& folder, const QDateTime& now) const
{
    const auto adding = work(database, folder, now);
    while (adding->step()) {
    }
    tidy(now);
}

std::vector<KeptBackups::Kept> KeptBackups::dispensable(const std::vector<Kept>& backups)
{
    std::vector<Kept> others;
    std::set<std::pair<int, int>> months;
    for (std::size_t i = 0; i < backups.size(); ++i) {
        const QDate day = backups[i].made.date();
        const bool isLastOfMonth = months.insert({day.year(), day.month()}).second;
        if (i >= newestKept && !isLastOfMonth) others.push_back(backups[i]);
    }
    return others;
}

std::optional<ProgramFolder> KeptBackups::keeperOf(const QString& backup)
{
    const QDir place = QFileInfo(backup).absoluteDir();
    if (place.dirName().compare(folderName, Qt::CaseInsensitive) != 0) return std::nullopt;
    const QString around = QFileInfo(place.path()).path();
    const auto isThere = [](const ProgramFolder& folder) {
        return QFileInfo(folder.folderPath(ProgramFolders::documents)).isDir() ||
               QFileInfo(folder.folderPath(ProgramFolders::organizationCharts)).isDir();
    };
    for (const ProgramFolder& folder :
         {ProgramFolder(around), ProgramFolder({}).ofDatabase(around + u"/x"_s)}) {
        if (isThere(folder)) return folder;
    }
    return std::nullopt;
}

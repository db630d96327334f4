// SPDX-License-Identifier: GPL-3.0-or-later

#include "backup/KeptBackups.h"

#include "backup/CollectionBackup.h"
#include "files/ProgramFolder.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <set>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

constexpr std::size_t newestKept = 10;

const QString momentForm = u"yyyy-MM-dd HHmmss"_s;
const QString ending = u".tar.zst"_s;

/// The moment that the name of a backup says; invalid for any other file.
QDateTime momentOf(const QString& fileName)
{
    if (!fileName.endsWith(ending)) return {};
    return QDateTime::fromString(fileName.chopped(ending.size()).right(momentForm.size()), momentForm);
}

} // namespace

KeptBackups::KeptBackups(const ProgramFolder& folder) : m_folder(folder.root() + u"/backups"_s) {}

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

void KeptBackups::add(const QString& database, const ProgramFolder& folder, const QDateTime& now) const
{
    QDir().mkpath(m_folder); // if it fails, so does the backup, with the system's reason
    const QString name = QFileInfo(database).completeBaseName() + u' ' + now.toString(momentForm) + ending;
    const QString file = m_folder + u'/' + name;
    CollectionBackup work(database, folder, file, now, BackupContents::DatabaseAlone);
    while (work.step()) {
    }
    // after the clock was set back, the backup that was just made is not the newest by its name
    for (const Kept& old : dispensable(list()))
        if (old.file != file) QFile::remove(old.file);
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

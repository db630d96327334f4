// SPDX-License-Identifier: GPL-3.0-or-later

#include "backup/BackupTarget.h"

#include "backup/Archive.h"
#include "files/ProgramFolder.h"

#include <QDir>
#include <QFileInfo>

#include <algorithm>

using namespace Qt::StringLiterals;

QString BackupTarget::withEnding(const QString& file)
{
    return archiveFormatOf(file) ? file : file + u".zip"_s;
}

bool BackupTarget::isInside(const ProgramFolder& collection, const QString& file)
{
    const QString place = QFileInfo(QFileInfo(file).absolutePath()).canonicalFilePath() + u'/';
    const QString data = QDir::cleanPath(collection.machinePath(ProgramFolders::data));
    QStringList folders;
    for (const QString& path :
         {ProgramFolders::documents, ProgramFolders::organizationCharts, ProgramFolders::maps})
        folders << collection.folderPath(path);
    // a database that is used elsewhere may lie in a folder with much else
    if (QFileInfo(data).fileName().compare(u"data", Qt::CaseInsensitive) == 0) folders << data;
    return std::any_of(folders.begin(), folders.end(), [&](const QString& folder) {
        const QString path = QFileInfo(QDir::cleanPath(folder)).canonicalFilePath();
        return !path.isEmpty() && place.startsWith(path + u'/');
    });
}

// SPDX-License-Identifier: GPL-3.0-or-later

#include "opening/DatabasePath.h"

#include "files/ProgramFolder.h"
#include "opening/OpeningTexts.h"
#include "util/Error.h"

#include <QDir>
#include <QFileInfo>

#include <cerrno>

QString databaseAt(const QString& path)
{
    const QFileInfo meant(path);
    if (!meant.exists()) {
        throw Error(ENOENT, OpeningTexts::tr("There is no such file or folder. (%1)").arg(path));
    }
    if (!meant.isDir()) return path;
    const QString dataFolder = ProgramFolder(QDir::cleanPath(path)).folderPath(ProgramFolders::data);
    const QDir folder(QFileInfo(dataFolder).isDir() ? dataFolder : path);
    const auto named = [&folder](const QStringList& patterns) {
        return folder.entryList(patterns, QDir::Files, QDir::Name);
    };
    // what was converted stands beside the Access file that it came of
    QStringList files = named({QStringLiteral("*.sqlite")});
    if (files.isEmpty()) files = named({QStringLiteral("*.mdb"), QStringLiteral("*.accdb")});
    if (files.isEmpty()) {
        throw Error(ENOENT, OpeningTexts::tr("The folder holds no database. (%1)").arg(path));
    }
    if (files.size() > 1) {
        throw Error(EINVAL, OpeningTexts::tr("The folder holds several databases; open one of them: %1. (%2)")
                                .arg(files.join(QStringLiteral(", ")), path));
    }
    return folder.filePath(files.front());
}

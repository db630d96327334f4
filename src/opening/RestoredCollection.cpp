// SPDX-License-Identifier: GPL-3.0-or-later

#include "opening/RestoredCollection.h"

#include "backup/CollectionRestore.h"
#include "backup/KeptBackups.h"
#include "files/FolderCopy.h"
#include "files/FolderList.h"
#include "opening/OpeningTexts.h"
#include "opening/UnfinishedCollection.h"
#include "platform/WorkRunner.h"

#include <QDir>
#include <QFileInfo>

namespace {

/// A name that a folder can have anywhere; the archive may say anything.
QString nameOf(const QString& archive)
{
    constexpr qsizetype mostBytes = 200; // a number and what an unfinished collection has follow
    QString name = CollectionRestore::collectionIn(archive).simplified();
    while (name.startsWith(u'.'))
        name.remove(0, 1);
    while (name.toUtf8().size() > mostBytes)
        name.chop(1);
    name = name.trimmed();
    return ProgramFolder::isPlainName(name) ? name : OpeningTexts::tr("Collection");
}

/// Returns false if the user cancelled it.
bool copyFiles(WorkRunner& works, const ProgramFolder& from, const QString& dataFolder)
{
    FolderList files = FolderList::of(from, ProgramFolders::ofFiles);
    if (!works.run(files)) return false;
    FolderCopy copy(files, dataFolder);
    return works.run(copy);
}

} // namespace

std::optional<ProgramFolder> RestoredCollection::filesFor(const QString& archive)
{
    std::optional<ProgramFolder> keeper = KeptBackups::keeperOf(archive);
    if (keeper && !CollectionRestore::holdsDatabaseAlone(archive)) return std::nullopt;
    return keeper;
}

std::optional<RestoredCollection::Made> RestoredCollection::make(WorkRunner& works, const QString& archive,
                                                                 const QString& place, const Options& options)
{
    UnfinishedCollection::clearLeftOver(place);
    UnfinishedCollection collection(place, options.name.isEmpty() ? nameOf(archive) : options.name);
    CollectionRestore restore(archive, QDir::cleanPath(collection.dataFolder() + QStringLiteral("..")));
    if (!works.run(restore)) return std::nullopt;
    const bool isAlone = restore.manifest().files.size() == 1;
    if (isAlone && options.filesFrom && !copyFiles(works, *options.filesFrom, collection.dataFolder()))
        return std::nullopt;
    const QString database = collection.target() + QFileInfo(restore.database()).fileName();
    collection.complete();
    return Made{database, restore.manifest()};
}

// SPDX-License-Identifier: GPL-3.0-or-later

#include "opening/RestoredCollection.h"

#include "backup/CollectionRestore.h"
#include "opening/UnfinishedCollection.h"
#include "platform/WorkRunner.h"

#include <QDir>
#include <QFileInfo>

std::optional<QString> RestoredCollection::make(WorkRunner& works, const QString& archive,
                                                const QString& place, const QString& name)
{
    UnfinishedCollection::clearLeftOver(place);
    UnfinishedCollection collection(place, name);
    CollectionRestore restore(archive, QDir::cleanPath(collection.dataFolder() + QStringLiteral("..")));
    if (!works.run(restore)) return std::nullopt;
    const QString database = collection.target() + QFileInfo(restore.database()).fileName();
    collection.complete();
    return database;
}

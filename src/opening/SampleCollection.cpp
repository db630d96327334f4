// SPDX-License-Identifier: GPL-3.0-or-later

#include "opening/SampleCollection.h"

#include "files/ProgramFolder.h"
#include "opening/OpeningTexts.h"
#include "util/Error.h"

#include <QDir>

#include <cerrno>

namespace {

/// The first database of a collection; empty if there is none.
QString firstDatabase(const QString& collection)
{
    const QDir data(collection + QStringLiteral("/data"));
    const QStringList databases = data.entryList({QStringLiteral("*.sqlite")}, QDir::Files, QDir::Name);
    return databases.isEmpty() ? QString() : data.filePath(databases.front());
}

} // namespace

QString SampleCollection::folder(const ProgramFolder& home)
{
    return home.root() + QStringLiteral("/Sample");
}

QString SampleCollection::installedDatabase(const ProgramFolder& home)
{
    return home.installed().isEmpty() ? QString() : firstDatabase(home.installed());
}

QString SampleCollection::ownDatabase(const ProgramFolder& home)
{
    return firstDatabase(folder(home));
}

QString SampleCollection::hindrance(const ProgramFolder& home)
{
    const bool isThere = !ownDatabase(home).isEmpty() || !installedDatabase(home).isEmpty();
    return isThere ? QString() : OpeningTexts::tr("The sample was not installed with the program.");
}

QString SampleCollection::provide(const ProgramFolder& home)
{
    if (ownDatabase(home).isEmpty()) ProgramFolder::fillFromSample(folder(home), home.installed());
    QString database = ownDatabase(home);
    if (database.isEmpty()) {
        throw Error(ENOENT,
                    OpeningTexts::tr("The folder of the sample has no database. (%1)").arg(folder(home)));
    }
    return database;
}

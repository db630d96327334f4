// SPDX-License-Identifier: GPL-3.0-or-later

#include "map/StatesFile.h"

#include "files/ProgramFolder.h"
#include "map/MapTexts.h"
#include "util/Error.h"

#include <cerrno>

StatesLayer readStates(const ProgramFolder& folder)
{
    const QString name = QStringLiteral("states.shp");
    const auto file = folder.findMap(name);
    if (!file) {
        throw Error(ENOENT, MapTexts::tr("There is no map of the states. (%1)")
                                .arg(folder.machinePath(ProgramFolders::maps) + name));
    }
    return StatesLayer(ShapeFile::read(*file));
}

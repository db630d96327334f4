// SPDX-License-Identifier: GPL-3.0-or-later

#include "files/DistributionDiscs.h"

#include "platform/Volumes.h"

DistributionDiscs DistributionDiscs::scan(const Volumes& volumes)
{
    DistributionDiscs discs;
    for (const Volume& volume : volumes.mounted()) {
        const QString folder = volume.folder.endsWith(u'/') ? volume.folder.chopped(1) : volume.folder;
        // some file systems of discs hold labels in capitals only
        if (volume.label.compare(QStringView(dataLabel), Qt::CaseInsensitive) == 0) discs.data = folder;
        if (volume.label.compare(QStringView(photosLabel), Qt::CaseInsensitive) == 0) discs.photos = folder;
    }
    return discs;
}

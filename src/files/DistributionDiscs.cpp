// SPDX-License-Identifier: GPL-3.0-or-later

#include "files/DistributionDiscs.h"

#include "platform/Volumes.h"

#include <QDir>

namespace {

QString withoutSlash(const QString& folder)
{
    return folder.endsWith(u'/') ? folder.chopped(1) : folder;
}

/// What takes the place of a disc: a folder that exists, or the one that it lies in.
std::optional<QString> standIn(const QString& chosen)
{
    const QDir folder(chosen);
    if (chosen.isEmpty() || !folder.exists()) return std::nullopt;
    const bool isFilesFolder =
        folder.dirName().compare(QStringView(DistributionDiscs::filesFolder), Qt::CaseInsensitive) == 0;
    return withoutSlash(QDir::cleanPath(isFilesFolder ? folder.filePath(QStringLiteral("..")) : chosen));
}

} // namespace

DistributionDiscs DistributionDiscs::scan(const Volumes& volumes, const DiscFolders& folders)
{
    DistributionDiscs discs{standIn(folders.data), standIn(folders.photos)};
    for (const Volume& volume : volumes.mounted()) {
        const QString folder = withoutSlash(volume.folder);
        // some file systems of discs hold labels in capitals only
        if (volume.label.compare(QStringView(dataLabel), Qt::CaseInsensitive) == 0) discs.data = folder;
        if (volume.label.compare(QStringView(photosLabel), Qt::CaseInsensitive) == 0) discs.photos = folder;
    }
    return discs;
}

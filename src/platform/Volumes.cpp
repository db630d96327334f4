// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/Volumes.h"

#include <QDir>
#include <QStorageInfo>

std::vector<Volume> SystemVolumes::mounted() const
{
    std::vector<Volume> volumes;
    const QList<QStorageInfo> found = QStorageInfo::mountedVolumes();
    for (const QStorageInfo& storage : found) {
        if (!storage.isReady()) continue;
        const QString folder = storage.rootPath();
        volumes.push_back({storage.name().isEmpty() ? QDir(folder).dirName() : storage.name(), folder});
    }
    return volumes;
}

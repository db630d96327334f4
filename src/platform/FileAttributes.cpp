// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/FileAttributes.h"

#include <QFile>
#include <QFileInfo>

void SystemFileAttributes::makeWritable(const QString& file)
{
    if (!QFileInfo(file).isFile()) return;
    QFile::setPermissions(file, QFile::permissions(file) | QFile::WriteOwner | QFile::ReadOwner);
}

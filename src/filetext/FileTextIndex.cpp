// SPDX-License-Identifier: GPL-3.0-or-later

#include "filetext/FileTextIndex.h"

#include "files/DatabaseFile.h"

QString FileTextIndex::pathOf(const QString& database)
{
    return database + fileTextEnding;
}

bool FileTextIndex::isPath(const QString& path)
{
    return path.endsWith(fileTextEnding);
}

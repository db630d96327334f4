// SPDX-License-Identifier: GPL-3.0-or-later

#include "filetext/FileTextIndex.h"

namespace {

const QString ending = QStringLiteral(".filetext");

} // namespace

QString FileTextIndex::pathOf(const QString& database)
{
    return database + ending;
}

bool FileTextIndex::isPath(const QString& path)
{
    return path.endsWith(ending);
}

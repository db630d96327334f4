// SPDX-License-Identifier: GPL-3.0-or-later

#include "filetext/FileTextIndex.h"

QString FileTextIndex::pathOf(const QString& database)
{
    return database + QStringLiteral(".filetext");
}

// SPDX-License-Identifier: GPL-3.0-or-later

#include "util/FileStrings.h"

void FileStrings::CrackFileName(const QString& path)
{
    m_path = path;
    const qsizetype colon = path.indexOf(u':');
    m_drive = colon < 0 ? QString() : path.mid(colon - 1, colon > 0 ? 1 : 0) + QStringLiteral(":\\");
    m_directory = path.left(path.lastIndexOf(u'\\') + 1);
    const QString name = path.mid(m_directory.size());
    const qsizetype point = name.lastIndexOf(u'.');
    m_baseName = point < 0 ? name : name.left(point);
    m_extension = point < 0 ? QString() : name.mid(point + 1);
}

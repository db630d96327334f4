// SPDX-License-Identifier: GPL-3.0-or-later

#include "files/FolderNames.h"

#include "files/FileBlocks.h"
#include "files/LinkTarget.h"

#include <QFile>

#include <filesystem>
#include <system_error>

FolderNames::FolderNames(const QString& folder)
{
    std::error_code failed;
    const std::filesystem::path path = FileBlocks::pathOf(folder);
    for (std::filesystem::directory_iterator entry(path, failed), end; !failed && entry != end;
         entry.increment(failed)) {
        if (entry->is_directory(failed)) continue;
        if (entry->is_symlink(failed) && !LinkTarget::liesIn(path, entry->path())) continue;
        m_names.insert(comparable(QFile::decodeName(entry->path().filename().c_str())));
    }
}

bool FolderNames::contains(const QString& fileName) const
{
    return m_names.contains(comparable(fileName));
}

QString FolderNames::comparable(const QString& fileName)
{
    QString name = fileName.toCaseFolded();
    if (name.endsWith(QStringLiteral(".html"))) name.chop(1);
    return name;
}

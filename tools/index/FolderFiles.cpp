// SPDX-License-Identifier: GPL-3.0-or-later

#include "FolderFiles.h"

#include "files/FileBlocks.h"
#include "files/FolderNames.h"
#include "files/LinkTarget.h"
#include "files/ProgramFolder.h"

#include <QDir>
#include <QFileInfo>

#include <filesystem>
#include <system_error>

FolderFiles::FolderFiles(const QString& folder) : m_folder(QDir(folder).absolutePath())
{
    std::error_code failed;
    const std::filesystem::path path = FileBlocks::pathOf(m_folder);
    for (std::filesystem::directory_iterator entry(path, failed), end; !failed && entry != end;
         entry.increment(failed)) {
        const QString name = QFile::decodeName(entry->path().filename().c_str());
        m_names[FolderNames::comparable(name)].append(name);
    }
}

std::optional<QString> FolderFiles::find(const QString& name) const
{
    if (!ProgramFolder::isPlainName(name)) return std::nullopt;
    const QStringList names = m_names.value(FolderNames::comparable(name));
    if (names.isEmpty()) return std::nullopt;
    qsizetype index = names.indexOf(name);
    if (index < 0) {
        const auto isAlike = [&name](const QString& other) {
            return other.compare(name, Qt::CaseInsensitive) == 0;
        };
        const auto alike = std::find_if(names.begin(), names.end(), isAlike);
        index = alike == names.end() ? 0 : alike - names.begin();
    }
    QString path = m_folder + u'/' + names.at(index);
    const bool leadsOut = QFileInfo(path).isSymLink() &&
                          !LinkTarget::liesIn(FileBlocks::pathOf(m_folder), FileBlocks::pathOf(path));
    if (leadsOut) return std::nullopt;
    return path;
}

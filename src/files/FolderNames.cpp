#include "files/FolderNames.h"

#include <QFile>

#include <filesystem>
#include <system_error>

FolderNames::FolderNames(const QString& folder)
{
    std::error_code failed;
    const std::filesystem::path path(QFile::encodeName(folder).toStdString());
    for (std::filesystem::directory_iterator entry(path, failed), end; !failed && entry != end;
         entry.increment(failed)) {
        if (entry->is_directory(failed)) continue;
        m_names.insert(QFile::decodeName(entry->path().filename().c_str()).toCaseFolded());
    }
}

bool FolderNames::contains(const QString& fileName) const
{
    return m_names.contains(fileName.toCaseFolded());
}

// SPDX-License-Identifier: GPL-3.0-or-later

#include "check/FolderEntries.h"

#include "files/FileBlocks.h"

#include <QFile>

#include <system_error>

FolderEntries::FolderEntries(const QString& folder) : m_folder(FileBlocks::pathOf(folder))
{
    std::error_code code;
    m_entries = std::filesystem::directory_iterator(m_folder, code);
    if (code != std::errc::no_such_file_or_directory) FileBlocks::require(code, m_folder);
}

std::optional<FolderEntries::Entry> FolderEntries::next()
{
    if (m_entries == std::filesystem::directory_iterator()) return std::nullopt;
    std::error_code code;
    Entry entry{QFile::decodeName(m_entries->path().filename().c_str()),
                m_entries->is_directory(code) && !m_entries->is_symlink(code)};
    m_entries.increment(code);
    FileBlocks::require(code, m_folder);
    return entry;
}

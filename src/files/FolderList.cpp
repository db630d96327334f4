// SPDX-License-Identifier: GPL-3.0-or-later

#include "files/FolderList.h"

#include "files/FileBlocks.h"
#include "files/FilesTexts.h"
#include "files/LinkTarget.h"
#include "files/ProgramFolder.h"

#include <QDir>
#include <QLocale>

#include <system_error>

namespace fs = std::filesystem;

QString FolderList::Amount::sizeText() const
{
    constexpr qint64 gigabyte = 1'000'000'000;
    return QLocale().formattedDataSize(bytes, bytes < gigabyte ? 0 : 1, QLocale::DataSizeSIFormat);
}

FolderList FolderList::of(const ProgramFolder& folder, const QStringList& programPaths)
{
    FolderList list;
    for (const QString& path : programPaths) {
        const QString found = folder.folderPath(path);
        if (fs::is_directory(FileBlocks::statusOf(FileBlocks::pathOf(found))))
            list.add(found, path.section(u'\\', -2, -2).toStdString());
    }
    return list;
}

void FolderList::add(const QString& folder, const fs::path& name)
{
    m_roots.push_back(m_entries.size());
    m_entries.push_back({FileBlocks::pathOf(QDir::cleanPath(folder)).string(), name.string(), true});
}

bool FolderList::step()
{
    if (m_open != fs::directory_iterator()) {
        look(*m_open);
        std::error_code code;
        m_open.increment(code);
        FileBlocks::require(code, m_entries[m_next - 1].from);
        return true;
    }
    while (m_next < m_entries.size() && !m_entries[m_next].isFolder)
        ++m_next;
    if (m_next == m_entries.size()) return false;
    std::error_code code;
    m_open = fs::directory_iterator(m_entries[m_next].from, code);
    FileBlocks::require(code, m_entries[m_next].from);
    ++m_next;
    return true;
}

/// Takes an entry of the folder that is open.
void FolderList::look(const fs::directory_entry& found)
{
    std::error_code code;
    const std::size_t root = m_roots[m_next - 1];
    const bool isLink = found.is_symlink(code);
    if (isLink && !LinkTarget::liesIn(m_entries[root].from, found.path())) return;
    const bool isFolder = found.is_directory(code) && !isLink;
    if (!isFolder && !found.is_regular_file(code)) return;
    if (!isFolder) {
        const auto size = found.file_size(code);
        ++m_amount.files;
        if (!code) m_amount.bytes += static_cast<qint64>(size);
    }
    const fs::path to = m_entries[m_next - 1].to / found.path().filename();
    m_entries.push_back({found.path().string(), to.string(), isFolder});
    m_roots.push_back(root);
}

QString FolderList::title() const
{
    return FilesTexts::tr("Bringing Files Along");
}

QString FolderList::remark() const
{
    return FilesTexts::tr("The files of documents and charts beside the database stay as they are.");
}

QString FolderList::text() const
{
    return FilesTexts::tr("Counting the files (%1) …").arg(QLocale().toString(m_amount.files));
}

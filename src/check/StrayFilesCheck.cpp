// SPDX-License-Identifier: GPL-3.0-or-later

#include "check/StrayFilesCheck.h"

#include "check/CheckTexts.h"
#include "check/CheckedDatabase.h"
#include "files/FileBlocks.h"
#include "files/FileCopy.h"
#include "util/Error.h"

#include <array>

using namespace Qt::StringLiterals;

namespace {

constexpr int entriesPerStep = 200; ///< entries

enum class Place
{
    Documents,
    Charts,
    FormerCharts
};

struct Folder
{
    Place place;
    QString path;   ///< of the program
    QString prefix; ///< before the names of findings
};

const std::array<Folder, 3>& folders()
{
    static const std::array<Folder, 3> all{
        Folder{Place::Documents, ProgramFolders::documents, u"documents/"_s},
        Folder{Place::Charts, ProgramFolders::organizationCharts, u"orgcharts/"_s},
        Folder{Place::FormerCharts, ProgramFolders::formerCharts, u"orgcharts/former/"_s}};
    return all;
}

/// Whether the desktop of some system made the file by itself to note how it shows the folder.
bool isOfDesktop(const QString& name)
{
    static const QStringList names{u".DS_Store"_s, u".directory"_s, u"Thumbs.db"_s, u"desktop.ini"_s};
    return name.startsWith(u"._"_s) || names.contains(name, Qt::CaseInsensitive);
}

} // namespace

bool StrayFilesCheck::step()
{
    if (!m_isBegun) {
        m_named = RecordFiles::begun(m_database.session());
        m_isBegun = true;
        return true;
    }
    if (!m_isRead) {
        m_isRead = !m_named.readMore(m_database.session());
        return true;
    }
    if (!m_entries) return openNextFolder();
    try {
        for (int i = 0; i < entriesPerStep; ++i) {
            const auto entry = m_entries->next();
            if (!entry) {
                m_entries.reset();
                break;
            }
            look(*entry);
        }
    } catch (const Error& error) {
        hinder(error);
        m_entries.reset();
    }
    return true;
}

bool StrayFilesCheck::openNextFolder()
{
    if (m_folders == static_cast<int>(folders().size())) return false;
    try {
        m_entries.emplace(m_folder.folderPath(folders()[static_cast<std::size_t>(m_folders++)].path));
    } catch (const Error& error) {
        hinder(error);
    }
    return true;
}

bool StrayFilesCheck::isNamed(const FolderEntries::Entry& entry) const
{
    switch (folders()[static_cast<std::size_t>(m_folders - 1)].place) {
    case Place::Documents:
        return entry.isFolder ? m_named.hasPageFolder(entry.name) : m_named.hasDocument(entry.name);
    case Place::Charts:
        if (entry.isFolder) return entry.name.compare(u"former", Qt::CaseInsensitive) == 0;
        return m_named.hasChart(entry.name);
    case Place::FormerCharts:
        return !entry.isFolder && m_named.hasFormerChart(entry.name);
    }
    return false;
}

void StrayFilesCheck::look(const FolderEntries::Entry& entry)
{
    if (isNamed(entry) || (!entry.isFolder && isOfDesktop(entry.name))) return;
    if (FileCopy::isUnfinished(FileBlocks::pathOf(entry.name))) return;
    const QString file = folders()[static_cast<std::size_t>(m_folders - 1)].prefix + entry.name;
    add({entry.isFolder ? CheckTexts::tr("The folder %1 belongs to no record.").arg(file)
                        : CheckTexts::tr("The file %1 belongs to no record.").arg(file),
         Finding::Step::PutAside, std::nullopt, file});
}

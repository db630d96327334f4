// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "check/FolderEntries.h"
#include "check/TopicCheck.h"
#include "files/ProgramFolder.h"
#include "files/RecordFiles.h"

#include <optional>

class CheckedDatabase;

/// Looks for files, and folders, beside those of the records that no record names. What the program is about
/// to copy, or did not finish, is none of them.
class StrayFilesCheck final : public TopicCheck
{
public:
    /// The database must outlive the check.
    StrayFilesCheck(CheckedDatabase& database, ProgramFolder folder)
        : TopicCheck(CheckTopic::StrayFiles), m_database(database), m_folder(std::move(folder))
    {
    }

    bool step() override;

private:
    bool openNextFolder();
    void look(const FolderEntries::Entry& entry);
    [[nodiscard]] bool isNamed(const FolderEntries::Entry& entry) const;

    CheckedDatabase& m_database;
    ProgramFolder m_folder;
    RecordFiles m_named;
    bool m_isBegun = false;
    bool m_isRead = false; ///< whether all names are known
    int m_folders = 0;     ///< that were opened
    std::optional<FolderEntries> m_entries;
};

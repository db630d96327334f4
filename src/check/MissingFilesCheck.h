// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "check/TopicCheck.h"
#include "files/ProgramFolder.h"
#include "opening/MissingFiles.h"

#include <optional>

class CheckedDatabase;

/// Looks for the records whose files are not in their folder. What their files held is told if it is known,
/// so that they can be found elsewhere.
class MissingFilesCheck final : public TopicCheck
{
public:
    /// The database must outlive the check.
    MissingFilesCheck(CheckedDatabase& database, ProgramFolder folder)
        : TopicCheck(CheckTopic::MissingFiles), m_database(database), m_folder(std::move(folder))
    {
    }

    bool step() override;

private:
    void tell(const MissingFile& missing);
    [[nodiscard]] QString discOf(const MissingFile& missing);

    CheckedDatabase& m_database;
    ProgramFolder m_folder;
    std::optional<MissingFileSearch> m_search;
};

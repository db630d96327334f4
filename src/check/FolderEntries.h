// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>

#include <filesystem>
#include <optional>

/// What lies in a folder itself, one after the other. A folder that is not there is empty; one that cannot be
/// read is an Error.
class FolderEntries
{
public:
    struct Entry
    {
        QString name;
        bool isFolder = false; ///< and no link to one
    };

    explicit FolderEntries(const QString& folder);

    /// The next entry; std::nullopt after the last. Throws Error.
    [[nodiscard]] std::optional<Entry> next();

private:
    std::filesystem::path m_folder;
    std::filesystem::directory_iterator m_entries;
};

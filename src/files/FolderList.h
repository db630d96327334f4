// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "platform/SteppedWork.h"

#include <QStringList>

#include <filesystem>
#include <string>
#include <vector>

class ProgramFolder;

/// Finds out what folders hold, with all folders in them. Only files count: what is neither a file nor a
/// folder is left out, and so are links to folders and links that lead out of the folder.
class FolderList final : public SteppedWork
{
public:
    /// A number of files and how large they are.
    struct Amount
    {
        int files = 0;
        qint64 bytes = 0;

        [[nodiscard]] QString sizeText() const; ///< for the user, such as `12 MB`
    };

    struct Entry
    {
        // not paths, each of which takes a kilobyte: there may be a hundred thousand
        std::string from;
        std::string to; ///< relative to where the folders are copied to
        bool isFolder = false;
    };

    /// The folders of a collection that are there, to be copied to those of the same names beside another
    /// database. Throws Error if the system does not tell whether one is there.
    [[nodiscard]] static FolderList of(const ProgramFolder& folder, const QStringList& programPaths);

    /// Adds a folder that becomes one of that name if it is copied.
    void add(const QString& folder, const std::filesystem::path& name);

    /// Looks at the next entry of a folder. Throws Error if the folder cannot be read.
    bool step() override;
    [[nodiscard]] QString title() const override;
    [[nodiscard]] QString remark() const override;
    [[nodiscard]] QString text() const override;
    [[nodiscard]] std::optional<int> percent() const override { return std::nullopt; }

    /// What was found; a folder comes before what it holds.
    [[nodiscard]] const std::vector<Entry>& entries() const { return m_entries; }
    [[nodiscard]] Amount amount() const { return m_amount; }

private:
    void look(const std::filesystem::directory_entry& found);

    std::vector<Entry> m_entries;
    std::vector<std::size_t> m_roots; ///< for each entry, the number of the added folder that holds it
    std::size_t m_next = 0;           ///< the first entry that was not looked into yet
    std::filesystem::directory_iterator m_open; ///< the folder before that
    Amount m_amount;
};

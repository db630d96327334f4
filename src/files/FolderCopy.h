// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "files/FileBlocks.h"
#include "files/FolderList.h"

#include <optional>

/// Copies what a list of folders holds, block by block. What is copied is on the disk when the work is done.
class FolderCopy final : public SteppedWork
{
public:
    /// `target` holds none of the list's folders yet. The list must outlive the copy.
    FolderCopy(const FolderList& list, const QString& target);

    /// Copies the next block. Throws Error; what was copied so far stays.
    bool step() override;

    /// Gives up the file that could not be copied, of which nothing stays, so that the next steps go on after
    /// it.
    void skipFile();

    bool undoStep() override;
    [[nodiscard]] QString title() const override;
    [[nodiscard]] QString remark() const override;
    [[nodiscard]] QString text() const override;
    [[nodiscard]] std::optional<int> percent() const override;
    [[nodiscard]] std::optional<WorkBytes> bytes() const override;

private:
    void begin(const FolderList::Entry& entry);

    const FolderList& m_list;
    std::filesystem::path m_target;
    std::size_t m_next = 0;
    std::optional<BlockCopy> m_file; ///< that is being copied
    FolderList::Amount m_done;
};

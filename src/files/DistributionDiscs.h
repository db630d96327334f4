// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>

#include <optional>

class Volumes;

/// The folders that stand for the two discs where no drive has them, as paths of the machine; empty for none.
/// Each holds what its disc holds, or is itself the disc's one folder with the program's files.
struct DiscFolders
{
    QString data;
    QString photos;

    friend bool operator==(const DiscFolders&, const DiscFolders&) = default;
};

/// The two discs that the files were distributed on, as they are in their drives at one moment.
struct DistributionDiscs
{
    /// Looks at all volumes; of two with the same label the later one counts, and a folder only if none has
    /// it.
    static DistributionDiscs scan(const Volumes& volumes, const DiscFolders& folders);

    static constexpr auto filesFolder = u"OrvikDB"; ///< holds the program's files on both
    static constexpr auto dataLabel = u"Orvik";
    static constexpr auto photosLabel = u"Orvik_Photos";
    static constexpr qint64 photoFileType = 6; ///< whose documents are on the disc with the pictures

    std::optional<QString> data; ///< where the data disc is, as a path of the machine without `/` at its end
    std::optional<QString> photos; ///< the same for the disc with the pictures
};

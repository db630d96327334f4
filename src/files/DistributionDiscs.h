// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>

#include <optional>

class Volumes;

/// The two discs that the files were distributed on, as they are in their drives at one moment.
struct DistributionDiscs
{
    /// Looks at all volumes; of two with the same label the later one counts.
    static DistributionDiscs scan(const Volumes& volumes);

    static constexpr auto dataLabel = u"Orvik";
    static constexpr auto photosLabel = u"Orvik_Photos";

    std::optional<QString> data;   ///< where the data disc is mounted, as a path of the machine
    std::optional<QString> photos; ///< the same for the disc with the pictures
};

// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>

#include <vector>

/// A piece of two texts: in both, only in the older one or only in the newer one.
struct DifferenceRun
{
    enum class Kind
    {
        Equal,
        Removed,
        Added
    };

    Kind kind;
    QString text;

    friend bool operator==(const DifferenceRun&, const DifferenceRun&) = default;
};

/// Compares texts by their words, in any script.
namespace WordDifferences {

/// What makes the newer text of the older one, in order; of what was replaced, the removed piece comes first.
/// The cost is bounded: texts that have little in common are compared by lines or, if these differ too much
/// as well, as wholes.
[[nodiscard]] std::vector<DifferenceRun> between(const QString& older, const QString& newer);

} // namespace WordDifferences

// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>

/// Derives ranges from the beginning of a pattern of LIKE, so that an index can find the matches although
/// SQLite's own comparison minds the case of letters.
namespace LikePrefix {

/// The ranges of a column in which every match of a pattern lies, as a condition for SQLite; empty if
/// the pattern's first character can be anything or is not a plain one.
[[nodiscard]] QString ranges(const QString& column, const QString& pattern);

} // namespace LikePrefix

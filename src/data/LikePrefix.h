#pragma once

#include <QString>

/// What the beginning of a pattern of LIKE tells of the texts that match it, so that an index can find them
/// although the engine's own comparison minds the case of letters.
namespace LikePrefix {

/// The ranges of a column in which every match of a pattern lies, as a condition of the engine; empty where
/// the pattern's first character can be anything or is no plain one.
[[nodiscard]] QString ranges(const QString& column, const QString& pattern);

} // namespace LikePrefix

// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "data/ListEntry.h"

#include <QString>

#include <optional>
#include <vector>

/// What the name of a chosen file says about its document.
namespace FileHints {

/// The key of the one type whose name matches the file's extension; std::nullopt if none or several do.
[[nodiscard]] std::optional<qint64> fileType(const QString& path, const std::vector<ListEntry>& types);

/// The one of the first eight types, which have icons of their own, that a type's name stands for; 0 if the
/// name stands for something else, and the type itself if it says nothing.
[[nodiscard]] int knownType(int type, const QString& name);

/// The file's name as a title: without its extension, with blanks for underscores and for hyphens, except
/// those between digits, as in dates.
[[nodiscard]] QString title(const QString& path);

} // namespace FileHints

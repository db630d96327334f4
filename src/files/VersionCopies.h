// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>

/// The names of copies of a database that are kept beside it from before it was brought up to a later
/// version.
namespace VersionCopies {

/// A path beside the database that is free, such as `archive.sqlite.version1` or `archive.sqlite.version1-2`.
[[nodiscard]] QString freePath(const QString& database, int version);

/// Whether a file is such a copy, by its name.
[[nodiscard]] bool isCopy(const QString& file);

/// The name of the database that a copy was made of; of any other file its own, without the folder.
[[nodiscard]] QString originalName(const QString& file);

} // namespace VersionCopies

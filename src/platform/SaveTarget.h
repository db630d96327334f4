// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>
#include <QStringList>

struct Platform;

/// The file that the user wants a command to write.
namespace SaveTarget {

/// Asks for a file, which may end in one of `endings`, such as `.zip`; any other name gets the first of them.
/// Returns an empty text if the user does not want it written. `proposed` and `filter` are those of
/// FileDialogs::saveFile.
[[nodiscard]] QString choose(const Platform& platform, const QString& title, const QString& proposed,
                             const QString& filter, const QStringList& endings);

/// The name of a file that is called like a text, for every file system, without an ending.
[[nodiscard]] QString nameFor(const QString& text);

} // namespace SaveTarget

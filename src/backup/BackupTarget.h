// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>

class ProgramFolder;

/// The file that the user chose for a backup.
namespace BackupTarget {

/// The same with `.zip` after it if its ending stands for no format.
[[nodiscard]] QString withEnding(const QString& file);

/// Whether a file would lie among those that are backed up. Links on the way there are followed.
[[nodiscard]] bool isInside(const ProgramFolder& collection, const QString& file);

} // namespace BackupTarget

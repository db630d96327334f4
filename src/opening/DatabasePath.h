// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>

/// Returns the file that a user means who names a file or a folder: the file itself; of the folder of a
/// collection, or of its folder `data`, the database in it, or an Access file that is to become one. Throws
/// Error if there is no such file or folder, or if the folder holds none of these, or several.
[[nodiscard]] QString databaseAt(const QString& path);

// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>

#include <vector>

/// Whether a workbook holds all that was written: the library that puts it together does not notice if one of
/// its temporary files could not be written whole. `rowBytes` is how long the rows of each sheet are. Throws
/// Error if the file cannot be read.
[[nodiscard]] bool isWholeWorkbook(const QString& file, const std::vector<qint64>& rowBytes);

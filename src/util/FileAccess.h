// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>

/// Whether the process may write to a file, or make files in a folder; false if there is no such path.
[[nodiscard]] bool isWritable(const QString& path);

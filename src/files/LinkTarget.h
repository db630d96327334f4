// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <filesystem>

/// Follows links of the file system.
namespace LinkTarget {

/// Whether a file or folder lies below a folder once all links on the way to either are followed. False for
/// what does not exist.
bool liesIn(const std::filesystem::path& folder, const std::filesystem::path& entry);

} // namespace LinkTarget

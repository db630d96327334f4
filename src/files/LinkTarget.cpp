// SPDX-License-Identifier: GPL-3.0-or-later

#include "files/LinkTarget.h"

#include <algorithm>
#include <system_error>

bool LinkTarget::liesIn(const std::filesystem::path& folder, const std::filesystem::path& entry)
{
    std::error_code failed;
    const std::filesystem::path outer = std::filesystem::canonical(folder, failed);
    if (failed) return false;
    const std::filesystem::path inner = std::filesystem::canonical(entry, failed);
    if (failed) return false;
    return std::mismatch(outer.begin(), outer.end(), inner.begin(), inner.end()).first == outer.end();
}

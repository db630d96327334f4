// SPDX-License-Identifier: GPL-3.0-or-later

#include "util/TextRange.h"

#include <algorithm>

std::vector<TextRange> merged(std::vector<TextRange> ranges)
{
    std::sort(ranges.begin(), ranges.end(),
              [](const TextRange& a, const TextRange& b) { return a.begin < b.begin; });
    std::vector<TextRange> apart;
    for (const TextRange& range : ranges) {
        if (!apart.empty() && range.begin <= apart.back().end) {
            apart.back().end = std::max(apart.back().end, range.end);
        } else {
            apart.push_back(range);
        }
    }
    return apart;
}

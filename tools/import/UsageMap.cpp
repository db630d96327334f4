// SPDX-License-Identifier: GPL-3.0-or-later

#include "UsageMap.h"

#include "ImportError.h"

#include <string>

namespace accessimport {

namespace {

constexpr std::uint8_t mapPageType = 5;
constexpr std::size_t mapPageHeader = 4;
constexpr std::uint64_t pagesPerMapPage = (pageSize - mapPageHeader) * 8;

void addMarked(Bytes bitmap, std::uint64_t firstPage, std::uint64_t pageCount, bool ignoreBeyondEnd,
               std::vector<std::uint32_t>& pages)
{
    for (std::size_t at = 0; at < bitmap.size(); ++at) {
        if (bitmap[at] == 0) continue;
        for (unsigned bit = 0; bit < 8; ++bit) {
            if ((bitmap[at] >> bit & 1) == 0) continue;
            const std::uint64_t page = firstPage + at * 8 + bit;
            if (page < pageCount)
                pages.push_back(static_cast<std::uint32_t>(page));
            else if (!ignoreBeyondEnd)
                throw ImportError(ExitStatus::Damaged, "The file is damaged or cut short: it lists page " +
                                                           std::to_string(page) + ", but has " +
                                                           std::to_string(pageCount) + " pages.");
        }
    }
}

} // namespace

std::vector<std::uint32_t> markedPages(SourceFile& file, Bytes map, bool ignoreBeyondEnd)
{
    std::vector<std::uint32_t> pages;
    if (map.size() < 5)
        throw ImportError(ExitStatus::Damaged, "The file is damaged: a list of pages is too short.");
    if (map[0] == 0) {
        addMarked(map.subspan(5), read32(map, 1), file.pageCount(), ignoreBeyondEnd, pages);
    } else if (map[0] == 1) {
        for (std::size_t at = 1, slot = 0; at + 4 <= map.size(); at += 4, ++slot) {
            const std::uint32_t mapPage = read32(map, at);
            if (mapPage == 0) continue;
            const Page& page = file.page(mapPage);
            if (page[0] != mapPageType)
                throw ImportError(ExitStatus::Damaged, "The file is damaged: page " +
                                                           std::to_string(mapPage) + " is no list of pages.");
            addMarked(Bytes(page).subspan(mapPageHeader), slot * pagesPerMapPage, file.pageCount(),
                      ignoreBeyondEnd, pages);
        }
    } else {
        throw ImportError(ExitStatus::Damaged, "The file is damaged: a list of pages is of an unknown kind.");
    }
    return pages;
}

} // namespace accessimport

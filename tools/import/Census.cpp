// SPDX-License-Identifier: GPL-3.0-or-later

#include "Census.h"

#include "DataPage.h"
#include "UsageMap.h"

#include <set>

namespace accessimport {

namespace {

constexpr std::uint8_t definitionPageType = 2;
constexpr std::uint32_t freePagesMap = 1; ///< the page whose first row marks the pages that are free

std::vector<bool> freePages(SourceFile& file)
{
    std::vector<bool> isFree(file.pageCount());
    const Page content = file.page(freePagesMap);
    const std::optional<DataPage> page = DataPage::open(content);
    const std::optional<Bytes> map = page ? page->row(0) : std::nullopt;
    if (map)
        for (const std::uint32_t number : markedPages(file, *map, true))
            isFree[number] = true;
    return isFree;
}

} // namespace

Census takeCensus(SourceFile& file, const SourceCatalog& catalog)
{
    constexpr std::size_t noTable = SIZE_MAX;
    std::vector<std::size_t> tableOfPage(file.pageCount(), noTable);
    for (std::size_t table = 0; table < catalog.tables.size(); ++table)
        for (const std::uint32_t number : catalog.tables[table].pages)
            tableOfPage[number] = table;
    const std::set<std::uint32_t> listed(catalog.definitionPages.begin(), catalog.definitionPages.end());
    const std::vector<bool> isFree = freePages(file);

    Census census;
    census.rows.resize(catalog.tables.size());
    Page content{};
    for (std::uint32_t number = 0; number < file.pageCount(); ++number) {
        file.readPage(number, content);
        const std::optional<DataPage> page = DataPage::open(content);
        if (!page || page->owner() == DataPage::longValueOwner) continue;
        const std::size_t live = page->liveRows();
        const std::uint32_t owner = page->owner();
        if (tableOfPage[number] != noTable)
            census.rows[tableOfPage[number]] += live;
        else if (live > 0 && !isFree[number] && owner < file.pageCount() && !isFree[owner] &&
                 !listed.contains(owner) && file.page(owner)[0] == definitionPageType)
            census.strayRows += live;
    }
    for (const std::uint64_t rows : census.rows)
        census.totalRows += rows;
    return census;
}

} // namespace accessimport

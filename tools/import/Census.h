// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "SourceFile.h"
#include "SourceTable.h"

#include <cstdint>
#include <vector>

namespace accessimport {

/// What one walk over all pages finds, whatever the tables' own counts say.
struct Census
{
    std::vector<std::uint64_t> rows; ///< live rows of each table, in the catalog's order
    std::uint64_t totalRows = 0;
    std::uint64_t strayRows = 0; ///< rows on pages in use whose table the catalog does not list
};

/// Counts the live rows in the file by the row tables of its pages.
Census takeCensus(SourceFile& file, const SourceCatalog& catalog);

} // namespace accessimport

// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "Bytes.h"
#include "SourceFile.h"

#include <cstdint>
#include <vector>

namespace accessimport {

/// The numbers of the pages that a usage map marks, ascending.
///
/// A map is a row of its own: either a bitmap in place, or a list of pages that hold bitmaps. Throws
/// ImportError(Damaged) for a malformed map, and for a marked page beyond the end of the file unless
/// `ignoreBeyondEnd` is set.
std::vector<std::uint32_t> markedPages(SourceFile& file, Bytes map, bool ignoreBeyondEnd = false);

} // namespace accessimport

// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "Bytes.h"
#include "SourceFile.h"

#include <cstdint>
#include <vector>

namespace accessimport {

/// Collects the whole of a memo or OLE value into `into`.
///
/// `field` is what stands in the row: a length and either the value itself, the place of a single part, or
/// the first of a chain of parts on other pages. Throws ImportError(Damaged) if the parts do not add up to
/// the stated length; a chain that runs in a circle is found that way too.
void readLongValue(SourceFile& file, Bytes field, std::vector<std::uint8_t>& into);

} // namespace accessimport

// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "SourceFile.h"
#include "SourceTable.h"

namespace accessimport {

/// Reads the file's catalog and the definitions of its tables.
///
/// libmdb reads the definitions. On a damaged file it may crash or not come back, which is why this runs in a
/// process that may be lost. Throws ImportError(Damaged).
SourceCatalog readCatalog(SourceFile& file);

} // namespace accessimport

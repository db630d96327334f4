// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "data/TableScan.h"

/// Looks for the documents whose files belong into the index. Each row has the `Number` of a document and the
/// `FileLocation`, which several documents may share.
[[nodiscard]] TableScan indexedDocuments();

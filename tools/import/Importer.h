// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "CommandLine.h"
#include "Report.h"

#include <string>

namespace accessimport {

/// Does the whole conversion into the empty file `temporary`: reads, copies, indexes, verifies, and says what
/// it does and found. Throws ImportError or SQLite::Exception. libmdb may crash it on a damaged file.
void importDatabase(const CommandLine& line, const std::string& temporary, Report& report);

} // namespace accessimport

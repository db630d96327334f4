// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "util/Error.h"

#include <QString>

#include <optional>

/// Brings databases of earlier versions of the program up to this one.
namespace DatabaseUpgrade {

/// Adds the journal to a database that has none, after a copy of it was put beside it; whatever happens
/// meanwhile, the file is wholly old or wholly new. Any other database stays as it is, and so does one that
/// cannot be changed, or whose folder cannot.
///
/// Returns what hindered it, with the file's path; then the file is as it was, and without a copy. Throws
/// Error if the file cannot be opened or if another program writes to it.
[[nodiscard]] std::optional<Error> bringUpToDate(const QString& file);

} // namespace DatabaseUpgrade

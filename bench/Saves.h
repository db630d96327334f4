// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "data/RecordKind.h"
#include "platform/Clock.h"
#include "state/ProgramState.h"

#include <QString>

#include <functional>

/// Saves by the stores, each of a record with links, for benchmarks on a large database.
namespace Saves {

/// The length of the long texts of a record.
constexpr int textLength = 400;

/// The organization that `saving` changes; of the other kinds it is record 2.
[[nodiscard]] qint64 changedOrganization(DatabaseSession& session);

/// Saves a record of the kind under the next title with each call: a new one, or always the same. Returns
/// whether it was saved. `file` is what a new document takes; state and clock must outlive the function.
[[nodiscard]] std::function<bool()> saving(ProgramState& state, const Clock& clock, const QString& file,
                                           RecordKind kind, bool adds);

} // namespace Saves

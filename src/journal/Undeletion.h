// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "data/RecordKind.h"

#include <vector>

class Clock;
class DatabaseSession;

namespace Undeletion {

/// Makes those of the records active again that are deleted now, with all that belongs to them, in one step
/// of the journal: all of them or, if it throws an Error, none. Returns their identifiers.
std::vector<qint64> restore(DatabaseSession& session, const Clock& clock, RecordKind kind,
                            const std::vector<qint64>& identifiers);

} // namespace Undeletion

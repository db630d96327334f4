// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "data/SQLObject.h"
#include "timeline/Moment.h"

#include <QString>

/// The statements that narrow a view of events to a part of the timeline. All take the view's select, from
/// and where clauses; the where clause must hold a complete condition.
namespace TimeWindowQuery {

/// The events that start in the window, both ends included, and those that started before it and still run
/// after its beginning.
[[nodiscard]] QString inWindow(const SQLObject& view, Moment currentTime, Moment windowEnd);

/// The events that started before a moment, the latest first.
[[nodiscard]] QString before(const SQLObject& view, Moment moment);

/// The events that start after a moment, the earliest first.
[[nodiscard]] QString after(const SQLObject& view, Moment moment);

} // namespace TimeWindowQuery

// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <vector>

/// The widths of columns that together are as wide as the room, made of those that their texts would need.
/// If there is more room, all become wider in proportion; if there is less, only the widest give it up.
[[nodiscard]] std::vector<double> fittedWidths(std::vector<double> needed, double room);

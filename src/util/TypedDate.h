// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>

#include <optional>

/// The sort key of a typed date, so that typed dates sort as dates: year * 10000 + month * 100 + day, with 0
/// for a missing month or day. Reads `9/11/2001`, `9/2001`, `2001`,
/// `2001-09-11`, `September 2001`, `11 September 2001` and `September 11, 2001`; std::nullopt for other
/// texts.
std::optional<int> typedDateOrder(const QString& text);

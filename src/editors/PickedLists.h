// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "lists/ListKind.h"
#include "records/PickList.h"

#include <optional>

/// The list that a pick list takes its rows from and that a new entry can be added to; std::nullopt for
/// records.
constexpr std::optional<ListKind> listOf(PickListKind kind)
{
    switch (kind) {
    case PickListKind::Functions:
        return ListKind::Functions;
    case PickListKind::DocumentTypes:
        return ListKind::DocumentTypes;
    case PickListKind::DocumentCategories:
        return ListKind::DocumentCategories;
    default:
        return std::nullopt;
    }
}

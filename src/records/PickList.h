// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "data/RecordKind.h"
#include "records/clsPickListItem.h"

#include <QString>
#include <QStringList>

#include <optional>
#include <vector>

class DatabaseSession;

/// What a pick list offers; the numbers are fixed.
enum class PickListKind
{
    Organizations = 0,
    Functions = 1,
    DocumentTypes = 2,
    Documents = 3,
    DocumentCategories = 4,
    CityLocations = 5
};

/// One record that a pick list offers.
struct PickListRow
{
    qint64 identifier = 0;
    QString name;
    QString state; ///< of a city location, else empty
};

/// What was chosen from a pick list, in order, each record once.
using PickedItems = std::vector<clsPickListItem>;

/// The message about a list without rows.
QString emptyPickListText(PickListKind kind);

/// The kind of record that a pick list offers; std::nullopt for the rows of a lookup table.
constexpr std::optional<RecordKind> recordKindOf(PickListKind kind)
{
    if (kind == PickListKind::Documents) return RecordKind::Document;
    if (kind == PickListKind::Organizations) return RecordKind::Organization;
    return std::nullopt;
}

/// The titles of the columns: one, or City and State.
QStringList pickListHeaders(PickListKind kind);

/// All rows of a kind, in its order. Throws Error.
std::vector<PickListRow> readPickList(DatabaseSession& session, PickListKind kind);

/// The item for a chosen row. Throws Error 6 if its identifier does not fit into 16 bits.
clsPickListItem pickedItem(const PickListRow& row, PickListKind kind);

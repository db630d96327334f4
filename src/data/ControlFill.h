// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "data/DatabaseSession.h"
#include "data/ListEntry.h"

#include <QString>

#include <vector>

/// The table and columns that the entries of a drop-down or list come from.
struct ListSource
{
    QString table;
    QString displayColumn;
    QString keyColumn;
};

/// Adds one entry for each row of a table, in the order of the display texts. If `skipReserved` is set,
/// the reserved row is left out and "None" stands first in its place. Throws Error; the entries added so far
/// stay.
void fillList(DatabaseSession& session, const ListSource& source, bool skipReserved,
              std::vector<ListEntry>& entries);

/// Adds one unchecked entry for each row of a table, in the order of the table.
void fillCheckList(DatabaseSession& session, const ListSource& source, std::vector<CheckEntry>& entries);

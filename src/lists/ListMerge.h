// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "lists/ListKind.h"

class DatabaseSession;

/// The steps of a merge, each to be run within a transaction. Every failure is an Error.
namespace ListMerge {

/// Lets all records that refer to one key refer to another one. A record that refers to both keeps one link.
void moveKeys(DatabaseSession& session, ListKind list, qint64 from, qint64 into);

/// Moves the sub-types of a type to another one; those of equal names become one.
void moveSubTypes(DatabaseSession& session, qint64 from, qint64 into);

/// Moves the known cities of a state to another one; of those of equal names, the other state's stays. Both
/// are abbreviations.
void moveCities(DatabaseSession& session, const QString& from, const QString& into);

/// Removes the references to a key that no record of the user's holds: those of the reserved record, and
/// those of records that are not in the database.
void removeKeys(DatabaseSession& session, ListKind list, qint64 key);

void removeEntry(DatabaseSession& session, ListKind list, qint64 key);

} // namespace ListMerge

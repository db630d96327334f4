// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>

/// Adds that many changes of a database's records to its journal, each with the record before and after it,
/// as years of work would leave them. A few hundred records of each kind are changed again and again.
void addToJournal(const QString& file, int steps);

/// Deletes all records of a database, each by a step of its own.
void deleteAll(const QString& file);

// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>

/// The names of collections' folders beside each other in one place.
namespace CollectionNames {

/// Whether a new folder cannot have that name: the place has an entry called so in any letter case, since a
/// collection may be carried to a system where case does not count; or it is that of a data folder.
bool isTaken(const QString& place, const QString& name);

/// The name for the n-th try, from 1: the wanted one, then with a number.
QString variant(const QString& wanted, int number);

} // namespace CollectionNames

// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>

#include <optional>

class WorkRunner;

/// A new collection that is made of a backup.
namespace RestoredCollection {

/// Makes a collection of that name in a place, with a number after the name if it is taken. It has its name
/// only once everything in it was compared with what was backed up.
///
/// Returns its database; std::nullopt if the user cancelled it. Throws Error. Unless there is a database,
/// nothing of the collection is left.
[[nodiscard]] std::optional<QString> make(WorkRunner& works, const QString& archive, const QString& place,
                                          const QString& name);

} // namespace RestoredCollection

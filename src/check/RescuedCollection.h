// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>
#include <QStringList>

#include <optional>

class ProgramFolder;
class WorkRunner;

/// A new collection that is made of what can still be read of a damaged one, which stays as it is.
struct RescuedCollection
{
    QString database;
    QStringList lines; ///< what the user should know of it

    /// Makes a collection of that name in a place, with a number after the name if it is taken. `database` is
    /// the damaged file in `folder`, whose files are copied as far as they can be read.
    ///
    /// Returns std::nullopt if the user cancelled it. Throws Error if nothing of the database can be rescued,
    /// or if the collection cannot be written. Unless it is returned, nothing of the collection is left.
    [[nodiscard]] static std::optional<RescuedCollection> make(WorkRunner& works, const QString& database,
                                                               const ProgramFolder& folder,
                                                               const QString& place, const QString& name);
};

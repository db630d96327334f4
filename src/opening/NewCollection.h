// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>

/// A collection that is to be made: a folder named after it, with a database of the same name and room for
/// the files of its records.
class NewCollection
{
public:
    /// `place` is the folder that is to hold the collection's. Blanks around the name do not count.
    NewCollection(QString place, const QString& name) : m_place(std::move(place)), m_name(name.trimmed()) {}

    /// The folder of the collection, as a path of the machine.
    [[nodiscard]] QString folder() const;

    /// Why the collection cannot be made there under that name, in a sentence for the user; empty if it can.
    [[nodiscard]] QString hindrance() const;

    /// Makes the collection and returns its database. Its lists are those of another database; if
    /// `listsFrom` is empty, they have their reserved rows only, but for the states and the types of
    /// files. Throws Error; then there is nothing of the collection, and nothing else was touched.
    [[nodiscard]] QString make(const QString& listsFrom) const;

private:
    [[nodiscard]] QString nameHindrance() const;
    [[nodiscard]] bool isTaken() const;

    QString m_place;
    QString m_name;
};

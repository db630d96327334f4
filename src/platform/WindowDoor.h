// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QLockFile>
#include <QString>

#include <memory>

/// The place at which the window that has a database open can be called, in the folder that the system keeps
/// for what is running. One process has it at a time, the window, or a program without one that changes the
/// database; nothing of it lies in the collection.
class WindowDoor
{
public:
    /// The folder of all doors; may be empty. What asks for several doors asks for it once, since Qt warns
    /// each time if the session has named none.
    [[nodiscard]] static QString folder();

    WindowDoor(const QString& folder, const QString& database);

    /// The path of the socket; empty if there is no such database or no place for doors.
    [[nodiscard]] const QString& name() const { return m_name; }

    /// Takes the door until the object goes, if nobody has it. Returns whether it is this object's now.
    bool take();

    /// Whether another process had it when it was to be taken. A door that has no place is nobody's.
    [[nodiscard]] bool isOfAnother() const { return m_isOfAnother; }

private:
    QString m_name;
    std::unique_ptr<QLockFile> m_lock;
    bool m_isOfAnother = false;
};

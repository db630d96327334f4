// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "platform/Platform.h"
#include "util/Error.h"

#include <QString>

#include <optional>

class DatabaseConverter;
class DatabaseSession;
class ProgramFolder;
class QFileInfo;

/// Opens the database that the settings name, or one that the user chose. An Access file that the settings
/// name is converted beside itself, once; of one that the user chose a new collection is made. A database of
/// an earlier version of the program is brought up to date. Nothing is replaced unasked.
class DatabaseOpener
{
public:
    /// What the opener works with. All must outlive it.
    struct Surroundings
    {
        DatabaseConverter& converter;
        const ProgramFolder& home; ///< of the program
        ProgramFolder& folder;     ///< becomes that of the database that is opened
        DatabaseSession& session;
    };

    /// The doors of the platform must outlive the opener.
    DatabaseOpener(const Platform& platform, Surroundings surroundings)
        : m_platform(platform), m_at(surroundings)
    {
    }

    /// The file that `DBFile` names, as a path of the machine; it need not exist.
    [[nodiscard]] QString namedFile() const;

    /// Whether the files opened from now on are opened for reading, so that nothing can change them.
    void setReadOnly(bool readOnly) { m_isReadOnly = readOnly; }

    /// Opens what `DBFile` names. Throws Error; then no database is open, unless the error is that it can
    /// only be read.
    void openNamed();

    /// Opens a file that the user chose and names it in the settings; false if the user changed their mind.
    /// A database in a folder `data` is opened where it is. With any other the user is asked: it can be used
    /// where it is too, or become a collection of its own, as an Access file does. Throws Error; then the
    /// database before stays open, unless the error is that the file can only be read: such a file is open
    /// and named.
    bool openChosen(const QString& file);

    /// Opens a database of the program where it is, and names it in the settings. Throws Error as
    /// `openChosen` does.
    void openAt(const QString& file);

    /// Where new collections are made: the place that the settings name, else the program's own folder.
    [[nodiscard]] QString collectionsPlace() const;

private:
    [[nodiscard]] QString convertNamed(const QString& source);
    [[nodiscard]] std::optional<QString> placeOf(const QString& file);
    [[nodiscard]] std::optional<bool> asksForCopy(const QFileInfo& file);
    void open(const QString& chosen);
    [[nodiscard]] QString separated(const QString& file);
    void requireWritable() const;
    void nameInSettings(const QString& file);

    Platform m_platform;
    Surroundings m_at;
    bool m_isReadOnly = false;
    std::optional<Error> m_upgradeHindrance; ///< why the open file could not be brought up to date
};

// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "platform/Platform.h"

#include <QString>

class DatabaseConverter;
class DatabaseSession;
class ProgramFolder;

/// Opens the database that the settings name, or one that the user chose. An Access file is converted first,
/// once; a file from outside the data folder is copied into it. Nothing there is replaced unasked.
class DatabaseOpener
{
public:
    /// The references, and the doors of the platform, must outlive the opener.
    DatabaseOpener(const Platform& platform, DatabaseConverter& converter, const ProgramFolder& folder,
                   DatabaseSession& session)
        : m_platform(platform), m_converter(converter), m_folder(folder), m_session(session)
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
    /// Throws Error; then the database before stays open, unless the error is that the file can only be read:
    /// such a file is open and named.
    bool openChosen(const QString& file);

private:
    [[nodiscard]] QString dataPath(const QString& name) const;
    [[nodiscard]] QString convertNamed(const QString& name, const QString& source);
    [[nodiscard]] bool mayReplace(const QString& target);
    [[nodiscard]] bool convert(const QString& source, const QString& target, bool replace);
    void open(const QString& file);
    void requireWritable() const;
    void nameInSettings(const QString& file);

    Platform m_platform;
    DatabaseConverter& m_converter;
    const ProgramFolder& m_folder;
    DatabaseSession& m_session;
    bool m_isReadOnly = false;
};

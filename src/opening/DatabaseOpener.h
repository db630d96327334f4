#pragma once

#include "opening/DatabaseConverter.h"
#include "platform/Platform.h"

#include <QString>

struct ProgramState;

/// Opens the database that the settings name, or one that the user chose: an Access file is converted first,
/// once, and what lies outside the data folder is brought into it. Nothing there is replaced unasked.
class DatabaseOpener
{
public:
    /// Both must outlive the opener.
    DatabaseOpener(const Platform& platform, ProgramState& state) : m_platform(platform), m_state(state) {}

    /// Opens what `DBFile` names. Throws Error; then no database is open, or, where it can be read only, it
    /// is open all the same.
    void openNamed();

    /// Opens a file that the user chose and names it in the settings; false where the user changed their
    /// mind. Throws Error; then what was open stays open, or, where the file can be read only, the file is
    /// open and named all the same.
    bool openChosen(const QString& file);

private:
    [[nodiscard]] QString dataPath(const QString& name) const;
    bool convert(const QString& source, const QString& target, bool replace);
    void open(const QString& file);
    void nameInSettings(const QString& file);

    Platform m_platform;
    ProgramState& m_state;
};

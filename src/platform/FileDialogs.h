#pragma once

#include <QString>

/// Asks the user for files. The only door to file dialogs.
class FileDialogs
{
public:
    virtual ~FileDialogs() = default;

    /// The file that the user chose to open, or an empty text. `filter` is in the form of the desktop's
    /// own dialogs, such as `Databases (*.mdb *.sqlite)`.
    [[nodiscard]] virtual QString openFile(const QString& title, const QString& filter) = 0;

protected:
    FileDialogs() = default;
    FileDialogs(const FileDialogs&) = default;
    FileDialogs& operator=(const FileDialogs&) = default;
};

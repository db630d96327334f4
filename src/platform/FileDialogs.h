// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>

/// Asks the user for files and folders. The only door to file dialogs.
class FileDialogs
{
public:
    virtual ~FileDialogs() = default;

    /// The file that the user chose to open, or an empty text. `filter` is made of pairs of a text for the
    /// user and the patterns it stands for, all of them separated by `|`, such as
    /// `Databases (*.mdb *.sqlite)|*.mdb *.sqlite|All Files (*.*)| *.*`; `*.*` takes names without a point
    /// too.
    [[nodiscard]] virtual QString openFile(const QString& title, const QString& filter) = 0;

    /// The file that the user chose to write, or an empty text. The desktop has asked whether a file that is
    /// there may be replaced. `proposed` is a name, with or without a folder; `filter` is as above. A name
    /// without a point gets the first ending of what the user chose of it.
    [[nodiscard]] virtual QString saveFile(const QString& title, const QString& proposed,
                                           const QString& filter) = 0;

    /// The folder that the user chose, as a path of the machine, or an empty text. The dialog begins in
    /// `start`, or in the folder used last if that is empty or does not exist.
    [[nodiscard]] virtual QString chooseFolder(const QString& title, const QString& start) = 0;

protected:
    FileDialogs() = default;
    FileDialogs(const FileDialogs&) = default;
    FileDialogs& operator=(const FileDialogs&) = default;
};

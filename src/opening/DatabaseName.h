// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>

class ProgramFolder;

/// How the settings name a database: by a path below the data folder of the program's own folder, which may
/// lead to another folder beside that one, such as `../Sample/data/sample.sqlite`, or by an absolute path.
/// The names stay true if the program's folder is moved with all that it holds.
namespace DatabaseName {

/// The path of the machine that a name stands for; the file need not exist. Folders are parted by `/` or
/// `\`.
QString fileOf(const ProgramFolder& home, const QString& name);

/// The name of a file; absolute if it lies outside the program's folder.
QString nameOf(const ProgramFolder& home, const QString& file);

} // namespace DatabaseName

// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>

class ProgramFolder;

/// The sample that comes with the program, and the user's own copy of it in the program's folder.
namespace SampleCollection {

/// The folder of the user's copy; it need not exist.
QString folder(const ProgramFolder& home);

/// The database of the sample that was installed with the program; empty if none was.
QString installedDatabase(const ProgramFolder& home);

/// The database of the user's copy; empty if there is none.
QString ownDatabase(const ProgramFolder& home);

/// Why there is no sample to look at, in a sentence for the user; empty if there is one.
QString hindrance(const ProgramFolder& home);

/// Makes the user's copy if there is none, and returns its database. Throws Error.
QString provide(const ProgramFolder& home);

} // namespace SampleCollection

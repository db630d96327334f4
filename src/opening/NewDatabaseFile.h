// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>

/// Makes database files from nothing.
namespace NewDatabaseFile {

/// Makes a database without records. Its lists are those of the database `listsFrom`; if that is empty, they
/// have their reserved rows only, but for the states and the types of files. Throws Error; then what is there
/// of the file is unfinished. Fails if the file exists.
void make(const QString& file, const QString& listsFrom);

} // namespace NewDatabaseFile

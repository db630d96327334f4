// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>

#include <vector>

/// Checks that the numbers in the headers of a shapefile fit its size and one another, which the library that
/// reads it takes for granted. Each call throws Error if they do not.
namespace ShapeFileCheck {

using Bytes = std::vector<char>;

/// Returns the content of one of the files. Throws Error if it cannot be read or is larger than 64 MiB.
Bytes load(const QString& file);

/// Checks shapes and index together, and returns the number of records.
int countShapes(const Bytes& shapes, const Bytes& index);

/// Checks the table, and returns the number of its rows.
int countRows(const Bytes& table);

/// Throws the Error of a damaged map, with a reason for the user.
[[noreturn]] void refuse(const QString& reason);

} // namespace ShapeFileCheck

#pragma once

#include <QString>

#include <vector>

/// Whether the figures in the headers of a file of shapes fit its size and one another, which the library
/// that reads the shapes takes for granted. Each call throws Error where they do not.
namespace ShapeFileCheck {

using Bytes = std::vector<char>;

/// The bytes of one of the files. Throws Error where it cannot be read or is unreasonably large.
Bytes load(const QString& file);

/// Checks shapes and index together; gives the number of records.
int countShapes(const Bytes& shapes, const Bytes& index);

/// Checks the table; gives the number of its rows.
int countRows(const Bytes& table);

[[noreturn]] void refuse(const QString& reason);

} // namespace ShapeFileCheck

// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "data/RecordKind.h"
#include "support/Testing.h"

/// The lines of a file in the folder of all tests, without the blank line at its end.
[[nodiscard]] QStringList linesIn(const char* file);

/// What is asked, in one line, and the lines that are expected, each with its line end.
struct FileCase
{
    QString asked;
    QString expected;
};

/// The cases of such a file, at least as many as `least`. There, `$ ` stands before what is asked, and what
/// is expected follows in lines of its own.
[[nodiscard]] std::vector<FileCase> casesIn(const char* file, std::size_t least);

/// The kind of record that a file of cases calls as its table is called. Throws if there is none.
[[nodiscard]] RecordKind kindNamed(const QString& table);

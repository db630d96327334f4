// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <SQLiteCpp/SQLiteCpp.h>

#include <string>
#include <vector>

/// The rows of a table in the text form of the expected tables: one line for each row, columns divided by
/// TABs.

/// Lines from an imported table, sorted bytewise. Each column is turned back from the form that the database
/// holds into the form of its Access type; singles are given their own short form when `singles` names them.
std::vector<std::string> importedLines(SQLite::Database& database, const std::string& table,
                                       const std::vector<std::string>& columns,
                                       const std::vector<std::string>& singles = {});

/// The lines of an expected table, sorted, and its columns.
struct ExpectedTable
{
    std::vector<std::string> columns;
    std::vector<std::string> lines;
};
ExpectedTable readExpectedTable(const std::string& path);

/// One line of a manifest.
struct ManifestLine
{
    std::string table;
    std::size_t rows = 0;
    std::vector<std::string> columns;
    std::string sha256;
};
std::vector<ManifestLine> readManifest(const std::string& path);

/// SHA-256 over all lines, each followed by LF.
std::string sha256Of(const std::vector<std::string>& lines);

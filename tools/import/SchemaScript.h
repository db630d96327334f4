// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace accessimport {

/// The program's schema script, divided into statements and into what comes before and after the rows.
struct SchemaScript
{
    std::vector<std::string> tables; ///< settings of the file, and its tables
    std::vector<std::string> rest;   ///< indexes and stored queries
    std::vector<std::string> names;  ///< of all tables, indexes and stored queries
};

/// Divides a script. Its own BEGIN and COMMIT are left out.
SchemaScript divideScript(std::string_view script);

/// The script that this program was built with (the generated file defines it).
std::string_view embeddedSchema();

} // namespace accessimport

// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <string_view>

/// The files that the program was built with and that a new database is made from. Generated sources define
/// them.
namespace NewDatabaseTexts {

std::string_view schema();    ///< the script that makes tables, indexes and stored queries
std::string_view firstRows(); ///< the script of the rows that every database has from its beginning
std::string_view
states(); ///< a line for each state: its abbreviation, a tab, its name; after a line of titles

} // namespace NewDatabaseTexts

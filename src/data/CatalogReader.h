// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "data/Catalog.h"

#include <SQLiteCpp/SQLiteCpp.h>

/// Reads the tables, stored queries and indexes of an open file that are the program's own; what else it
/// holds is not read. Throws Error if one of them is missing or is of another form.
Catalog readCatalog(SQLite::Database& database);

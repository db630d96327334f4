// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <cstdint>
#include <filesystem>

/// What a large database is made of.
struct LargeDatabasePlan
{
    std::filesystem::path schema; ///< the program's schema script
    std::filesystem::path
        cities; ///< known cities: name, state, latitude, longitude, tab-separated, under a heading
    std::filesystem::path target; ///< replaced if it exists
    std::int64_t count = 32000;   ///< records of each kind, the reserved row among them
    std::uint64_t seed = 1;
};

/// Builds the database. Throws std::exception if a file cannot be read or written.
void buildLargeDatabase(const LargeDatabasePlan& plan);

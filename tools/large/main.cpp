// SPDX-License-Identifier: GPL-3.0-or-later

#include "LargeDatabase.h"

#include <cstdlib>
#include <exception>
#include <iostream>

/// orvik-large SCHEMA CITIES TARGET COUNT [SEED]
int main(int argc, char** argv)
{
    if (argc < 5 || argc > 6) {
        std::cerr << "usage: orvik-large SCHEMA CITIES TARGET COUNT [SEED]\n";
        return EXIT_FAILURE;
    }
    try {
        LargeDatabasePlan plan{argv[1], argv[2], argv[3], std::stoll(argv[4]), 1};
        if (argc == 6) plan.seed = std::stoull(argv[5]);
        buildLargeDatabase(plan);
        return EXIT_SUCCESS;
    } catch (const std::exception& exception) {
        std::cerr << "orvik-large: " << exception.what() << '\n';
        return EXIT_FAILURE;
    }
}

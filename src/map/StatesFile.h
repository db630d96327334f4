// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "map/StatesLayer.h"

class ProgramFolder;

/// Reads the outlines of the states from the maps of the folder, or from those of the program. Throws Error.
[[nodiscard]] StatesLayer readStates(const ProgramFolder& folder);

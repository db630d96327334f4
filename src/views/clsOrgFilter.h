// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "records/clsPickListItem.h"

#include <vector>

/// The default filter of organizations: no choices.
struct clsOrgFilter
{
    std::vector<clsPickListItem> venues;
    std::vector<clsPickListItem> functions;
    std::vector<clsPickListItem> types;
    std::vector<clsPickListItem> cities;
    std::vector<clsPickListItem> states;
};

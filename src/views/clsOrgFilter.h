#pragma once

#include "records/clsPickListItem.h"

#include <vector>

/// What organizations are narrowed to: nothing yet.
struct clsOrgFilter
{
    std::vector<clsPickListItem> venues;
    std::vector<clsPickListItem> functions;
    std::vector<clsPickListItem> types;
    std::vector<clsPickListItem> cities;
    std::vector<clsPickListItem> states;
};

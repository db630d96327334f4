// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "data/RecordKind.h"
#include "records/PickList.h"

#include <QString>

#include <optional>
#include <vector>

/// The names and captions of the controls of one criterion on the advanced search form.
struct CriterionControls
{
    /// A lookup table, all of whose rows are shown.
    struct Lookup
    {
        QString table;
        QString keyColumn;
        QString nameColumn;
    };

    /// Records that the user picks.
    struct Picked
    {
        PickListKind records;
        QString addName;
        QString addCaption;
        QString clearName;
        QString clearCaption;
    };

    QString stem; ///< how the names of its check box, frame and list end
    QString caption;
    std::optional<Lookup> lookup;
    std::optional<Picked> picked; ///< if neither is set, the criterion is the dates of events
};

/// Returns the controls of a kind's criteria, in the order of the criteria.
std::vector<CriterionControls> criterionControls(RecordKind kind);

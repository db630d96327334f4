#pragma once

#include "views/RecordPicker.h"
#include "views/clsView.h"

#include <QString>

#include <optional>
#include <vector>

/// The names and captions of the controls of one criterion on the advanced search form.
struct CriterionControls
{
    /// A lookup table that is shown whole.
    struct Lookup
    {
        QString table;
        QString keyColumn;
        QString nameColumn;
    };

    /// Records that are picked.
    struct Picked
    {
        RecordPicker::Records records;
        QString addName;
        QString addCaption;
        QString clearName;
        QString clearCaption;
    };

    QString stem; ///< ends the names of its check box, frame and list
    QString caption;
    std::optional<Lookup> lookup; ///< neither this nor the other: the dates of events
    std::optional<Picked> picked;
};

/// The controls of a kind's criteria, in the order of the criteria themselves.
std::vector<CriterionControls> criterionControls(ViewKind kind);

// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "timeline/BandScale.h"

#include <QString>

#include <functional>
#include <vector>

/// The division of the band by the calendar: centuries, decades and years with four digits or, if the
/// timeline is short, months, days and hours. Positions are units from the band's left edge.
struct BandLabels
{
    struct Label
    {
        double left = 0;
        double tick = 0; ///< the position of its moment
        Moment moment = 0;
        QString text;
        bool isStrong = false; ///< begins a longer time, as the first year of a decade does
    };

    std::vector<double> ticks; ///< in their order
    std::vector<Label> labels; ///< in their order; none overlaps another or reaches over an edge
};

/// The width of a label in units.
using LabelMeasure = std::function<int(const QString& text)>;

/// Returns as many labels as there is room for.
[[nodiscard]] BandLabels bandLabelsOf(const BandScale& scale, const LabelMeasure& labelWidth);

// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "timeline/TimeWindow.h"

#include <QString>

#include <functional>
#include <vector>

/// The width of a label of the ruler in the font of its row, in units.
using LabelWidth = std::function<int(const QString& text, bool isDate)>;

/// The ruler above the lanes: a tick at each division of the scale, with its time if there is room for it,
/// and with the date at the start of a day. Positions are units from the left edge of the window.
struct TimelineRuler
{
    enum class Rank
    {
        Part,  ///< a part of a step
        Step,  ///< a step of the scale
        Day,   ///< midnight
        Month, ///< the first midnight of a month
        Year   ///< the first midnight of a year
    };

    struct Tick
    {
        double left = 0;
        Rank rank = Rank::Part;
        Moment moment = 0;
    };

    struct Label
    {
        double left = 0;
        QString text;
        Rank rank = Rank::Part;
        bool isDate = false; ///< dates have a row of their own above the times
    };

    std::vector<Tick> ticks;
    std::vector<Label> labels; ///< none overlaps another of its row or reaches over an edge
};

/// Returns the ruler of a window, for the strip that `positionScale` returned.
[[nodiscard]] TimelineRuler rulerOf(const TimeWindow& window, const TimelineScale::Strip& strip,
                                    const LabelWidth& labelWidth);

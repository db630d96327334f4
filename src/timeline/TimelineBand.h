// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "timeline/Moment.h"

#include <QWidget>

class Timeline;

/// The whole span of the timeline above the ruler, with the visible window as a box that can be moved.
class TimelineBand final : public QWidget
{
    Q_OBJECT

public:
    /// The timeline must outlive the band.
    TimelineBand(const Timeline& timeline, QWidget* parent);

    /// Shows the window as it is now.
    void showWindow();

Q_SIGNALS:
    /// The user chose the window that begins at a moment, at a level.
    void periodChosen(Moment leftEdge, int zoomFactor);

private:
    const Timeline& m_timeline;
};

// SPDX-License-Identifier: GPL-3.0-or-later

#include "timeline/TimelineBand.h"

#include "timeline/Timeline.h"

TimelineBand::TimelineBand(const Timeline& timeline, QWidget* parent) : QWidget(parent), m_timeline(timeline)
{
    setObjectName(QStringLiteral("picBand"));
    setAccessibleName(tr("Whole time span"));
}

void TimelineBand::showWindow()
{
    update();
}

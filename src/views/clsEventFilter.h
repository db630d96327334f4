// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "records/clsPickListItem.h"

#include <QString>

#include <vector>

/// The default filter of events: a range of dates and times, and no choices.
struct clsEventFilter
{
    QString startDate = QStringLiteral("09/11/2001");
    QString startTime = QStringLiteral("12:00:00 AM");
    QString endDate = QStringLiteral("11/30/2001");
    QString endTime = QStringLiteral("11:59:00 PM");
    std::vector<clsPickListItem> venues;
    std::vector<clsPickListItem> functions;
    std::vector<clsPickListItem> organizations;
};

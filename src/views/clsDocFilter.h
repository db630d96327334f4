// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "records/clsPickListItem.h"

#include <QDate>
#include <QString>

#include <vector>

/// The default filter of documents: dates from the first of the data to today, and no choices.
struct clsDocFilter
{
    explicit clsDocFilter(QDate today) : endDate(today.toString(QStringLiteral("MM/dd/yyyy"))) {}

    QString startDate = QStringLiteral("09/11/2001");
    QString endDate;
    std::vector<clsPickListItem> venues;
    std::vector<clsPickListItem> types;
    std::vector<clsPickListItem> organizations;
};

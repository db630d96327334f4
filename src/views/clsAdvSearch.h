// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "records/clsPickListItem.h"

#include <QDate>
#include <QString>
#include <QTime>

#include <utility>
#include <vector>

/// The criteria of an advanced search, and for each kind of record the conditions made of them. Each
/// condition begins with ` AND ` and follows the kind's standard where clause.
///
/// A criterion counts if its flag is set and its list is not empty. Identifiers keep the order of the list;
/// texts are not escaped.
struct clsAdvSearch
{
    using Items = std::vector<clsPickListItem>;

    bool bDocVenues = false;
    Items docVenues;
    bool bDocTypes = false;
    Items docTypes;
    bool bDocOrgs = false;
    Items docOrgs;
    bool bFileTypes = false;
    Items fileTypes;

    /// First and last start date of an event, and earliest and latest start time on each of these days.
    bool bEventDate = false;
    QDate eventStartDate{1899, 12, 30};
    QTime eventStartTime{0, 0};
    QDate eventEndDate{1899, 12, 30};
    QTime eventEndTime{0, 0};
    bool bEventVenues = false;
    Items eventVenues;
    bool bEventFunctions = false;
    Items eventFunctions;
    bool bEventOrgs = false;
    Items eventOrgs;

    bool bOrgVenues = false;
    Items orgVenues;
    bool bOrgFunctions = false;
    Items orgFunctions;
    bool bOrgTypes = false;
    Items orgTypes;
    bool bOrgLocations = false;
    Items orgLocations; ///< each named `city, state`

    QString advDocSQL;
    QString advEventSQL;
    QString advOrgSQL;

    /// Appends the conditions to the three texts, which must be empty: call it once.
    void buildAdvSQL();

    /// Returns the first two parts of a location's name between its commas, without outer blanks. If the city
    /// itself has a comma, its second part takes the place of the state.
    static std::pair<QString, QString> cityAndState(const QString& name);

private:
    void buildEventDates();
    void buildLocations();
};

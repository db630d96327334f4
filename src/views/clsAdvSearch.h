#pragma once

#include "records/clsPickListItem.h"

#include <QDate>
#include <QString>
#include <QTime>

#include <utility>
#include <vector>

/// The criteria of an advanced search, and the conditions that they make: a run of conditions for each kind
/// of record, each beginning with ` AND `, to stand behind the kind's standard where clause.
///
/// A criterion counts where its flag is set and its list holds something. Identifiers keep the order of the
/// list. Texts go into a condition as they are.
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

    /// Bounds of an event's start date and, each day on its own, of its start time.
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

    /// Appends the conditions to the three texts. They are not cleared first: a search is built once.
    void buildAdvSQL();

    /// The two parts of a location's name, without outer blanks; of a city that holds a comma itself, the
    /// part behind it is taken for the state.
    static std::pair<QString, QString> cityAndState(const QString& name);

private:
    void buildEventDates();
    void buildLocations();
};

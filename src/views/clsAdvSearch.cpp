// SPDX-License-Identifier: GPL-3.0-or-later

#include "views/clsAdvSearch.h"

#include "util/StrTok.h"

#include <QStringList>

namespace {

void addList(QString& sql, bool flag, const clsAdvSearch::Items& items, const char* prefix,
             const char* separator = ",")
{
    if (!flag || items.empty()) return;
    QStringList identifiers;
    for (const clsPickListItem& item : items)
        identifiers << QString::number(item.itemID);
    sql += QLatin1StringView(prefix) + identifiers.join(QLatin1StringView(separator)) + QStringLiteral(") ");
}

/// `City LIKE 'Austin' AND State LIKE 'TX'` for a location named `Austin, TX`.
QString locationCondition(const QString& name)
{
    const auto [city, state] = clsAdvSearch::cityAndState(name);
    return QStringLiteral("City LIKE '") + city + QStringLiteral("' AND State LIKE '") + state + u'\'';
}

} // namespace

void clsAdvSearch::buildAdvSQL()
{
    // unlike every other list, the venues of documents are joined without commas
    addList(advDocSQL, bDocVenues, docVenues, " AND VenueID IN (", "");
    addList(advDocSQL, bDocTypes, docTypes, " AND DocumentTypeID IN (");
    addList(advDocSQL, bDocOrgs, docOrgs, " AND Document.OrganizationID IN (");
    addList(advDocSQL, bFileTypes, fileTypes, " AND FileTypeID IN (");

    buildEventDates();
    addList(advEventSQL, bEventVenues, eventVenues, " AND VenueID IN (");
    addList(advEventSQL, bEventFunctions, eventFunctions, " AND EventFunctions.FunctionID IN (");
    addList(advEventSQL, bEventOrgs, eventOrgs, " AND Organization.OrganizationID IN (");

    addList(advOrgSQL, bOrgVenues, orgVenues, " AND VenueID IN (");
    addList(advOrgSQL, bOrgFunctions, orgFunctions, " AND FunctionID IN (");
    addList(advOrgSQL, bOrgTypes, orgTypes, " AND OrganizationTypeID IN (");
    buildLocations();
}

std::pair<QString, QString> clsAdvSearch::cityAndState(const QString& name)
{
    StrTok tokens;
    tokens.AddDelimiter(QStringLiteral(","));
    tokens.setDataString(name);
    QString city = tokens.NextToken().trimmed();
    QString state = tokens.atEnd() ? QString() : tokens.NextToken().trimmed();
    return {std::move(city), std::move(state)};
}

void clsAdvSearch::buildEventDates()
{
    if (!bEventDate) return;
    const QString date = QStringLiteral("M/d/yyyy");
    const QString time = QStringLiteral("hh:mm");
    advEventSQL += QStringLiteral(" AND StartDate >= #") + eventStartDate.toString(date) +
                   QStringLiteral("# AND StartTime >= #") + eventStartTime.toString(time) +
                   QStringLiteral("# AND StartDate <= #") + eventEndDate.toString(date) +
                   QStringLiteral("# AND StartTime <= #") + eventEndTime.toString(time) +
                   QStringLiteral("# ");
}

void clsAdvSearch::buildLocations()
{
    if (!bOrgLocations || orgLocations.empty()) return;
    if (orgLocations.size() == 1) {
        advOrgSQL += QStringLiteral(" AND ") + locationCondition(orgLocations.front().itemName) + u' ';
        return;
    }
    advOrgSQL += QStringLiteral(" AND (");
    bool first = true;
    for (const clsPickListItem& location : orgLocations) {
        advOrgSQL += first ? QStringLiteral(" (") : QStringLiteral(" OR (");
        advOrgSQL += locationCondition(location.itemName) + QStringLiteral(") ");
        first = false;
    }
    advOrgSQL += QStringLiteral(") ");
}

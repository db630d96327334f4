// SPDX-License-Identifier: GPL-3.0-or-later

#include "views/clsAdvSearch.h"

#include "support/TestDatabase.h"

namespace {

clsAdvSearch::Items items(std::initializer_list<int> identifiers)
{
    clsAdvSearch::Items made;
    for (const int identifier : identifiers)
        made.push_back({static_cast<std::int16_t>(identifier), QStringLiteral("any")});
    return made;
}

clsAdvSearch::Items locations(std::initializer_list<const char16_t*> names)
{
    clsAdvSearch::Items made;
    for (const char16_t* name : names)
        made.push_back({0, QString::fromUtf16(name)});
    return made;
}

/// For each list alone: the condition that it adds, and to which of the three texts.
TEST(clsAdvSearch, WritesAConditionForEachList)
{
    using Search = clsAdvSearch;
    const struct
    {
        bool Search::*flag;
        Search::Items Search::*list;
        QString Search::*sql;
        const char16_t* expected;
    } cases[] = {
        {&Search::bDocVenues, &Search::docVenues, &Search::advDocSQL, u" AND VenueID IN (312-4) "},
        {&Search::bDocTypes, &Search::docTypes, &Search::advDocSQL, u" AND DocumentTypeID IN (3,12,-4) "},
        {&Search::bDocOrgs, &Search::docOrgs, &Search::advDocSQL,
         u" AND Document.OrganizationID IN (3,12,-4) "},
        {&Search::bFileTypes, &Search::fileTypes, &Search::advDocSQL, u" AND FileTypeID IN (3,12,-4) "},
        {&Search::bEventVenues, &Search::eventVenues, &Search::advEventSQL, u" AND VenueID IN (3,12,-4) "},
        {&Search::bEventFunctions, &Search::eventFunctions, &Search::advEventSQL,
         u" AND EventFunctions.FunctionID IN (3,12,-4) "},
        {&Search::bEventOrgs, &Search::eventOrgs, &Search::advEventSQL,
         u" AND Organization.OrganizationID IN (3,12,-4) "},
        {&Search::bOrgVenues, &Search::orgVenues, &Search::advOrgSQL, u" AND VenueID IN (3,12,-4) "},
        {&Search::bOrgFunctions, &Search::orgFunctions, &Search::advOrgSQL, u" AND FunctionID IN (3,12,-4) "},
        {&Search::bOrgTypes, &Search::orgTypes, &Search::advOrgSQL, u" AND OrganizationTypeID IN (3,12,-4) "},
    };
    for (const auto& [flag, list, sql, expected] : cases) {
        clsAdvSearch search;
        search.*list = items({3, 12, -4});
        search.buildAdvSQL();
        EXPECT_EQ(search.*sql, QString()) << "the flag is not set";
        search.*flag = true;
        search.buildAdvSQL();
        EXPECT_EQ(search.*sql, QString::fromUtf16(expected));
        EXPECT_EQ(search.advDocSQL.size() + search.advEventSQL.size() + search.advOrgSQL.size(),
                  (search.*sql).size())
            << "the other two stay empty";
        (search.*list).clear();
        (search.*sql).clear();
        search.buildAdvSQL();
        EXPECT_EQ(search.*sql, QString()) << "the list is empty";
    }
}

TEST(clsAdvSearch, WritesDatesAndTimesOfEvents)
{
    clsAdvSearch search;
    search.bEventDate = true;
    search.eventStartDate = QDate(2001, 9, 11);
    search.eventEndDate = QDate(2001, 11, 30);
    search.eventEndTime = QTime(23, 59);
    search.bEventFunctions = true;
    search.eventFunctions = items({4, 7, 9});
    search.buildAdvSQL();
    EXPECT_EQ(
        search.advEventSQL,
        QStringLiteral(" AND StartDate >= #9/11/2001# AND StartTime >= #00:00# AND StartDate <= "
                       "#11/30/2001# AND StartTime <= #23:59#  AND EventFunctions.FunctionID IN (4,7,9) "));
}

TEST(clsAdvSearch, WritesLocations)
{
    const struct
    {
        clsAdvSearch::Items locations;
        const char16_t* expected;
    } cases[] = {
        {locations({u"Austin, TX"}), u" AND City LIKE 'Austin' AND State LIKE 'TX' "},
        {locations({u" St. Paul ,MN "}), u" AND City LIKE 'St. Paul' AND State LIKE 'MN' "},
        {locations({u"Austin"}), u" AND City LIKE 'Austin' AND State LIKE '' "},
        {locations({u"Austin,"}), u" AND City LIKE 'Austin' AND State LIKE '' "},
        {locations({u"Coeur d'Alene, ID"}), u" AND City LIKE 'Coeur d'Alene' AND State LIKE 'ID' "},
        {locations({u"Austin, TX", u"Dallas, TX", u"Reno, NV"}),
         u" AND ( (City LIKE 'Austin' AND State LIKE 'TX')  OR (City LIKE 'Dallas' AND State LIKE 'TX')  OR "
         u"(City LIKE 'Reno' AND State LIKE 'NV') ) "},
    };
    for (const auto& [places, expected] : cases) {
        clsAdvSearch search;
        search.bOrgLocations = true;
        search.orgLocations = places;
        search.buildAdvSQL();
        EXPECT_EQ(search.advOrgSQL, QString::fromUtf16(expected));
    }
}

TEST(clsAdvSearch, AppendsToWhatItHas)
{
    clsAdvSearch search;
    search.bOrgFunctions = true;
    search.orgFunctions = items({5});
    search.buildAdvSQL();
    search.buildAdvSQL();
    EXPECT_EQ(search.advOrgSQL, QStringLiteral(" AND FunctionID IN (5)  AND FunctionID IN (5) "));
}

} // namespace

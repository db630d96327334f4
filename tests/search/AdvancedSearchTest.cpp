#include "search/AdvancedSearch.h"

#include "search/clsDocFilter.h"
#include "search/clsEventFilter.h"
#include "search/clsOrgFilter.h"
#include "support/TestDatabase.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

using Search = clsAdvSearch;

Search::Items items(std::initializer_list<int> identifiers)
{
    Search::Items made;
    for (const int identifier : identifiers)
        made.push_back({static_cast<std::int16_t>(identifier), u"name %1"_s.arg(identifier)});
    return made;
}

Search::Items named(std::initializer_list<const char16_t*> names)
{
    Search::Items made;
    for (const char16_t* name : names) {
        made.push_back({static_cast<std::int16_t>(made.size() + 2), QString::fromUtf16(name)});
    }
    return made;
}

/// Each criterion of a search switched on, with the items given for the lists among them.
Search searchBy(std::initializer_list<std::pair<bool Search::*, Search::Items Search::*>> criteria,
                const Search::Items& chosen)
{
    Search search;
    for (const auto& [flag, list] : criteria) {
        search.*flag = true;
        search.*list = chosen;
    }
    return search;
}

/// Documents, events and organizations with several links each; what a search finds is counted by hand.
class AdvancedSearchOnFile : public testing::Test
{
protected:
    AdvancedSearchOnFile()
    {
        database.run("INSERT INTO Organization (OrganizationID, OrganizationName, OrganizationTypeID, "
                     "FunctionID, City, State, Status) VALUES "
                     "(2, 'd', 2, 2, 'Austin', 'TX', 'ACTIVE'), (3, 'c', 2, 3, 'Dallas', 'TX', 'ACTIVE'), "
                     "(4, 'b', 3, 3, 'AUSTIN', 'tx', 'ACTIVE'), (5, 'a', 3, 2, 'Austin', 'MN', 'ACTIVE'), "
                     "(6, 'e', 2, 2, 'Austin', 'TX', 'DELETED'), (7, 'f', NULL, NULL, 'Rome', NULL, NULL), "
                     "(8, 'g', 2, 2, 'Rome', '', 'ACTIVE')");
        database.run("INSERT INTO OrganizationVenues VALUES (2, 2), (2, 3), (2, 3), (3, 3), (4, 12), (5, 2)");
        database.run("INSERT INTO Document (DocumentID, DocumentName, FileTypeID, OrganizationID, dStatus) "
                     "VALUES (2, 'd', 2, 2, 'ACTIVE'), (3, 'c', 3, 2, 'ACTIVE'), (4, 'b', 2, 3, 'ACTIVE'), "
                     "(5, 'a', 2, NULL, 'ACTIVE'), (6, 'e', 2, 2, 'DELETED')");
        database.run("INSERT INTO DocumentVenues VALUES (2, 3), (2, 12), (3, 12), (4, 3), (5, 312), (6, 3)");
        database.run("INSERT INTO DocumentTypes VALUES (2, 2), (2, 3), (3, 3), (4, 4), (4, 4)");
        database.run("INSERT INTO Event (EventID, EventName, StartDate, StartTime, EndDate, Status) VALUES "
                     "(2, 'a', '2001-09-11', '08:46', '2001-09-11', 'ACTIVE'), "
                     "(3, 'b', '2001-10-01', '00:00', '2002-10-01', 'ACTIVE'), "
                     "(4, 'c', '2001-11-30', '23:59:30', '2001-11-30', 'ACTIVE'), "
                     "(5, 'd', '2001-12-01', '12:00', '2001-12-01', 'ACTIVE'), "
                     "(6, 'e', NULL, NULL, NULL, 'ACTIVE'), "
                     "(7, 'f', '2001-11-01', NULL, '2001-11-01', 'ACTIVE')");
        database.run("INSERT INTO EventVenues VALUES (2, 2), (2, 3), (3, 3), (5, 2)");
        database.run("INSERT INTO EventFunctions VALUES (2, 2), (2, 3), (2, 4), (4, 4), (5, 3)");
        database.run("INSERT INTO OrganizationEvents VALUES (2, 2), (3, 2), (3, 3), (2, 5)");
    }

    /// The identifiers that a search finds, in the order of the list.
    QString found(ViewKind kind, Search search)
    {
        search.buildAdvSQL();
        return firstColumnOf(database.session(), advancedView(queries, kind, search).SQL->sqlStr());
    }

    TestDatabase database;
    StandardQueries queries;
};

TEST_F(AdvancedSearchOnFile, FindsUnderNoneWhatItsListsShowAsNone)
{
    database.run("INSERT INTO FileTypes VALUES (1, 'None'), (2, 'Text')");
    database.run("INSERT INTO OrganizationTypes VALUES (1, 'None'), (2, 'State Agency')");
    database.run("INSERT INTO Document (DocumentID, DocumentName, FileTypeID, dStatus) VALUES "
                 "(7, 'none', 1, 'ACTIVE'), (8, 'missing', NULL, 'ACTIVE')");
    database.run("INSERT INTO Organization (OrganizationID, OrganizationName, OrganizationTypeID, Status) "
                 "VALUES (9, 'none', 1, 'ACTIVE'), (10, 'missing', NULL, 'ACTIVE')");
    const struct
    {
        ViewKind kind;
        Search search;
        QString shown; ///< the condition of what the list shows as "None"
        QString found;
    } cases[] = {{ViewKind::Documents, searchBy({{&Search::bFileTypes, &Search::fileTypes}}, items({1})),
                  u" AND FileTypeName = 'None'"_s, u"8 7"_s},
                 {ViewKind::Organizations, searchBy({{&Search::bOrgTypes, &Search::orgTypes}}, items({1})),
                  u" AND OrganizationTypeName = 'None'"_s, u"10 9"_s},
                 {ViewKind::Documents, searchBy({{&Search::bDocVenues, &Search::docVenues}}, items({1})),
                  u" AND VenueID IS NULL"_s, u"8 7"_s},
                 {ViewKind::Events, searchBy({{&Search::bEventVenues, &Search::eventVenues}}, items({1})),
                  u" AND VenueID IS NULL"_s, u"6 7 4"_s},
                 {ViewKind::Organizations, searchBy({{&Search::bOrgVenues, &Search::orgVenues}}, items({1})),
                  u" AND VenueID IS NULL"_s, u"8 10 9"_s}};
    for (const auto& [kind, search, shown, expected] : cases) {
        SQLObject list = standardQuery(queries, kind);
        list.WhereClause += shown;
        EXPECT_EQ(firstColumnOf(database.session(), list.sqlStr()), expected);
        EXPECT_EQ(found(kind, search), expected);
    }
}

TEST_F(AdvancedSearchOnFile, FindsWhatItsListsLetThrough)
{
    const struct
    {
        ViewKind kind;
        Search search;
        QString found;
    } cases[] = {
        {ViewKind::Documents, {}, u"5 4 3 2"_s},
        {ViewKind::Documents, searchBy({{&Search::bDocVenues, &Search::docVenues}}, items({3})), u"4 2"_s},
        // two venues run together into the number of a third
        {ViewKind::Documents, searchBy({{&Search::bDocVenues, &Search::docVenues}}, items({3, 12})), u"5"_s},
        {ViewKind::Documents, searchBy({{&Search::bDocTypes, &Search::docTypes}}, items({2, 3})), u"3 2"_s},
        {ViewKind::Documents, searchBy({{&Search::bDocTypes, &Search::docTypes}}, items({4})), u"4"_s},
        {ViewKind::Documents, searchBy({{&Search::bDocOrgs, &Search::docOrgs}}, items({2})), u"3 2"_s},
        {ViewKind::Documents, searchBy({{&Search::bFileTypes, &Search::fileTypes}}, items({2, 9})),
         u"5 4 2"_s},
        {ViewKind::Documents,
         searchBy({{&Search::bDocTypes, &Search::docTypes},
                   {&Search::bDocOrgs, &Search::docOrgs},
                   {&Search::bFileTypes, &Search::fileTypes}},
                  items({2, 3})),
         u"3 2"_s},
        {ViewKind::Documents, searchBy({{&Search::bDocTypes, &Search::docTypes}}, {}), u"5 4 3 2"_s},
        {ViewKind::Events, searchBy({{&Search::bEventVenues, &Search::eventVenues}}, items({2, 3})),
         u"2 3 5"_s},
        // those without a venue among them
        {ViewKind::Events, searchBy({{&Search::bEventVenues, &Search::eventVenues}}, items({3, 1})),
         u"6 2 3 7 4"_s},
        {ViewKind::Events, searchBy({{&Search::bEventFunctions, &Search::eventFunctions}}, items({4, 3, 2})),
         u"2 4 5"_s},
        {ViewKind::Events, searchBy({{&Search::bEventOrgs, &Search::eventOrgs}}, items({3})), u"2 3"_s},
        {ViewKind::Events,
         searchBy({{&Search::bEventVenues, &Search::eventVenues},
                   {&Search::bEventFunctions, &Search::eventFunctions},
                   {&Search::bEventOrgs, &Search::eventOrgs}},
                  items({2, 3})),
         u"2 5"_s},
        {ViewKind::Organizations, searchBy({{&Search::bOrgVenues, &Search::orgVenues}}, items({2, 3})),
         u"5 3 2"_s},
        {ViewKind::Organizations, searchBy({{&Search::bOrgFunctions, &Search::orgFunctions}}, items({3})),
         u"4 3"_s},
        {ViewKind::Organizations, searchBy({{&Search::bOrgTypes, &Search::orgTypes}}, items({2, 3})),
         u"5 4 3 2 8"_s},
        {ViewKind::Organizations,
         searchBy({{&Search::bOrgLocations, &Search::orgLocations}}, named({u"Austin, TX"})), u"4 2"_s},
        {ViewKind::Organizations,
         searchBy({{&Search::bOrgLocations, &Search::orgLocations}}, named({u"austin,mn", u"Dallas, TX"})),
         u"5 3"_s},
        {ViewKind::Organizations,
         searchBy({{&Search::bOrgLocations, &Search::orgLocations}}, named({u"Rome"})), u"8"_s},
        {ViewKind::Organizations,
         searchBy({{&Search::bOrgVenues, &Search::orgVenues},
                   {&Search::bOrgTypes, &Search::orgTypes},
                   {&Search::bOrgFunctions, &Search::orgFunctions}},
                  items({2, 3})),
         u"5 3 2"_s},
    };
    for (const auto& [kind, search, expected] : cases)
        EXPECT_EQ(found(kind, search), expected) << advancedSearchText(kind, search, {}).toStdString();
}

TEST_F(AdvancedSearchOnFile, BoundsTheStartOfEventsByDateAndEachDayByTime)
{
    Search search;
    search.bEventDate = true;
    search.eventStartDate = QDate(2001, 9, 11);
    search.eventEndDate = QDate(2001, 11, 30);
    search.eventEndTime = QTime(23, 59);
    EXPECT_EQ(found(ViewKind::Events, search), u"2 3 7 4"_s) << "without a time, it starts at midnight";
    // a day in the middle that starts before the time of day is left out
    search.eventStartTime = QTime(0, 1);
    EXPECT_EQ(found(ViewKind::Events, search), u"2 4"_s);
    search.eventEndTime = QTime(23, 58);
    EXPECT_EQ(found(ViewKind::Events, search), u"2"_s);
    search.eventStartDate = QDate(2001, 12, 1);
    EXPECT_EQ(found(ViewKind::Events, search), QString());
    search.bEventDate = false;
    EXPECT_EQ(found(ViewKind::Events, search), u"6 2 3 7 4 5"_s);
}

TEST_F(AdvancedSearchOnFile, ReportsAnApostropheAndChangesNothing)
{
    const QByteArray before = database.bytes();
    const Search search =
        searchBy({{&Search::bOrgLocations, &Search::orgLocations}}, named({u"Coeur d'Alene, ID"}));
    EXPECT_NE(errorNumberOf([&] { (void)found(ViewKind::Organizations, search); }), 0);
    EXPECT_EQ(database.bytes(), before);
}

TEST(AdvancedSearch, NamesEveryCriterionThatIsSwitchedOn)
{
    const StandardQueries queries;
    const struct
    {
        ViewKind kind;
        QString none;
        QString all;
    } cases[] = {
        {ViewKind::Documents, u"Advanced Document Search"_s,
         u"Advanced Document Search by Venue, Document Type, Organization, File Type"_s},
        {ViewKind::Events, u"Advanced Event Search"_s,
         u"Advanced Event Search by Date, Venue, Function, Organization"_s},
        {ViewKind::Organizations, u"Advanced Organization Search"_s,
         u"Advanced Organization Search by Venue, Organization Type, Function, Location"_s},
    };
    for (const auto& [kind, none, all] : cases) {
        Search search;
        const clsView plain = advancedView(queries, kind, search);
        EXPECT_EQ(plain.Caption, none);
        EXPECT_EQ(plain.SQL->sqlStr(), standardQuery(queries, kind).sqlStr());
        EXPECT_FALSE(hasCriteria(plain.AdvSearch));
        // nothing is chosen for any of them
        for (const SearchCriterion& criterion : criteriaOf(kind))
            search.*criterion.flag = true;
        const clsView view = advancedView(queries, kind, search);
        EXPECT_EQ(view.Caption, all);
        EXPECT_EQ(view.viewIndex, kind);
        EXPECT_TRUE(hasCriteria(view.AdvSearch));
    }
    Search files = searchBy({{&Search::bDocVenues, &Search::docVenues}}, items({3}));
    files.bFileTypes = true;
    EXPECT_EQ(advancedCaption(ViewKind::Documents, files), u"Advanced Document Search by Venue, File Type"_s);
}

TEST(AdvancedSearch, SaysWhatItReallySearches)
{
    Search dates;
    dates.bEventDate = true;
    dates.eventStartDate = QDate(2001, 9, 11);
    dates.eventEndDate = QDate(2001, 11, 30);
    dates.eventEndTime = QTime(23, 59);
    Search backwards = dates;
    backwards.eventStartTime = QTime(23, 59);
    backwards.eventEndTime = QTime(6, 0);
    Search half = searchBy({{&Search::bDocTypes, &Search::docTypes}}, named({u"Map"}));
    half.bDocOrgs = true;
    half.bFileTypes = true;
    const struct
    {
        ViewKind kind;
        Search search;
        QString text;
    } cases[] = {
        {ViewKind::Documents, {}, u"Searches all documents."_s},
        {ViewKind::Documents, searchBy({{&Search::bDocVenues, &Search::docVenues}}, named({u"Coast"})),
         u"Searches documents whose venue is Coast."_s},
        {ViewKind::Documents, searchBy({{&Search::bDocVenues, &Search::docVenues}}, items({3, 12})),
         u"Searches documents whose venue is Desert (the numbers of several venues are read as one: choose "
         "one venue)."_s},
        {ViewKind::Documents, searchBy({{&Search::bDocVenues, &Search::docVenues}}, items({1, 5})),
         u"Searches documents whose venue is number 15, which no venue has (the numbers of several venues "
         u"are "
         "read as one: choose one venue)."_s},
        {ViewKind::Documents, half,
         u"Searches documents whose document type is Map; no organization and no file type is chosen, so it "
         "may be any."_s},
        {ViewKind::Events,
         searchBy({{&Search::bEventVenues, &Search::eventVenues}, {&Search::bEventOrgs, &Search::eventOrgs}},
                  named({u"A", u"B", u"C"})),
         u"Searches events whose venue is A, B or C, and whose organization is A, B or C."_s},
        {ViewKind::Events, dates,
         u"Searches events that start from 09/11/2001 to 11/30/2001, each day between 00:00 and 23:59."_s},
        {ViewKind::Events, backwards,
         u"Searches events that start from 09/11/2001 to 11/30/2001, each day between 23:59 and 06:00 (there "
         "is no such moment)."_s},
        {ViewKind::Organizations,
         searchBy({{&Search::bOrgLocations, &Search::orgLocations}}, named({u"Austin, TX", u"Rome"})),
         u"Searches organizations whose location is Austin, TX or Rome without a state."_s},
        {ViewKind::Organizations,
         searchBy({{&Search::bOrgTypes, &Search::orgTypes}}, named({u"A", u"B", u"C", u"D", u"E"})),
         u"Searches organizations whose organization type is A, B, C or one of 2 others."_s},
        {ViewKind::Organizations, searchBy({{&Search::bOrgTypes, &Search::orgTypes}}, {}),
         u"Searches all organizations; no organization type is chosen, so it may be any."_s},
    };
    const VenueNames venues{{u"3"_s, u"Coast"_s}, {u"12"_s, u"River"_s}, {u"312"_s, u"Desert"_s}};
    for (const auto& [kind, search, text] : cases)
        EXPECT_EQ(advancedSearchText(kind, search, venues), text);
}

TEST(SearchFilters, BeginWithTheRangeOfTheData)
{
    const clsDocFilter documents(QDate(2004, 2, 29));
    EXPECT_EQ(documents.startDate, u"09/11/2001"_s);
    EXPECT_EQ(documents.endDate, u"02/29/2004"_s);
    const clsEventFilter events;
    EXPECT_EQ(events.startTime, u"12:00:00 AM"_s);
    EXPECT_EQ(events.endDate, u"11/30/2001"_s);
    EXPECT_TRUE(clsOrgFilter().cities.empty());
}

} // namespace

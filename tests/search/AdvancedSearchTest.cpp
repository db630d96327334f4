// SPDX-License-Identifier: GPL-3.0-or-later

#include "search/AdvancedSearch.h"

#include "support/TestDatabase.h"
#include "views/StandardQueries.h"
#include "views/clsDocFilter.h"
#include "views/clsEventFilter.h"
#include "views/clsOrgFilter.h"

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

/// Returns a search with some criteria switched on, and with the items in their lists.
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

TEST(AdvancedSearch, NamesEveryCriterionThatIsSwitchedOn)
{
    const StandardQueries queries;
    const struct
    {
        RecordKind kind;
        QString none;
        QString all;
    } cases[] = {
        {RecordKind::Document, u"Advanced Document Search"_s,
         u"Advanced Document Search by Venue, Document Type, Organization, File Type"_s},
        {RecordKind::Event, u"Advanced Event Search"_s,
         u"Advanced Event Search by Date, Venue, Function, Organization"_s},
        {RecordKind::Organization, u"Advanced Organization Search"_s,
         u"Advanced Organization Search by Venue, Organization Type, Function, Location"_s},
    };
    for (const auto& [kind, none, all] : cases) {
        Search search;
        const clsView plain = advancedView(queries, kind, search);
        EXPECT_EQ(plain.Caption, none);
        EXPECT_EQ(plain.SQL->sqlStr(), queries.of(kind)->sqlStr());
        EXPECT_FALSE(hasCriteria(plain.AdvSearch));
        // the caption names them even without choices
        for (const SearchCriterion& criterion : criteriaOf(kind))
            search.*criterion.flag = true;
        const clsView view = advancedView(queries, kind, search);
        EXPECT_EQ(view.Caption, all);
        EXPECT_EQ(view.viewIndex, viewOf(kind));
        EXPECT_TRUE(hasCriteria(view.AdvSearch));
    }
    Search files = searchBy({{&Search::bDocVenues, &Search::docVenues}}, items({3}));
    files.bFileTypes = true;
    EXPECT_EQ(advancedCaption(RecordKind::Document, files),
              u"Advanced Document Search by Venue, File Type"_s);
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
        RecordKind kind;
        Search search;
        QString text;
    } cases[] = {
        {RecordKind::Document, {}, u"Searches all documents."_s},
        {RecordKind::Document, searchBy({{&Search::bDocVenues, &Search::docVenues}}, named({u"Coast"})),
         u"Searches documents whose venue is Coast."_s},
        {RecordKind::Document, searchBy({{&Search::bDocVenues, &Search::docVenues}}, items({3, 12})),
         u"Searches documents whose venue is Desert (the numbers of several venues are read as one: choose "
         "one venue)."_s},
        {RecordKind::Document, searchBy({{&Search::bDocVenues, &Search::docVenues}}, items({1, 5})),
         u"Searches documents whose venue is number 15, which no venue has (the numbers of several venues "
         u"are "
         "read as one: choose one venue)."_s},
        {RecordKind::Document, half,
         u"Searches documents whose document type is Map; no organization and no file type is chosen, so it "
         "may be any."_s},
        {RecordKind::Event,
         searchBy({{&Search::bEventVenues, &Search::eventVenues}, {&Search::bEventOrgs, &Search::eventOrgs}},
                  named({u"A", u"B", u"C"})),
         u"Searches events whose venue is A, B or C, and whose organization is A, B or C."_s},
        {RecordKind::Event, dates,
         u"Searches events that start from 09/11/2001 to 11/30/2001, each day between 00:00 and 23:59."_s},
        {RecordKind::Event, backwards,
         u"Searches events that start from 09/11/2001 to 11/30/2001, each day between 23:59 and 06:00 (there "
         "is no such moment)."_s},
        {RecordKind::Organization,
         searchBy({{&Search::bOrgLocations, &Search::orgLocations}}, named({u"Austin, TX", u"Rome"})),
         u"Searches organizations whose location is Austin, TX or Rome without a state."_s},
        {RecordKind::Organization,
         searchBy({{&Search::bOrgTypes, &Search::orgTypes}}, named({u"A", u"B", u"C", u"D", u"E"})),
         u"Searches organizations whose organization type is A, B, C or one of 2 others."_s},
        {RecordKind::Organization, searchBy({{&Search::bOrgTypes, &Search::orgTypes}}, {}),
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

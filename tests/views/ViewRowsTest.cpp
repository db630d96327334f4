// SPDX-License-Identifier: GPL-3.0-or-later

// Compares what every kind of view lists with queries in plain SQL, written by hand, on rows with the odd
// values of real collections.

#include "chart/DocumentTypeCounts.h"
#include "map/OrganizationPlaces.h"
#include "search/AdvancedSearch.h"
#include "search/KeywordSearch.h"
#include "support/TestDatabase.h"
#include "timeline/Moments.h"
#include "timeline/TimeWindowQuery.h"
#include "views/NarrowedQuery.h"
#include "views/OddRows.h"
#include "views/ShowOnlyViews.h"
#include "views/StandardQueries.h"

namespace {

class ViewRows : public testing::TestWithParam<unsigned>
{
protected:
    ViewRows() { m_rows.addTo(m_database); }

    int upTo(int limit) { return m_rows.upTo(limit); }
    QString oneOf(const QStringList& values) { return m_rows.oneOf(values); }

    QStringList asked(const QString& statement)
    {
        return m_database.ask(statement.toUtf8().constData()).split(u'\n', Qt::SkipEmptyParts);
    }

    /// Expects a view to list the rows that a condition lets through, in their order if it has one.
    void expectRows(RecordKind kind, const SQLObject& view, const QString& condition)
    {
        QMap<QString, QString> keyOf;
        for (const QString& line : asked(rowsByHand(kind) + condition))
            keyOf[line.section(u'|', 1)] = line.section(u'|', 0, 0);
        QStringList found = rowsOf(m_database.session(), view.sqlStr()).split(u'\n', Qt::SkipEmptyParts);
        if (!view.OrderClause.isEmpty()) {
            QStringList order;
            for (const QString& line : found)
                order << keyOf.value(line);
            QStringList keys = keyOf.values();
            keys.sort();
            EXPECT_EQ(order, keys) << condition.toStdString();
        }
        found.sort();
        EXPECT_EQ(found, keyOf.keys()) << condition.toStdString();
        m_listed += found.size();
    }

    /// Returns a keyword search of one to three words, and its condition by hand.
    std::pair<SharedQuery, QString> keywordSearch(RecordKind kind)
    {
        QStringList typed;
        QStringList inName;
        QStringList inDescription;
        for (int left = upTo(2); left >= 0; --left) {
            // an apostrophe would break the statement
            const OddRows::Word& word = m_rows.word(false);
            typed << word.shown;
            inName << u"instr(f.Name, %1)"_s.arg(OddRows::quoted(word.folded));
            inDescription << u"instr(f.Description, %1)"_s.arg(OddRows::quoted(word.folded));
        }
        return {keywordQuery(m_queries, kind, typed),
                u" AND ((%1) OR (%2))"_s.arg(inName.join(u" AND "), inDescription.join(u" AND "))};
    }

    /// Narrows a view to none, some, most or all of its records, and its condition by hand, in which the key
    /// is called `key`.
    void narrow(RecordKind kind, SharedQuery& view, QString& condition, const QString& key)
    {
        std::vector<qint64> all;
        std::vector<qint64> shown;
        QStringList keys;
        RecordSet rows = m_database.session().read(view->sqlStr());
        for (const int share = upTo(3); rows.next();) {
            all.push_back(rows.integer(rows.column(recordNames(kind).key)));
            if (upTo(2) >= share) continue;
            shown.push_back(all.back());
            keys << QString::number(all.back());
        }
        view = narrowedTo(kind, view, shown, all);
        condition += u" AND %1 IN (%2)"_s.arg(key, keys.join(u','));
    }

    /// Switches a list criterion on or leaves it off, with up to three keys, some of which do not exist.
    /// Returns the condition by hand with the keys in it, or an empty text if the criterion has none.
    QString criterion(clsAdvSearch& search, bool clsAdvSearch::*flag,
                      clsAdvSearch::Items clsAdvSearch::*items, const QString& condition,
                      const QString& separator = u","_s)
    {
        QStringList numbers;
        for (int left = upTo(3); left > 0; --left) {
            numbers << oneOf({u"0"_s, u"1"_s, u"2"_s, u"3"_s, u"4"_s, u"17"_s, u"99"_s});
            (search.*items).push_back({static_cast<std::int16_t>(numbers.back().toInt()), u"any"_s});
        }
        search.*flag = upTo(2) == 0;
        return search.*flag && !numbers.isEmpty() ? u" AND "_s + condition.arg(numbers.join(separator))
                                                  : u""_s;
    }

    /// Returns the condition that a record has links to the keys of a list criterion.
    static QString hasLink(const QString& links, const QString& key, const QString& column)
    {
        return u"EXISTS (SELECT 1 FROM %1 AS l WHERE l.%2 AND l.%3 IN (%4))"_s.arg(links, key, column,
                                                                                   u"%1"_s);
    }

    /// The same for venues: a record without one has the venue "None" with the key 1.
    static QString hasVenue(const QString& links, const QString& key)
    {
        return u"(%1 OR 1 IN (%2) AND NOT EXISTS (SELECT 1 FROM %3 AS l WHERE l.%4))"_s.arg(
            hasLink(links, key, u"VenueID"_s).replace(u"l.VenueID"_s, u"ifnull(l.VenueID, 1)"_s), u"%1"_s,
            links, key);
    }

    /// An advanced search by some criteria, and its condition by hand. The types are kept apart: a chart of
    /// the found documents counts only these.
    struct Found
    {
        SharedQuery view;
        QString condition;
        QString types;
    };

    Found documentSearch();
    Found eventSearch();
    Found organizationSearch();

    OddRows m_rows{GetParam()};
    TestDatabase m_database;
    StandardQueries m_queries;
    qsizetype m_listed = 0; ///< all rows that views listed
};

ViewRows::Found ViewRows::documentSearch()
{
    using Search = clsAdvSearch;
    Search search;
    // the search joins the keys of several venues to one
    QString condition = criterion(search, &Search::bDocVenues, &Search::docVenues,
                                  hasVenue(u"DocumentVenues"_s, u"DocumentID = d.DocumentID"_s), QString());
    const QString types =
        criterion(search, &Search::bDocTypes, &Search::docTypes, u"l.DocumentTypeID IN (%1)"_s);
    condition +=
        criterion(search, &Search::bDocOrgs, &Search::docOrgs, u"d.OrganizationID IN (%1)"_s) +
        criterion(search, &Search::bFileTypes, &Search::fileTypes, u"ifnull(d.FileTypeID, 1) IN (%1)"_s);
    search.buildAdvSQL();
    return {advancedView(m_queries, RecordKind::Document, search).SQL, condition, types};
}

ViewRows::Found ViewRows::eventSearch()
{
    using Search = clsAdvSearch;
    Search search;
    QString condition;
    search.bEventDate = upTo(1) == 0;
    if (search.bEventDate) {
        search.eventStartDate = QDate(2001, 9, 8 + upTo(2));
        search.eventEndDate = search.eventStartDate.addDays(upTo(3));
        search.eventStartTime = upTo(1) == 0 ? QTime(0, 0) : QTime(9, 30);
        search.eventEndTime = upTo(1) == 0 ? QTime(9, 30) : QTime(23, 59);
        // an event without a time begins at midnight
        condition = u" AND e.StartDate BETWEEN '%1' AND '%2' AND ifnull(substr(e.StartTime, 1, 5), '00:00') "
                    "BETWEEN '%3' AND '%4'"_s.arg(search.eventStartDate.toString(Qt::ISODate),
                                                  search.eventEndDate.toString(Qt::ISODate),
                                                  search.eventStartTime.toString(u"HH:mm"),
                                                  search.eventEndTime.toString(u"HH:mm"));
    }
    const QString event = u"EventID = e.EventID"_s;
    condition +=
        criterion(search, &Search::bEventVenues, &Search::eventVenues, hasVenue(u"EventVenues"_s, event)) +
        criterion(search, &Search::bEventFunctions, &Search::eventFunctions,
                  hasLink(u"EventFunctions"_s, event, u"FunctionID"_s)) +
        criterion(search, &Search::bEventOrgs, &Search::eventOrgs,
                  hasLink(u"OrganizationEvents"_s, event, u"OrganizationID"_s));
    search.buildAdvSQL();
    return {advancedView(m_queries, RecordKind::Event, search).SQL, condition, {}};
}

ViewRows::Found ViewRows::organizationSearch()
{
    using Search = clsAdvSearch;
    Search search;
    QString condition =
        criterion(search, &Search::bOrgVenues, &Search::orgVenues,
                  hasVenue(u"OrganizationVenues"_s, u"OrganizationID = o.OrganizationID"_s)) +
        criterion(search, &Search::bOrgTypes, &Search::orgTypes,
                  u"ifnull(o.OrganizationTypeID, 1) IN (%1)"_s) +
        criterion(search, &Search::bOrgFunctions, &Search::orgFunctions, u"o.FunctionID IN (%1)"_s);
    search.bOrgLocations = upTo(1) == 0;
    QStringList places;
    for (int left = upTo(2); left > 0; --left) {
        const QString city = oneOf({u"Austin"_s, u"dallas"_s, u"Boston"_s, u"Nowhere"_s});
        const QString state = oneOf({u"TX"_s, u"ma"_s, u""_s});
        search.orgLocations.push_back({2, city + u", "_s + state});
        // a location without a state matches an empty state
        places << u"(lower(o.City) = lower('%1') AND lower(o.State) = lower('%2'))"_s.arg(city, state);
    }
    if (search.bOrgLocations && !places.isEmpty()) condition += u" AND ("_s + places.join(u" OR ") + u')';
    search.buildAdvSQL();
    return {advancedView(m_queries, RecordKind::Organization, search).SQL, condition, {}};
}

TEST_P(ViewRows, OfStandardListsAndKeywordSearches)
{
    expectRows(RecordKind::Document, *m_queries.documents, QString());
    expectRows(RecordKind::Event, *m_queries.events, QString());
    expectRows(RecordKind::Organization, *m_queries.organizations, QString());
    EXPECT_GT(m_listed, OddRows::most);
    m_listed = 0;
    for (int draw = 0; draw < 60; ++draw) {
        const RecordKind kind = recordKinds[static_cast<std::size_t>(draw) % recordKinds.size()];
        const auto [view, condition] = keywordSearch(kind);
        expectRows(kind, *view, condition);
    }
    EXPECT_GT(m_listed, 60) << "most searches find something";
}

TEST_P(ViewRows, OfAdvancedSearchesAndTheirCharts)
{
    for (int draw = 0; draw < 40; ++draw) {
        Found documents = documentSearch();
        narrow(RecordKind::Document, documents.view, documents.condition, u"d.DocumentID"_s);
        const QString ofTypes =
            documents.types.isEmpty()
                ? QString()
                : u" AND EXISTS (SELECT 1 FROM DocumentTypes AS l WHERE l.DocumentID = d.DocumentID%1)"_s.arg(
                      documents.types);
        expectRows(RecordKind::Document, *documents.view, documents.condition + ofTypes);
        const Found events = eventSearch();
        expectRows(RecordKind::Event, *events.view, events.condition);
        const Found organizations = organizationSearch();
        expectRows(RecordKind::Organization, *organizations.view, organizations.condition);

        QStringList chart;
        for (const DocumentTypeCount& type : countDocumentTypes(m_database.session(), *documents.view))
            chart << type.name + u'|' + QString::number(type.documents);
        QStringList byHand = asked(
            u"SELECT ifnull((SELECT DocumentTypeName FROM DocumentType AS t WHERE t.DocumentTypeID = "
            "l.DocumentTypeID), ''), count(DISTINCT l.DocumentID) FROM DocumentTypes AS l JOIN Document "
            "AS d ON d.DocumentID = l.DocumentID WHERE d.DocumentID > 1 AND upper(d.dStatus) <> "
            "'DELETED' AND l.DocumentTypeID > 0%1 GROUP BY l.DocumentTypeID"_s.arg(documents.types +
                                                                                   documents.condition));
        chart.sort();
        byHand.sort();
        EXPECT_EQ(chart, byHand) << documents.condition.toStdString();
    }
    EXPECT_GT(m_listed, 200);
}

TEST_P(ViewRows, OfOneTypeStateOrCity)
{
    const ShowOnlyViews views(m_database.session(), m_queries);
    for (const auto& [name, type] : {std::pair(u"Report"_s, 2), {u"ÉTUDE"_s, 3}, {u"none"_s, 1}}) {
        expectRows(RecordKind::Document, *views.documentsOfType(name).SQL,
                   u" AND EXISTS (SELECT 1 FROM DocumentTypes AS l WHERE l.DocumentID = d.DocumentID AND "
                   "l.DocumentTypeID = %1)"_s.arg(type));
    }
    for (const QString& state : {u"TX"_s, u"tx"_s, u"MA"_s}) {
        clsCities place;
        place.State = state;
        place.city = u"Austin"_s;
        expectRows(RecordKind::Organization, *views.organizationsOfState(place).SQL,
                   u" AND lower(o.State) = lower('%1')"_s.arg(state));
        expectRows(RecordKind::Organization, *views.organizationsOfCity(place).SQL,
                   u" AND lower(o.City) = 'austin' AND lower(o.State) = lower('%1')"_s.arg(state));
    }
    EXPECT_GT(m_listed, 20);
}

TEST_P(ViewRows, InAWindowOfTime)
{
    const QString start = u"(e.StartDate || ' ' || ifnull(substr(e.StartTime, 1, 5), '00:00'))"_s;
    const QString end = u"(e.EndDate || ' ' || ifnull(substr(e.EndTime, 1, 5), '00:00'))"_s;
    const auto held = [](Moment moment) {
        return dayOf(moment).toString(Qt::ISODate) + u' ' + timeText(moment);
    };
    for (int draw = 0; draw < 40; ++draw) {
        auto [view, condition] =
            draw % 2 == 0 ? std::pair(m_queries.events, QString()) : keywordSearch(RecordKind::Event);
        if (draw % 3 == 0) narrow(RecordKind::Event, view, condition, u"e.EventID"_s);
        if (draw == 30) {
            // a database without that index returns the same rows, only later
            m_database.session().close();
            m_database.run("DROP INDEX EventByLength");
        }
        const Moment from = at("2001-09-07") + upTo(5) * minutesOfDay + (upTo(2) == 0 ? 0 : 570);
        const Moment to = from + Moment{upTo(3)} * 750;
        const QString statement = TimeWindowQuery::inWindow(*view, from, to);
        const SQLObject window{statement.section(u" ORDER BY "_s, 0, 0),
                               {},
                               {},
                               u"ORDER BY "_s + statement.section(u" ORDER BY "_s, 1)};
        expectRows(RecordKind::Event, window,
                   condition + u" AND (%1 BETWEEN '%3' AND '%4' OR (%1 < '%3' AND %2 > '%3'))"_s.arg(
                                   start, end, held(from), held(to)));
    }
    EXPECT_GT(m_listed, 50);
}

TEST_P(ViewRows, OnTheMap)
{
    std::size_t markers = 0;
    for (int draw = 0; draw < 40; ++draw) {
        auto [view, condition, types] = organizationSearch();
        const SharedQuery whole = view;
        if (draw % 2 == 0) narrow(RecordKind::Organization, view, condition, u"o.OrganizationID"_s);
        OrganizationPlaces places(m_database.session());
        places.read(whole, view);
        QStringList drawn;
        for (const clsCities& place : places.entries()) {
            const QString function = place.functionId ? QString::number(*place.functionId) : u"NULL"_s;
            const QString where = place.LocationID ? QString::number(*place.LocationID)
                                                   : u"%1 %2"_s.arg(place.lat).arg(place.lon);
            drawn << function + u'|' + where + u'|' + QString::number(place.colour);
        }
        QStringList byHand =
            asked(u"SELECT DISTINCT o.FunctionID, ifnull(p.LocationID, o.Lat || ' ' || o.Lon), "
                  "ifnull((o.FunctionID - 1) % 16, 0) "_s +
                  visibleOrganizations() + condition + u" AND p.Lat IS NOT NULL AND p.Lon IS NOT NULL"_s);
        drawn.sort();
        byHand.sort();
        EXPECT_EQ(drawn, byHand) << condition.toStdString();
        markers += places.entries().size();
    }
    EXPECT_GT(markers, 50u);
}

INSTANTIATE_TEST_SUITE_P(Seeds, ViewRows, testing::Values(1U, 2U, 3U));

} // namespace

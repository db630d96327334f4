// SPDX-License-Identifier: GPL-3.0-or-later

#include "map/OrganizationPlaces.h"

#include "map/LegendLines.h"
#include "support/TestDatabase.h"
#include "views/StandardQueries.h"

namespace {

class OrganizationPlacesTest : public testing::Test
{
protected:
    OrganizationPlacesTest()
    {
        database.run("INSERT INTO Function VALUES (1, 'None'), (2, 'Relief'), (17, 'Rescue'), (18, 'Law')");
        database.run("INSERT INTO CityLocations (LocationID, City, State, Lat, Lon) VALUES "
                     "(5, 'Austin', 'TX', 30.25, -97.75), (6, 'Reno', 'NV', 39.5, -119.8), (7, 'Half', 'UT', "
                     "40, NULL)");
    }

    /// Adds an organization; `position` is its own latitude and longitude or nulls.
    void add(int identifier, const char* function, const char* cityAndState, const char* position)
    {
        const std::string number = std::to_string(identifier);
        database.run(("INSERT INTO Organization (OrganizationID, OrganizationName, Status, FunctionID, City, "
                      "State, Lat, "
                      "Lon) VALUES (" +
                      number + ", 'Org " + number + "', 'ACTIVE', " + function + ", " + cityAndState + ", " +
                      position + ')')
                         .c_str());
    }

    static SharedQuery query(const QString& condition)
    {
        SQLObject query = *StandardQueries().organizations;
        query.WhereClause += condition;
        return std::make_shared<const SQLObject>(query);
    }

    void read(const QString& condition = {})
    {
        const SharedQuery view = query(condition);
        places.read(view, view);
    }

    /// Function, place and colour of each entry, one a line.
    std::string entries()
    {
        QStringList lines;
        for (const clsCities& place : places.entries()) {
            lines << u"%1 %2 %3,%4 %5 x%6"_s.arg(functionName(place), place.placeText())
                         .arg(place.lat)
                         .arg(place.lon)
                         .arg(place.colour)
                         .arg(place.organizations);
        }
        lines.sort();
        return lines.join(u'\n').toStdString();
    }

    std::string namesAt(std::size_t entry, bool everyFunction)
    {
        QStringList names;
        for (const PlacedOrganization& organization : places.organizationsAt(entry, everyFunction))
            names << organization.name;
        return names.join(u'|').toStdString();
    }

    TestDatabase database;
    OrganizationPlaces places{database.session()};
};

TEST_F(OrganizationPlacesTest, HasOneEntryForEachPlaceAndFunction)
{
    add(2, "2", "'Austin', 'TX'", "NULL, NULL");
    add(3, "2", "'austin', 'tx'", "NULL, NULL");
    add(4, "17", "'Austin', 'TX'", "NULL, NULL");
    add(5, "2", "'Nowhere', 'TX'", "NULL, NULL");
    add(6, "18", "'Reno', 'NV'", "39.6, -119.9");
    add(7, "18", "'Camp', 'NV'", "39.6, -118");
    add(8, "18", "'Camp', 'NV'", "39.7, -118");
    add(9, "NULL", "NULL, NULL", "-14.3, -170.7");
    add(10, "0", "'Camp', 'NV'", "39.6, -118");
    add(11, "2", "'Austin', 'TX'", "31, NULL");
    add(12, "2", "'Half', 'UT'", "NULL, NULL");
    add(13, "2", "'Off', 'UT'", "-91, 361");
    add(14, "2", "'Odd', 'UT'", "'no number', 1");
    read();
    EXPECT_EQ(entries(), "Function 0 Camp, NV 39.6,-118 0 x1\n"
                         "Law Camp, NV 39.6,-118 1 x1\n"
                         "Law Camp, NV 39.7,-118 1 x1\n"
                         "Law Reno, NV 39.6,-119.9 1 x1\n"
                         "None 14.30° S, 170.70° W -14.3,-170.7 0 x1\n"
                         "Relief Austin, TX 30.25,-97.75 1 x3\n"
                         "Relief Odd, UT 0,1 1 x1\n"
                         "Rescue Austin, TX 30.25,-97.75 0 x1");
    EXPECT_EQ(places.placed(), 10u) << "each organization once";
    EXPECT_EQ(places.withoutPlace(), 3);
    EXPECT_EQ(firstColumnOf(database.session(), places.queryWithoutPlace()->sqlStr()), u"12 13 5"_s);
    database.run(
        "INSERT INTO OrganizationVenues (OrganizationID, VenueID) VALUES (2, 4), (2, 5), (5, 5), (5, 6)");
    read(u" AND VenueID > 0"_s);
    EXPECT_EQ(entries(), "Relief Austin, TX 30.25,-97.75 1 x1") << "however often the query returns it";
    EXPECT_EQ(places.withoutPlace(), 1);
    read(u" AND State LIKE 'TX'"_s);
    EXPECT_EQ(places.entries().size(), 2u) << "the places before are forgotten";
    EXPECT_NE(errorNumberOf([&] { read(u" AND Nothing = 1"_s); }), 0);
    EXPECT_TRUE(places.entries().empty());
}

TEST_F(OrganizationPlacesTest, ReadsThousandsOfFunctionsLikeAFew)
{
    add(2, "18", "'Reno', 'NV'", "NULL, NULL");
    add(3, "NULL", "'Reno', 'NV'", "NULL, NULL");
    add(4, "17", "'Reno', 'NV'", "NULL, NULL");
    add(5, "18", "'Austin', 'TX'", "NULL, NULL");
    const auto inOrder = [this] {
        QStringList lines;
        for (const clsCities& place : places.entries()) {
            if (place.lon > -130) lines << functionName(place) + u' ' + place.placeText();
        }
        return lines;
    };
    read();
    const QStringList few = inOrder();
    QStringList fewer = few;
    fewer.removeOne(u"Law Reno, NV"_s);
    EXPECT_EQ(few.size(), 4);
    const SharedQuery all = query({});
    places.read(all, all);
    places.narrow(all, query(u" AND Organization.OrganizationID <> 2"_s));
    EXPECT_EQ(inOrder(), fewer) << "those of a narrowed view too, in the order of all";
    EXPECT_EQ(places.placed(), 3u);
    EXPECT_EQ(places.entryOf(2), std::nullopt);
    EXPECT_EQ(namesAt(places.entryOf(4).value(), true), "Org 3|Org 4");
    database.run("DELETE FROM Organization WHERE OrganizationID = 5");
    places.narrow(all, all);
    EXPECT_EQ(inOrder(), few) << "as they were read with the list";
    add(5, "18", "'Austin', 'TX'", "NULL, NULL");
    database.run("WITH RECURSIVE n(i) AS (VALUES (100) UNION ALL SELECT i + 1 FROM n WHERE i < 2099) INSERT "
                 "INTO Organization (OrganizationID, OrganizationName, FunctionID, Lat, Lon, Status) "
                 "SELECT i, 'Org', i, 40, -150, 'ACTIVE' FROM n");
    read();
    EXPECT_EQ(places.entries().size(), 2004u);
    EXPECT_EQ(inOrder(), few);
    EXPECT_EQ(namesAt(places.entryOf(5).value(), true), "Org 5");
}

TEST_F(OrganizationPlacesTest, KnowsWhoIsAtAPlace)
{
    add(2, "2", "'Austin', 'TX'", "NULL, NULL");
    add(3, "2", "'Austin', 'TX'", "30.1, -97.1");
    add(4, "17", "'Austin', 'TX'", "NULL, NULL");
    add(5, "2", "'Camp', 'NV'", "39.61234567890123, -118.000001");
    add(6, "NULL", "'Camp', 'NV'", "39.61234567890123, -118.000001");
    add(7, "2", "'Nowhere', 'UT'", "NULL, NULL");
    read();
    const auto entryOf = [&](qint64 organization) { return places.entryOf(organization).value(); };
    EXPECT_EQ(namesAt(entryOf(2), false), "Org 2|Org 3");
    EXPECT_EQ(namesAt(entryOf(2), true), "Org 2|Org 3|Org 4");
    EXPECT_EQ(namesAt(entryOf(5), false), "Org 5");
    EXPECT_EQ(namesAt(entryOf(6), false), "Org 6");
    EXPECT_EQ(namesAt(entryOf(6), true), "Org 5|Org 6");
    EXPECT_EQ(entryOf(3), entryOf(2));
    EXPECT_NE(entryOf(4), entryOf(2));
    EXPECT_EQ(places.entryOf(7), std::nullopt) << "it has no place";
    EXPECT_EQ(places.entryOf(99), std::nullopt);
}

TEST_F(OrganizationPlacesTest, KeepsTheSixteenColoursInTurn)
{
    const std::pair<std::optional<qint64>, int> cases[] = {
        {1, 0}, {2, 1}, {16, 15}, {17, 0}, {32, 15}, {33, 0}, {0, 0}, {-3, 0}, {std::nullopt, 0}};
    for (const auto& [function, colour] : cases)
        EXPECT_EQ(clsCities::colourOf(function), colour) << function.value_or(-99);
}

TEST_F(OrganizationPlacesTest, NamesAsManyFunctionsOfAColourAsCanBeRead)
{
    add(2, "2", "'Austin', 'TX'", "NULL, NULL");
    add(3, "18", "'Reno', 'NV'", "NULL, NULL");
    add(4, "18", "'Austin', 'TX'", "NULL, NULL");
    add(5, "17", "'Austin', 'TX'", "NULL, NULL");
    read();
    QStringList legend;
    for (const LegendLine& line : legendLines(places.entries()))
        legend << QString::number(line.colour) + u' ' + line.text();
    EXPECT_EQ(legend.join(u'|'), u"0 Rescue (1)|1 Law (2), Relief (1)"_s);

    LegendLine line{0, {{u"100%1 Law"_s, 2}, {u"Relief"_s, 1}}};
    EXPECT_EQ(line.hiddenText(), u"100%1 Law (2), Relief (1): hidden on the map"_s);
    EXPECT_EQ(line.organizations(), 3);
    line.functions.resize(2000, {u"x"_s, 1});
    EXPECT_TRUE(line.text().startsWith(u"100%1 Law (2), Relief (1), x (1)"_s));
    EXPECT_TRUE(line.text().endsWith(u"x (1), x (1) and 1980 more"_s));
    line.functions = {{QString(1000000, u'x'), 1}, {u"y"_s, 1}};
    EXPECT_LT(line.text().size(), 2000);
}

} // namespace

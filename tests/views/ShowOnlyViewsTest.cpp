#include "views/ShowOnlyViews.h"

#include "search/AdvancedSearch.h"
#include "support/TestDatabase.h"
#include "views/StandardQueries.h"
#include "views/clsCities.h"

#include <QStringList>

#include <gtest/gtest.h>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

class ShowOnlyViewsTest : public testing::Test
{
protected:
    ShowOnlyViewsTest()
    {
        database.run(
            "INSERT INTO CityLocations (LocationID, City, State, Lat, Lon) VALUES "
            "(5, 'Austin', 'TX', 30, -97), (6, 'Dallas', 'TX', 32, -96), (7, 'Reno', 'NV', 39, -119), "
            "(8, 'O''Fallon', 'MO', 38, -90), (40000, 'Far', 'FA', 1, 1)");
        database.run(
            "INSERT INTO Organization (OrganizationID, OrganizationName, City, State, Lat, Lon, Status) "
            "VALUES "
            "(2, 'A', 'Austin', 'TX', NULL, NULL, 'ACTIVE'), (3, 'B', 'Dallas', 'TX', NULL, NULL, 'ACTIVE'), "
            "(4, 'C', 'Reno', 'NV', NULL, NULL, 'ACTIVE'), (5, 'D', 'Tiny', 'UT', 40, -111, 'ACTIVE'), "
            "(6, 'E', 'Dallas', 'TX', NULL, NULL, 'DELETED'), (7, 'F', 'O''Fallon', 'MO', NULL, NULL, "
            "'ACTIVE'), "
            "(8, 'G', 'Small', 'UT', NULL, NULL, 'ACTIVE'), (9, 'H', 'Far', 'FA', NULL, NULL, 'ACTIVE')");
        database.run("INSERT INTO DocumentType VALUES (1, 'None'), (2, 'After-Action Report'), (3, 'Map'), "
                     "(40000, 'Late')");
        database.run("INSERT INTO Document (DocumentID, DocumentName, dStatus) VALUES (2, 'x', 'ACTIVE'), "
                     "(3, 'y', 'ACTIVE'), (4, 'z', 'ACTIVE')");
        database.run(
            "INSERT INTO DocumentTypes (DocumentID, DocumentTypeID) VALUES (2, 2), (3, 2), (3, 3), (4, 3)");
    }

    clsCities place(const char16_t* city, const char16_t* state, std::optional<qint64> location = {})
    {
        clsCities made;
        made.city = QString::fromUtf16(city);
        made.State = QString::fromUtf16(state);
        made.LocationID = location;
        return made;
    }

    QString shown(const clsView& view) { return firstColumnOf(database.session(), view.SQL->sqlStr()); }

    TestDatabase database;
    StandardQueries queries;
    ShowOnlyViews views{database.session(), queries};
};

TEST_F(ShowOnlyViewsTest, ShowsTheDocumentsOfOneType)
{
    const clsView view = views.documentsOfType(QStringLiteral("After-Action Report"));
    EXPECT_EQ(view.viewIndex, ViewKind::Documents);
    EXPECT_EQ(view.Caption, QStringLiteral("View Only After-Action Report Documents"));
    EXPECT_EQ(shown(view), QStringLiteral("2 3"));
    EXPECT_EQ(view.SQL->WhereClause,
              queries.documents->WhereClause + QStringLiteral(" AND DocumentTypeID IN (2) "));
    EXPECT_FALSE(hasCriteria(view.AdvSearch)) << "the search form asks only what it asked itself";
}

TEST_F(ShowOnlyViewsTest, ShowsTheOrganizationsOfAStateOrACity)
{
    const clsView state = views.organizationsOfState(place(u"Austin", u"TX", 5));
    EXPECT_EQ(state.viewIndex, ViewKind::Organizations);
    EXPECT_EQ(state.Caption, QStringLiteral("View Only TX Organizations"));
    EXPECT_EQ(shown(state), QStringLiteral("2 3"));
    EXPECT_FALSE(hasCriteria(state.AdvSearch));

    const clsView city = views.organizationsOfCity(place(u"Dallas", u"TX", 6));
    EXPECT_EQ(city.Caption, QStringLiteral("View Only Dallas, TX Organizations"));
    EXPECT_EQ(shown(city), QStringLiteral("3"));
}

TEST_F(ShowOnlyViewsTest, NarrowsAlsoToPlacesThatNoKnownCityStandsFor)
{
    database.run("INSERT INTO Organization (OrganizationID, OrganizationName, City, State, Lat, Lon, Status) "
                 "VALUES (90, 'A', 'Stateless', NULL, NULL, NULL, 'ACTIVE'), "
                 "(91, 'B', 'Stateless', '', NULL, NULL, 'ACTIVE'), "
                 "(92, 'C', 'Stateless', 'TX', NULL, NULL, 'ACTIVE'), "
                 "(93, 'D', NULL, 'TX', 31, -98, 'ACTIVE'), (94, 'E', '', 'tx', 31, -98, 'ACTIVE'), "
                 "(95, 'F', 'Bend, East', 'TX', 31, -98, 'ACTIVE'), (96, 'G', ' Austin', 'TX', NULL, NULL, "
                 "'ACTIVE'), (97, 'H', 'Nowhere', 'TX', 31, -98, 'DELETED')");
    const struct
    {
        clsView view;
        QString shown;
    } cases[] = {
        {views.organizationsOfState(place(u"Tiny", u"UT")), u"5 8"_s},
        {views.organizationsOfCity(place(u"Tiny", u"UT")), u"5"_s},
        {views.organizationsOfCity(place(u"Stateless", u"")), u"90 91"_s},
        {views.organizationsOfState(place(u"Stateless", u"TX")), u"2 3 92 93 94 95 96"_s},
        {views.organizationsOfCity(place(u"Bend, East", u"TX")), u"95"_s},
        {views.organizationsOfCity(place(u" Austin", u"TX", 5)), u"96"_s},
        {views.organizationsOfState(place(u"Gone", u"WY")), QString()},
    };
    for (const auto& [view, expected] : cases) {
        QStringList found = shown(view).split(u' ', Qt::SkipEmptyParts);
        std::sort(found.begin(), found.end());
        EXPECT_EQ(found.join(u' '), expected) << view.Caption.toStdString();
    }
}

TEST_F(ShowOnlyViewsTest, ReportsWhatCannotBeAsked)
{
    constexpr int overflow = 6;
    EXPECT_NE(errorNumberOf([&] { (void)views.documentsOfType(QStringLiteral("Bob's")); }), 0);
    EXPECT_NE(errorNumberOf([&] { (void)views.documentsOfType(QStringLiteral("Gone")); }), 0);
    EXPECT_NE(errorNumberOf([&] { (void)views.organizationsOfState(place(u"O'Fallon", u"MO", 8)); }), 0);
    EXPECT_NE(errorNumberOf([&] { (void)views.organizationsOfCity(place(u"O'Fallon", u"MO", 8)); }), 0);
    EXPECT_EQ(errorNumberOf([&] { (void)views.documentsOfType(QStringLiteral("Late")); }), overflow);
    EXPECT_EQ(errorNumberOf([&] { (void)views.organizationsOfState(place(u"Far", u"FA", 40000)); }),
              overflow);
}

} // namespace

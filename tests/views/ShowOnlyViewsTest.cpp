// SPDX-License-Identifier: GPL-3.0-or-later

#include "views/ShowOnlyViews.h"

#include "search/AdvancedSearch.h"
#include "support/TestDatabase.h"
#include "views/StandardQueries.h"
#include "views/clsCities.h"

namespace {

class ShowOnlyViewsTest : public testing::Test
{
protected:
    ShowOnlyViewsTest() { database.runFile("views/rows/ShowOnlyViews.sql"); }

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

// SPDX-License-Identifier: GPL-3.0-or-later

#include "export/ExportedCollection.h"
#include "support/TestFiles.h"

#include <QMap>
#include <QProcess>
#include <QXmlStreamReader>

#include <gtest/gtest.h>

#include <utility>

using namespace Qt::StringLiterals;

namespace {

/// What a file says of a place: the texts of its elements, those of its fields by their names, in small
/// letters.
using Place = QMap<QString, QString>;

QMap<QString, Place> placesIn(const QByteArray& file)
{
    QMap<QString, Place> places;
    Place place;
    QString field;
    QXmlStreamReader xml(file);
    while (!xml.atEnd()) {
        xml.readNext();
        const QString element = xml.name().toString();
        if (xml.isEndElement() && element == u"Placemark"_s) {
            places.insert(place.take(u"organizationid"_s), place);
            place.clear();
        }
        if (!xml.isStartElement()) continue;
        if (element == u"Placemark"_s && places.isEmpty()) places.insert(u"all"_s, std::exchange(place, {}));
        if (element == u"Data"_s) field = xml.attributes().value(u"name"_s).toString().toLower();
        if (element == u"value"_s) place.insert(field, xml.readElementText());
        if (element == u"name"_s || element == u"description"_s || element == u"coordinates"_s)
            place.insert(element, xml.readElementText());
    }
    EXPECT_FALSE(xml.hasError()) << xml.errorString().toStdString();
    return places;
}

TEST(KmlExport, IsValidAndHasEachOrganizationWhereTheMapHasIt)
{
    ExportedCollection collection;
    const QString memo = u"Long \"memo\" & <more> ]]> 🧯 "_s.repeated(3000) + u"end"_s;
    collection.database().run(uR"sql(
        INSERT INTO Organization (OrganizationID, OrganizationName, City, State, Lat, Lon, Notes, Status) VALUES
        (7, 'Half a position', 'TROY', 'ny', 10, NULL, '%1', 'ACTIVE'),
        (8, 'Beyond the line', NULL, NULL, 0.00001, 190, CAST(x'C3' AS TEXT) || char(13, 10, 65534, 9), 'ACTIVE');
    )sql"_s.arg(memo));
    const QString file =
        collection.exportTo("kml", RecordKind::Organization, {.caption = u"All & <more>"_s, .picture = {}});
    EXPECT_EQ(QProcess::execute(u"xmllint"_s, {u"--nonet"_s, u"--noout"_s, u"--schema"_s,
                                               QStringLiteral(ORVIK_KML_SCHEMA), file}),
              0);
    const QMap<QString, Place> places = placesIn(contentOf(file));
    EXPECT_EQ(places[u"all"_s].value(u"name"_s), u"All & <more>"_s);

    const struct
    {
        QString organization;
        QString name;
        QString coordinates;
        QString description;
    } expected[] = {
        {u"2"_s, u"Fire & Rescue <Troy>"_s, u"-73.25,42.5"_s,
         u"<b>Address:</b> 1 Main St<br><b>City:</b> Troy<br><b>State:</b> NY<br><b>Zip:</b> 01234<br>"
         "<b>Telephone:</b> 555-0100<br><b>Web site:</b> www.example.org<br><b>Type:</b> Fire<br>"
         "<b>Function:</b> Rescue<br><b>Notes:</b> Kept"_s},
        {u"3"_s, u"Two profiles"_s, u"-73.69,42.73"_s,
         u"<b>City:</b>  troy<br><b>State:</b> ny <br><b>Web site:</b> http://example.org<br>"
         "<b>Type:</b> No. 3<br><b>Notes:</b> a<br><br>b"_s},
        {u"5"_s, u"Nowhere 漢字 "_s, {}, u"<b>City:</b> Oz"_s},
        {u"6"_s, u"South"_s, u"179.5,-89.123456789"_s, u"<b>Type:</b> Fire"_s},
        {u"7"_s, u"Half a position"_s, u"-73.69,42.73"_s,
         u"<b>City:</b> TROY<br><b>State:</b> ny<br><b>Notes:</b> "_s + memo.toHtmlEscaped()},
        {u"8"_s, u"Beyond the line"_s, u"-170,0.00001"_s, u"<b>Notes:</b> \uFFFD<br>\t"_s},
    };
    EXPECT_EQ(places.size(), 1 + std::ssize(expected));
    for (const auto& each : expected) {
        const Place place = places[each.organization];
        EXPECT_EQ(place.value(u"name"_s), each.name);
        EXPECT_EQ(place.value(u"coordinates"_s), each.coordinates) << each.name.toStdString();
        EXPECT_EQ(place.value(u"description"_s), each.description);
    }
    EXPECT_EQ(places[u"7"_s].value(u"notes"_s), memo);
    QStringList fields;
    const Place known = places[u"2"_s];
    for (auto each = known.begin(); each != known.end(); ++each) {
        const bool isField = each.key() != u"name"_s && each.key() != u"description"_s;
        if (isField) fields << each.key() + u' ' + each.value();
    }
    EXPECT_EQ(
        fields.join(u" | "_s),
        u"address1 1 Main St | annualbudget 1234567.89 | city Troy | civilianemployees 0 | "
        "coordinates -73.25,42.5 | document A plain report | functionid Rescue | lat 42.5 | lon -73.25 | "
        "missionstatement =Mission | notes Kept | organizationchart 2.png | organizationevents Flood, "
        "\"great\" | organizationname Fire & Rescue <Troy> | organizationprofilejurisdictions County | "
        "organizationprofilepopulations Rural | organizationsubtypeid Volunteer | organizationtypeid "
        "Fire | organizationvenues Café <Ünal> | responseactivities All; day | state NY | "
        "swornemployees 12 | telephone 555-0100 | website www.example.org | zip 01234"_s);
}

} // namespace

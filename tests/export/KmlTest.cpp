// SPDX-License-Identifier: GPL-3.0-or-later

#include "export/ExportedCollection.h"
#include "support/CaseFile.h"

#include <QXmlStreamReader>

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

    const std::vector<FileCase> expected = casesIn("export/cases/places.txt", 6);
    EXPECT_EQ(places.size(), 1 + std::ssize(expected));
    for (const FileCase& each : expected) {
        const Place place = places[each.asked];
        const QStringList found{place.value(u"name"_s), place.value(u"coordinates"_s),
                                place.value(u"description"_s).replace(memo.toHtmlEscaped(), u"MEMO"_s)};
        EXPECT_EQ(found.join(u'\n') + u'\n', each.expected) << each.asked.toStdString();
    }
    EXPECT_EQ(places[u"7"_s].value(u"notes"_s), memo);
    QStringList fields;
    const Place known = places[u"2"_s];
    for (auto each = known.begin(); each != known.end(); ++each) {
        const bool isField = each.key() != u"name"_s && each.key() != u"description"_s;
        if (isField) fields << each.key() + u' ' + each.value();
    }
    EXPECT_EQ(fields, linesIn("export/cases/fields.txt"));
}

} // namespace

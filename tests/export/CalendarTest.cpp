// SPDX-License-Identifier: GPL-3.0-or-later

#include "export/ExportedCollection.h"
#include "support/CaseFile.h"

#include <QDateTime>

#include <libical/ical.h>

namespace {

using Calendar = std::unique_ptr<icalcomponent, decltype(&icalcomponent_free)>;

/// A component as libical read it: its kind, then its properties with their values, one a line. Checks those
/// that every component must have and leaves them out.
QString contentOf(icalcomponent* component, QString& uid)
{
    QString content = QString::fromLatin1(icalcomponent_kind_to_string(icalcomponent_isa(component)));
    for (icalproperty* each = icalcomponent_get_first_property(component, ICAL_ANY_PROPERTY); each != nullptr;
         each = icalcomponent_get_next_property(component, ICAL_ANY_PROPERTY)) {
        const icalvalue* value = icalproperty_get_value(each);
        const bool isText = icalvalue_isa(value) == ICAL_TEXT_VALUE;
        const QString text =
            QString::fromUtf8(isText ? icalvalue_get_text(value) : icalproperty_get_value_as_string(each));
        const QString name = QString::fromLatin1(icalproperty_get_property_name(each));
        if (name == u"UID"_s) {
            uid = text;
        } else if (name == u"DTSTAMP"_s) {
            QDateTime stamp = QDateTime::fromString(text, u"yyyyMMdd'T'HHmmss'Z'"_s);
            stamp.setTimeSpec(Qt::UTC);
            EXPECT_LT(std::abs(stamp.secsTo(QDateTime::currentDateTimeUtc())), 600) << text.toStdString();
        } else {
            content += u'\n' + name + u' ' + text;
        }
    }
    return content;
}

TEST(CalendarExport, IsReadByAnotherProgramWithTheDatesAndTextsOfTheDatabase)
{
    ExportedCollection collection;
    const QString memo = u"Long; \\ 漢字, 🧯\nlines "_s.repeated(3000) + u"end"_s;
    collection.database().run(uR"sql(
        INSERT INTO Function VALUES (3, 'Fire, rescue; \n');
        INSERT INTO EventFunctions VALUES (11, 3), (11, 2);
        ALTER TABLE Event ADD COLUMN "Seen by" TEXT;
        INSERT INTO Event (EventID, EventName, StartDate, StartTime, EndDate, EndTime, EventDescription, "Seen by",
            Status) VALUES
        (11, 'Last days', '9999-12-30', NULL, '9999-12-31', NULL, NULL, 'Ann' || char(7), 'ACTIVE'),
        (12, 'To midnight', '0999-01-01', '09:00', '0999-01-02', NULL, '%1', NULL, 'ACTIVE'),
        (13, 'From midnight', '1850-06-01', NULL, '1850-06-01', '00:30', CAST(x'C3' AS TEXT) || char(13) || 'x', NULL, 'ACTIVE');
    )sql"_s.arg(memo));
    const QByteArray file =
        collection.exported("ics", RecordKind::Event, {.caption = u"Floods, all"_s, .picture = {}});
    EXPECT_TRUE(file.startsWith("BEGIN:VCALENDAR\r\n") && file.endsWith("\r\nEND:VCALENDAR\r\n"));
    for (const QByteArray& line : file.split('\n')) {
        EXPECT_LE(line.size(), 76) << line.toStdString(); // with its CR
        EXPECT_TRUE(line.isEmpty() || line.endsWith('\r')) << line.toStdString();
        EXPECT_EQ(QString::fromUtf8(line).toUtf8(), line) << "a character was cut";
    }

    const Calendar calendar(icalparser_parse_string(file.constData()), &icalcomponent_free);
    ASSERT_TRUE(calendar);
    EXPECT_EQ(icalcomponent_count_errors(calendar.get()), 0);
    EXPECT_TRUE(icalrestriction_check(calendar.get()));
    QString name;
    EXPECT_EQ(contentOf(calendar.get(), name),
              u"VCALENDAR\nVERSION 2.0\nPRODID -//Orvik//Orvik Database//EN\nX-WR-CALNAME Floods, all"_s);

    QMap<QString, QString> found;
    for (icalcomponent* each = icalcomponent_get_first_component(calendar.get(), ICAL_ANY_COMPONENT);
         each != nullptr; each = icalcomponent_get_next_component(calendar.get(), ICAL_ANY_COMPONENT)) {
        QString uid;
        const QString content = contentOf(each, uid);
        EXPECT_FALSE(found.contains(uid)) << uid.toStdString();
        found.insert(uid, content);
    }
    QMap<QString, QString> expected;
    for (const FileCase& each : casesIn("export/cases/calendar.txt", 11))
        expected[each.asked] = each.expected.chopped(1).replace(u"MEMO"_s, memo);
    for (auto each = found.begin(); each != found.end(); ++each)
        EXPECT_EQ(each.value(), expected.value(each.key())) << each.key().toStdString();
    EXPECT_EQ(found.keys(), expected.keys());
}

} // namespace

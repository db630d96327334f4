// SPDX-License-Identifier: GPL-3.0-or-later

#include "browse/list/RecordList.h"

#include "browse/list/RowIconKeys.h"
#include "support/TestDatabase.h"
#include "views/StandardQueries.h"

#include <QDir>
#include <QFile>

#include <gtest/gtest.h>

namespace {

RecordList read(TestDatabase& database, RecordKind kind)
{
    RecordSet rows = database.session().read(StandardQueries().of(kind)->sqlStr());
    RecordList list(kind);
    list.beginReading(rows);
    while (rows.next())
        list.append(rows);
    return list;
}

/// Returns the rows as the user sees them, with their cells joined by `|`.
std::string shown(const RecordList& list)
{
    QStringList lines;
    for (std::size_t row = 0; row < list.count(); ++row) {
        QStringList cells;
        for (int column = 0; column < static_cast<int>(list.columns().size()); ++column) {
            cells << list.text(row, column);
        }
        lines << cells.join(u'|');
    }
    return lines.join(u'\n').toStdString();
}

std::string sortedNames(const RecordList& list, int column, bool descending)
{
    QStringList names;
    for (const std::uint32_t row : list.sorted(column, descending))
        names << list.text(row, 0);
    return names.join(u' ').toStdString();
}

TEST(RecordList, ShowsDocuments)
{
    TestDatabase database;
    database.run(
        "INSERT INTO FileTypes VALUES (1, 'None'), (2, 'PDF'), (12, 'Film');"
        "INSERT INTO Organization (OrganizationID, OrganizationName) VALUES (1, 'None'), (7, 'Survey')");
    database.run("INSERT INTO Document (DocumentID, DocumentName, KeyDocument, FileTypeID, ReleaseForm, "
                 "OrganizationID, "
                 "FileLocation, Author, DocumentDate, dStatus) VALUES "
                 "(2, 'Beta', 1, 2, 1, 7, '2.pdf', 'The Office', '3/1907', 'ACTIVE'),"
                 "(3, 'alpha', 0, 12, 0, 1, '3.mpg', NULL, NULL, 'SUBMITTED'),"
                 "(4, 'Gone', 0, 2, 1, 7, '4.pdf', NULL, NULL, 'DELETED'),"
                 "(5, 'Delta', 0, NULL, 1, NULL, NULL, NULL, NULL, 'ACTIVE')");
    const RecordList list = read(database, RecordKind::Document);
    EXPECT_EQ(shown(list), "alpha|||"
                           "|Film|None\nBeta|1|The Office|3/1907|PDF|Survey\nDelta||||None|None");

    // a file that is not in the folder is on a disc, from which it may be shown or not
    QDir(database.folder()).mkdir(QStringLiteral("documents"));
    QFile file(database.folder() + QStringLiteral("/documents/2.PDF"));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    RowIconKeys icons(database.session(), database.folder() + QStringLiteral("/documents/"));
    EXPECT_EQ(icons.key(list, 0), QStringLiteral("d12ng"));
    EXPECT_EQ(icons.key(list, 1), QStringLiteral("d2"));
    EXPECT_EQ(icons.key(list, 2), QStringLiteral("d1cd"));
    file.remove();
    EXPECT_EQ(icons.key(list, 1), QStringLiteral("d2"));
    icons.clear();
    EXPECT_EQ(icons.key(list, 1), QStringLiteral("d2cd"));
}

TEST(RecordList, ShowsOrganizations)
{
    TestDatabase database;
    database.run("INSERT INTO OrganizationTypes VALUES (1, 'None'), (2, 'Agency');"
                 "INSERT INTO OrganizationSubTypes VALUES (1, 1, 'None'), (2, 2, 'State');"
                 "INSERT INTO Function VALUES (1, 'None'), (2, 'Rescue')");
    database.run(
        "INSERT INTO Organization (OrganizationID, OrganizationName, OrganizationTypeID, "
        "OrganizationSubTypeID, "
        "FunctionID, City, State, Status) VALUES "
        "(2, 'A', 2, 2, 2, 'Austin', 'TX', 'ACTIVE'), (3, 'B', 2, 1, 1, 'Austin', NULL, 'ACTIVE'),"
        "(4, 'C', 2, 1, 2, NULL, 'TX', 'ACTIVE'), (5, 'D', NULL, NULL, NULL, 'Austin', 'None', 'ACTIVE'),"
        "(6, 'E', 1, 1, 1, '', '', 'ACTIVE')");
    database.run("INSERT INTO OrganizationProfile (OrganizationProfileID, ChartOption) VALUES (2, 1), (3, "
                 "0), (4, 1), (4, 1)");
    const RecordList list = read(database, RecordKind::Organization);
    EXPECT_EQ(shown(list), "A|Agency - State|Rescue|Austin, TX\nB|Agency|None|Austin\nC|Agency|Rescue|TX\n"
                           "D|None|None|Austin\nE|None|None|");

    RowIconKeys icons(database.session(), QString());
    QStringList keys;
    for (std::size_t row = 0; row < list.count(); ++row)
        keys << icons.key(list, row).mid(13);
    EXPECT_EQ(keys.join(u' ').toStdString(), "cd wc wc wc wc") << "one profile row decides, never two";
}

TEST(RecordList, SortsDatesAsDatesAndTextsWithoutRegardToCase)
{
    TestDatabase database;
    database.run("INSERT INTO Document (DocumentID, DocumentName, KeyDocument, DocumentDate, dStatus) VALUES "
                 "(2, 'b', 1, '12/01/1999', 'ACTIVE'), (3, 'A', 0, '02/01/2001', 'ACTIVE'), (4, 'É', 1, "
                 "'undated', 'ACTIVE'),"
                 "(5, 'e', 0, '1907', 'ACTIVE'), (6, 'f', 0, 'March 1907', 'ACTIVE')");
    const RecordList documents = read(database, RecordKind::Document);
    EXPECT_EQ(sortedNames(documents, 0, false), "A b e É f");
    EXPECT_EQ(sortedNames(documents, 0, true), "f É e b A");
    EXPECT_EQ(sortedNames(documents, 3, false), "e f b A É");
    EXPECT_EQ(sortedNames(documents, 1, false), "b É A e f") << "key records first, else as they were";

    database.run(
        "INSERT INTO Event (EventID, EventName, StartDate, StartTime, EndDate, EndTime, Status) VALUES "
        "(2, 'late', '2001-12-01', '08:00', '2001-12-02', '08:00', 'ACTIVE'),"
        "(3, 'early', '1999-01-05', '08:00', '1999-01-05', '08:00', 'ACTIVE'),"
        "(4, 'longer', '1999-01-05', '08:00', '1999-01-06', '07:00', 'ACTIVE'),"
        "(5, 'day', '1999-01-05', NULL, '1999-01-05', NULL, 'ACTIVE')");
    const RecordList events = read(database, RecordKind::Event);
    EXPECT_EQ(sortedNames(events, 2, false), "day early longer late");
    EXPECT_EQ(sortedNames(events, 2, true), "late longer early day");
}

} // namespace

// SPDX-License-Identifier: GPL-3.0-or-later

#include "browse/list/RecordList.h"

#include "browse/list/EventTimes.h"
#include "browse/list/RowIconKeys.h"
#include "files/ProgramFolder.h"
#include "support/TestDatabase.h"
#include "views/StandardQueries.h"

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
    database.runFile("browse/rows/Documents.sql");
    const RecordList list = read(database, RecordKind::Document);
    EXPECT_EQ(shown(list), "alpha|||"
                           "|Film|None\nBeta|1|The Office|3/1907|PDF|Survey\nDelta||||None|None");

    // a file that is not in the folder is on a disc, from which it may be shown or not
    QDir(database.folder()).mkdir(QStringLiteral("documents"));
    QFile file(database.folder() + QStringLiteral("/documents/2.PDF"));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    const ProgramFolder folder = ProgramFolder(QString()).ofDatabase(database.fileName());
    RowIconKeys icons(database.session(), folder);
    EXPECT_EQ(icons.key(list, 0), QStringLiteral("d12ng"));
    EXPECT_EQ(icons.key(list, 1), QStringLiteral("d2"));
    EXPECT_EQ(icons.key(list, 2), QStringLiteral("d1cd"));
    EXPECT_EQ(list.drawnIcon(0, QStringLiteral("d12ng")), QStringLiteral("d0ng"))
        << "no type has a film's icon";
    EXPECT_EQ(list.drawnIcon(1, QStringLiteral("d2")), QStringLiteral("d2"));
    file.remove();
    EXPECT_EQ(icons.key(list, 1), QStringLiteral("d2"));
    icons.clear();
    EXPECT_EQ(icons.key(list, 1), QStringLiteral("d2cd"));
}

TEST(RecordList, ShowsOrganizations)
{
    TestDatabase database;
    database.runFile("browse/rows/Organizations.sql");
    const RecordList list = read(database, RecordKind::Organization);
    EXPECT_EQ(shown(list), "A|Agency - State|Rescue|Austin, TX\nB|Agency|None|Austin\nC|Agency|Rescue|TX\n"
                           "D|None|None|Austin\nE|None|None|");

    const ProgramFolder folder(database.folder());
    RowIconKeys icons(database.session(), folder);
    QStringList keys;
    for (std::size_t row = 0; row < list.count(); ++row)
        keys << icons.key(list, row).mid(13);
    EXPECT_EQ(keys.join(u' ').toStdString(), "cd wc wc wc wc") << "one profile row decides, never two";
}

TEST(RecordList, SortsDatesAsDatesAndTextsWithoutRegardToCase)
{
    TestDatabase database;
    database.runFile("browse/rows/SortedDocuments.sql");
    const RecordList documents = read(database, RecordKind::Document);
    EXPECT_EQ(sortedNames(documents, 0, false), "A b e É f");
    EXPECT_EQ(sortedNames(documents, 0, true), "f É e b A");
    EXPECT_EQ(sortedNames(documents, 3, false), "e f b A É");
    EXPECT_EQ(sortedNames(documents, 1, false), "b É A e f") << "key records first, else as they were";

    database.runFile("browse/rows/SortedEvents.sql");
    const RecordList events = read(database, RecordKind::Event);
    EXPECT_EQ(sortedNames(events, 2, false), "day early longer late");
    EXPECT_EQ(sortedNames(events, 2, true), "late longer early day");
}

TEST(EventTimes, SaysWhenAnEventWasInAsFewWordsAsItCan)
{
    struct Case
    {
        EventTimes times;
        const char* shortText;
        const char* longText;
    };
    const Case cases[] = {
        {{"2001-09-11", "08:46", "2001-09-12", "17:00"},
         "09/11/01 08:46 - 09/12/01 17:00",
         "09/11/2001 08:46 - 09/12/2001 17:00"},
        {{"2001-09-11", "08:46", "2001-09-11", "10:28"}, "09/11/01 08:46-10:28", "09/11/2001 08:46-10:28"},
        {{"2001-09-11", "08:46", "2001-09-11", "08:46"}, "09/11/01 08:46", "09/11/2001 08:46"},
        {{"2001-09-11", "08:46:40", "2001-09-11", "08:46:59"}, "09/11/01 08:46", "09/11/2001 08:46"},
        {{"1906-04-18", "", "1906-04-21", ""}, "04/18/06 - 04/21/06", "04/18/1906 - 04/21/1906"},
        {{"1906-04-18", "", "1906-04-18", ""}, "04/18/06", "04/18/1906"},
        {{"1906-04-18", "05:12", "1906-04-18", ""}, "04/18/06 05:12", "04/18/1906 05:12"},
        {{"1906-04-18", "05:12", "", ""}, "04/18/06 05:12", "04/18/1906 05:12"},
        {{"1906-04-18", "", "1906-04-18", "07:00"},
         "04/18/06 - 04/18/06 07:00",
         "04/18/1906 - 04/18/1906 07:00"},
        {{"1999-12-31", "23:59", "2000-01-01", "23:59"},
         "12/31/99 23:59 - 01/01/00 23:59",
         "12/31/1999 23:59 - 01/01/2000 23:59"},
        {{"about 1927", "", "", ""}, "about 1927", "about 1927"},
        {{"", "", "", ""}, "", ""},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(c.times.text(Years::TwoDigits).toStdString(), c.shortText);
        EXPECT_EQ(c.times.text(Years::FourDigits).toStdString(), c.longText);
    }
}

} // namespace

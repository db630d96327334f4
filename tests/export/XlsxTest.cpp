// SPDX-License-Identifier: GPL-3.0-or-later

#include "export/ExportedCollection.h"
#include "export/LibreOffice.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype mostInCell = 32767;

/// What the file holds, with the line ends of a cell.
QString held(ExportedCollection& collection, const QString& table, const QString& column, const QString& key)
{
    const QString hexadecimal = collection.database().ask(
        u"SELECT hex(CAST(ifnull(\"%1\", '') AS BLOB)) FROM %2 WHERE %2ID = %3"_s.arg(column, table, key));
    QString text = QString::fromUtf8(QByteArray::fromHex(hexadecimal.toLatin1()));
    return text.replace(u"\r\n"_s, u"\n"_s).replace(u'\r', u'\n');
}

/// The parts of a long text, put together.
QString longText(const SheetRows& sheet, const QString& key, const QString& title)
{
    QString text;
    for (const auto& row : sheet)
        if (row[0].text == key && row[1].text == title) text += row[3].text;
    return text;
}

/// A cell by the title of its column, a text in quotes.
QString cellAt(const SheetRows& sheet, const QString& key, const QString& title)
{
    const auto& titles = sheet.front();
    for (const auto& row : sheet) {
        for (std::size_t i = 0; row[0].text == key && i < row.size(); ++i)
            if (titles[i].text == title) return row[i].isText ? u'"' + row[i].text + u'"' : row[i].text;
    }
    return u"(no cell)"_s;
}

struct Column
{
    const char* title;
    const char* table;
    const char* column;
};

constexpr std::array columns{
    Column{"Title", "Document", "DocumentName"},
    Column{"Author", "Document", "Author"},
    Column{"Date", "Document", "DocumentDate"},
    Column{"Publication", "Document", "Publication"},
    Column{"Page number", "Document", "PageNum"},
    Column{"Publication number", "Document", "PubNum"},
    Column{"Volume", "Document", "Volume"},
    Column{"Web address", "Document", "URL"},
    Column{"Document file", "Document", "OriginalFilename"},
    Column{"Description", "Document", "DocumentDescription"},
    Column{"Notes", "Document", "Notes"},
    Column{"Shelf mark", "Document", "Shelf mark"},
    Column{"Title", "Event", "EventName"},
    Column{"Description", "Event", "EventDescription"},
    Column{"Name", "Organization", "OrganizationName"},
    Column{"City", "Organization", "City"},
    Column{"Zip", "Organization", "Zip"},
    Column{"Notes", "Organization", "Notes"},
};

struct Expected
{
    const char* sheet;
    const char* key;
    const char* title;
    const char* cell;
};

constexpr std::array others{
    Expected{"Document-Documents", "2", "ID", "2"},
    Expected{"Document-Documents", "2", "Key document", "\"Yes\""},
    Expected{"Document-Documents", "8", "Key document", "\"No\""},
    Expected{"Document-Documents", "2", "Price", "12.5"},
    Expected{"Document-Documents", "2", "Barcode", "\"9007199254740993\""},
    Expected{"Document-Documents", "3", "Barcode", "-5"},
    Expected{"Document-Documents", "2", "File type", "\"PDF\""},
    Expected{"Document-Documents", "2", "Venues", "\"Harbour; Café <Ünal>\""},
    Expected{"Document-Documents", "2", "Related events", "\"Flood, \"great\"; Dates that are none\""},
    Expected{"Event-Events", "2", "Start date", "2001-09-11"},
    Expected{"Event-Events", "2", "Start time", "08:46:00 AM"},
    Expected{"Event-Events", "2", "End time", "11:59:30 PM"},
    Expected{"Event-Events", "3", "Start date", "\"2001-02-30\""},
    Expected{"Event-Events", "3", "Start time", "\"25:00\""},
    Expected{"Event-Events", "3", "End date", "\"spring\""},
    Expected{"Event-Events", "4", "Start time", "12:00:00 AM"},
    Expected{"Event-Events", "4", "End date", "\"1900-02-28\""},
    Expected{"Event-Events", "7", "Start date", "1900-03-01"},
    Expected{"Event-Events", "10", "Start date", "\"0101-01-01\""},
    Expected{"Event-Events", "10", "End date", "9999-12-31"},
    Expected{"Organization-Organizations", "2", "Latitude", "42.5"},
    Expected{"Organization-Organizations", "2", "Sworn employees", "12"},
    Expected{"Organization-Organizations", "2", "Annual budget", "1234567.89"},
    Expected{"Organization-Organizations", "3", "Mission statement", "\"The first\""},
    Expected{"list-Events", "Flood, \"great\"", "Date - Time", "\"09/11/2001 08:46 - 09/12/2001 23:59\""},
};

} // namespace

TEST(Xlsx, LibreOfficeReadsWhatTheDatabaseHolds)
{
    ExportedCollection collection;
    const QString list = collection.database().folder() + u"/list.xlsx"_s;
    ExportOptions ofList;
    ofList.fields = FieldChoice::OfList;
    QFile::rename(collection.exportTo("xlsx", RecordKind::Event, ofList), list);
    QStringList files{list};
    for (const RecordKind kind : recordKinds)
        files << collection.exportTo("xlsx", kind);
    const QMap<QString, SheetRows> sheets = readByLibreOffice(files);

    for (const RecordKind kind : recordKinds) {
        const QString table = recordNames(kind).record;
        const SheetRows sheet = sheets[u"%1-%1s"_s.arg(table)];
        const std::vector<qint64> identifiers = collection.identifiers(kind);
        ASSERT_EQ(sheet.size(), identifiers.size() + 1);
        for (std::size_t row = 0; row < identifiers.size(); ++row) {
            const QString key = QString::number(identifiers[row]);
            EXPECT_EQ(sheet[row + 1][0].text, key);
            for (const Column& column : columns) {
                if (table != QLatin1String(column.table)) continue;
                const QString title = QString::fromLatin1(column.title);
                const QString expected = held(collection, table, QString::fromLatin1(column.column), key);
                const QString cell = cellAt(sheet, key, title);
                if (expected.size() <= mostInCell) {
                    EXPECT_EQ(cell, expected.isEmpty() ? QString() : u'"' + expected + u'"')
                        << column.column << ' ' << row;
                } else {
                    EXPECT_TRUE(cell.startsWith(u'"' + expected.left(mostInCell - 100))) << column.column;
                    EXPECT_TRUE(cell.endsWith(u"(whole on the sheet “Long Texts”)\""_s)) << column.column;
                    EXPECT_EQ(longText(sheets[u"Document-Long Texts"_s], key, title), expected);
                }
            }
        }
    }
    for (const Expected& each : others)
        EXPECT_EQ(cellAt(sheets[QString::fromLatin1(each.sheet)], QString::fromUtf8(each.key),
                         QString::fromUtf8(each.title)),
                  QString::fromUtf8(each.cell))
            << each.sheet << ' ' << each.key << ' ' << each.title;
}

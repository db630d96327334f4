// SPDX-License-Identifier: GPL-3.0-or-later

#include "export/ExportedCollection.h"
#include "export/LibreOffice.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype mostInCell = 32767;

/// The parts of a long text, put together.
QString longText(const SheetRows& sheet, const QString& key, const QString& title)
{
    QString text;
    for (const auto& row : sheet)
        if (row[0].text == key && row[1].text == title) text += row[3].text;
    return text;
}

QString quoted(const QString& text)
{
    return text.isEmpty() ? QString() : u'"' + text + u'"';
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

struct ExpectedCell
{
    const char* sheet;
    const char* key;
    const char* title;
    const char* cell;
};

constexpr std::array others{
    ExpectedCell{"Document-Documents", "2", "ID", "2"},
    ExpectedCell{"Document-Documents", "2", "Key document", "\"Yes\""},
    ExpectedCell{"Document-Documents", "8", "Key document", "\"No\""},
    ExpectedCell{"Document-Documents", "2", "Price", "12.5"},
    ExpectedCell{"Document-Documents", "2", "Barcode", "\"9007199254740993\""},
    ExpectedCell{"Document-Documents", "3", "Barcode", "-5"},
    ExpectedCell{"Document-Documents", "2", "File type", "\"PDF\""},
    ExpectedCell{"Document-Documents", "2", "Venues", "\"Harbour; Café <Ünal>\""},
    ExpectedCell{"Document-Documents", "2", "Related events", "\"Flood, \"great\"; Dates that are none\""},
    ExpectedCell{"Event-Events", "2", "Start date", "2001-09-11"},
    ExpectedCell{"Event-Events", "2", "Start time", "08:46:00 AM"},
    ExpectedCell{"Event-Events", "2", "End time", "11:59:30 PM"},
    ExpectedCell{"Event-Events", "3", "Start date", "\"2001-02-30\""},
    ExpectedCell{"Event-Events", "3", "Start time", "\"25:00\""},
    ExpectedCell{"Event-Events", "3", "End date", "\"spring\""},
    ExpectedCell{"Event-Events", "4", "Start time", "12:00:00 AM"},
    ExpectedCell{"Event-Events", "4", "End date", "\"1900-02-28\""},
    ExpectedCell{"Event-Events", "7", "Start date", "1900-03-01"},
    ExpectedCell{"Event-Events", "10", "Start date", "\"0101-01-01\""},
    ExpectedCell{"Event-Events", "10", "End date", "9999-12-31"},
    ExpectedCell{"Organization-Organizations", "2", "Latitude", "42.5"},
    ExpectedCell{"Organization-Organizations", "2", "Sworn employees", "12"},
    ExpectedCell{"Organization-Organizations", "2", "Annual budget", "1234567.89"},
    ExpectedCell{"Organization-Organizations", "3", "Mission statement", "\"The first\""},
    ExpectedCell{"list-Events", "Flood, \"great\"", "Date - Time", "\"09/11/2001 08:46 - 09/12/2001 23:59\""},
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
            EXPECT_EQ(cellAt(sheet, key, sheet.front()[1].text),
                      quoted(collection.held(kind, recordNames(kind).name, key)));
            for (const TextField& each : textFields) {
                if (each.kind != kind) continue;
                const QString title = QString::fromLatin1(each.caption);
                const QString expected = collection.held(kind, QString::fromLatin1(each.column), key);
                const QString cell = cellAt(sheet, key, title);
                if (expected.size() <= mostInCell) {
                    EXPECT_EQ(cell, quoted(expected)) << each.column << ' ' << row;
                } else {
                    EXPECT_TRUE(cell.startsWith(u'"' + expected.left(mostInCell - 100))) << each.column;
                    EXPECT_TRUE(cell.endsWith(u"(whole on the sheet “Long Texts”)\""_s)) << each.column;
                    EXPECT_EQ(longText(sheets[u"Document-Long Texts"_s], key, title), expected);
                }
            }
        }
    }
    for (const ExpectedCell& each : others)
        EXPECT_EQ(cellAt(sheets[QString::fromLatin1(each.sheet)], QString::fromUtf8(each.key),
                         QString::fromUtf8(each.title)),
                  QString::fromUtf8(each.cell))
            << each.sheet << ' ' << each.key << ' ' << each.title;
}

// SPDX-License-Identifier: GPL-3.0-or-later

#include "export/ExportedCollection.h"
#include "export/LibreOffice.h"
#include "support/CaseFile.h"

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
    for (const QString& line : linesIn("export/cases/cells.txt")) {
        const QStringList expected = line.split(u" | "_s);
        EXPECT_EQ(cellAt(sheets[expected[0]], expected[1], expected[2]), expected[3]) << line.toStdString();
    }
}

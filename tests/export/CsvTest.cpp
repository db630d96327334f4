// SPDX-License-Identifier: GPL-3.0-or-later
// CSV as programs read it that are none of ours, against what SQLite alone finds in the database.

#include "data/ListEntry.h"
#include "export/ExportedCollection.h"
#include "export/LibreOffice.h"
#include "support/OtherPrograms.h"

#include <QJsonArray>
#include <QJsonDocument>

namespace {

using Rows = QList<QStringList>;

ExportOptions optionsOf(FieldChoice fields, bool forSpreadsheet)
{
    ExportOptions options;
    options.fields = fields;
    options.forSpreadsheet = forSpreadsheet;
    return options;
}

/// How Python's strict reader of RFC 4180 takes a file.
Rows readByPython(const QString& file)
{
    const ProgramRun run = runProgram(u"python3"_s, {u"-c"_s, uR"(
import csv, json, sys
with open(sys.argv[1], newline='', encoding='utf-8') as file:
    json.dump(list(csv.reader(file, strict=True)), sys.stdout))"_s,
                                                     file});
    EXPECT_EQ(run.errors, QByteArray());
    Rows rows;
    for (const auto& row : QJsonDocument::fromJson(run.output).array()) {
        QStringList& cells = rows.emplaceBack();
        for (const auto& cell : row.toArray())
            cells << cell.toString();
    }
    return rows;
}

/// How LibreOffice takes a file, by its own choice or each column as text.
SheetRows readByLibreOffice(const QString& file, bool asText)
{
    QStringList formats;
    for (int column = 1; asText && column <= 40; ++column)
        formats << u"%1/2"_s.arg(column);
    return readByLibreOffice({file}, u"CSV:44,34,76,1,"_s + formats.join(u'/')).first();
}

/// What a cell has to hold; `isText` is whether the file holds it as a text.
struct Cell
{
    QString text;
    bool isText = true;
};

/// The rows of a statement by SQLite alone.
QHash<QString, QList<Cell>> rowsIn(const QString& database, const char* statement)
{
    const SQLite::Database file(database.toStdString());
    SQLite::Statement found(file, statement);
    QHash<QString, QList<Cell>> rows;
    while (found.executeStep()) {
        QList<Cell> cells;
        for (int i = 0; i < found.getColumnCount(); ++i) {
            const SQLite::Column column = found.getColumn(i);
            const QByteArray bytes = QByteArray::fromStdString(column.getString());
            cells << Cell{QString::fromUtf8(bytes), column.isText()};
        }
        rows.insert(cells.front().text, cells);
    }
    return rows;
}

constexpr const char* allDocuments = R"sql(
SELECT DocumentID, DocumentName, Author, DocumentDate, Publication, PageNum, PubNum, Volume, URL, OriginalFilename,
    iif(KeyDocument, 'Yes', 'No'), DocumentDescription, Notes,
    ifnull(FileTypeName, 'No. ' || FileTypeID), ifnull(OrganizationName, 'No. ' || OrganizationID), FileLocation,
    (SELECT group_concat(ifnull(DocumentTypeName, 'No. ' || Link), '; ') FROM
        (SELECT DISTINCT DocumentTypeID AS Link FROM DocumentTypes WHERE DocumentID = d.DocumentID ORDER BY 1)
        LEFT JOIN DocumentType ON DocumentTypeID = Link WHERE Link > 1),
    (SELECT DocumentCategoryName FROM DocumentCategories JOIN DocumentCategory USING (DocumentCategoryID)
        WHERE DocumentID = d.DocumentID),
    CASE DocumentID WHEN 2 THEN 'Harbour; Café <Ünal>' WHEN 3 THEN 'None' END,
    "Shelf mark", Price, Barcode,
    CASE DocumentID WHEN 2 THEN 'Flood, "great"; Dates that are none' WHEN 6 THEN 'Flood, "great"' END
FROM Document AS d LEFT JOIN FileTypes USING (FileTypeID)
    LEFT JOIN (SELECT OrganizationID, OrganizationName FROM Organization) USING (OrganizationID)
WHERE DocumentID > 1 AND DocumentID <> 7)sql";

class Csv : public testing::Test
{
protected:
    Csv()
    {
        // the stored status may have another letter case
        collection.database().run("UPDATE Document SET dStatus = 'Deleted' WHERE DocumentID = 7;"
                                  "UPDATE Document SET PubNum = 'a' || char(13) || 'b' WHERE DocumentID = 8;"
                                  "UPDATE Event SET Status = 'deleted' WHERE EventID = 5");
    }

    /// The rows of an export but for that of the titles.
    Rows exported(RecordKind kind, const ExportOptions& options)
    {
        return readByPython(collection.exportTo("csv", kind, options)).sliced(1);
    }

    ExportedCollection collection;
};

TEST_F(Csv, HasTheTextsOfTheDatabaseForEveryReader)
{
    const QString none = FieldTexts::withoutName(noneKey);
    const auto expected = rowsIn(collection.database().fileName(), allDocuments);
    for (const bool forSpreadsheet : {false, true}) {
        const QString file =
            collection.exportTo("csv", RecordKind::Document, optionsOf(FieldChoice::All, forSpreadsheet));
        const Rows rows = readByPython(file);
        ASSERT_EQ(rows.size(), expected.size() + 1);
        EXPECT_EQ(rows[0][0], forSpreadsheet ? u"\xfeff"
                                               "ID"_s
                                             : u"ID"_s);
        EXPECT_EQ(rows[0][19], u"Shelf mark"_s);
        for (qsizetype row = 1; row < rows.size(); ++row) {
            const QList<Cell> cells = expected[rows[row][0]];
            ASSERT_EQ(rows[row].size(), cells.size());
            for (qsizetype i = 0; i < cells.size(); ++i) {
                SCOPED_TRACE((rows[row][0] + u' ' + rows[0][i]).toStdString());
                const bool isFormula = forSpreadsheet && cells[i].isText && !cells[i].text.isEmpty() &&
                                       u"=+-@\t\r"_s.contains(cells[i].text[0]);
                const bool isMissingKey = (i == 13 || i == 14) && cells[i].text.isEmpty();
                EXPECT_EQ(rows[row][i],
                          isMissingKey ? none : (isFormula ? u"'"_s : QString()) + cells[i].text);
            }
        }
    }
}

/// What spreadsheets cannot hold or change: the zero and the kinds of line ends.
QString asSpreadsheetsKeepIt(QString text)
{
    return text.remove(QChar(u'\0')).replace(u"\r\n"_s, u"\n"_s).replace(u'\r', u'\n');
}

TEST_F(Csv, HasTheSameTextsInASpreadsheetAndNothingToCalculate)
{
    const QString plain = collection.exportTo("csv", RecordKind::Document);
    const SheetRows texts = readByLibreOffice(plain, true);
    const Rows rows = readByPython(plain);
    ASSERT_EQ(texts.size(), static_cast<std::size_t>(rows.size()));
    for (std::size_t row = 0; row < texts.size(); ++row) {
        const QStringList& cells = rows[static_cast<qsizetype>(row)];
        ASSERT_EQ(texts[row].size(), static_cast<std::size_t>(cells.size()));
        for (std::size_t i = 0; i < texts[row].size(); ++i)
            EXPECT_EQ(texts[row][i].text, asSpreadsheetsKeepIt(cells[static_cast<qsizetype>(i)]));
    }
    const ExportOptions options = optionsOf(FieldChoice::All, true);
    const QString file = collection.exportTo("csv", RecordKind::Document, options);
    for (const std::vector<SheetCell>& row : readByLibreOffice(file, false)) {
        if (row[0].text != u"3") continue;
        QStringList found;
        for (const std::size_t i : {1U, 2U, 3U, 4U, 20U, 21U})
            found << (row[i].isText ? u"text "_s : QString()) + row[i].text;
        EXPECT_EQ(found.join(u'|'), u"text '=1+2|text '+44 20|text '-5|text '@SUM(A1)|-0.1|-5"_s);
        return;
    }
    ADD_FAILURE() << "the document with formulas is not there";
}

TEST_F(Csv, WritesTimesLinksAndTheColumnsOfTheList)
{
    struct Case
    {
        RecordKind kind;
        FieldChoice fields;
        const char* row;
    };
    const Case cases[] = {
        {RecordKind::Document, FieldChoice::OfList,
         "A plain report|Yes|Smith, Ann; Lee, Bo|9/11/2001|PDF|Fire & Rescue <Troy>"},
        {RecordKind::Event, FieldChoice::All,
         "2|Flood, \"great\"|Water; 漢字, \\n and "
         "more|Kept|Yes|2001-09-11|2001-09-12|08:46|23:59:30|Harbour; Café <Ünal>|"
         "Rescue|A plain report; Control \x01\x0b\x0c\x1b\x1f\x7f characters|Fire & Rescue <Troy>; Two "
         "profiles"},
        {RecordKind::Event, FieldChoice::OfList, "Flood, \"great\"|Yes|09/11/2001 08:46 - 09/12/2001 23:59"},
        {RecordKind::Organization, FieldChoice::All,
         "2|Fire & Rescue <Troy>|1 Main St|||Troy|NY|01234||555-0100|www.example.org|All; "
         "day|Kept|Rescue|Fire|Volunteer|"
         "42.5|-73.25|=Mission|12|0||1234567.89||||2.png|County|Rural|Café <Ünal>|A plain report|Flood, "
         "\"great\""},
        {RecordKind::Organization, FieldChoice::All,
         "3|Two profiles|||| troy|ny ||||http://example.org||a\n\nb|None|No. 3|No. 99|||The "
         "first|1|2|3|0|||||||||Flood, \"great\""},
        {RecordKind::Organization, FieldChoice::OfList,
         "Fire & Rescue <Troy>|Fire - Volunteer|Rescue|Troy, NY"},
        {RecordKind::Organization, FieldChoice::OfList, "Two profiles||None| troy, ny "},
    };
    for (const Case& each : cases) {
        QStringList lines;
        for (const QStringList& row : exported(each.kind, optionsOf(each.fields, false)))
            lines << row.join(u'|');
        EXPECT_TRUE(lines.contains(QString::fromUtf8(each.row))) << lines.join(u'\n').toStdString();
    }
}

} // namespace

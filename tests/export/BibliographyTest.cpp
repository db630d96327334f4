// SPDX-License-Identifier: GPL-3.0-or-later
// Documents as references, by programs that convert such, and JSON, against what SQLite finds in the
// database.

#include "export/ExportedCollection.h"
#include "export/Reference.h"
#include "support/CaseFile.h"
#include "support/OtherPrograms.h"

#include <QXmlStreamReader>

namespace {

class References : public testing::Test
{
protected:
    References()
    {
        collection.database().run(
            "UPDATE Document SET DocumentName = 'Unbalanced }{ \\ \"braces\" of ÉCOLE', Author = 'Agency of "
            "Ports and Dams', Notes = 'a' || char(13, 10) || 'ER  - ' || char(10) || 'TY  - BOOK' WHERE "
            "DocumentID = 3;"
            // the converters pass on what XML cannot hold
            "UPDATE Document SET PageNum = NULL WHERE DocumentID = 6");
    }

    ExportedCollection collection;
};

/// The texts of each document by the names of their elements, as a converter of references reads them.
QHash<qint64, QMultiHash<QString, QString>> convert(const QString& program, const QStringList& options,
                                                    const QByteArray& references)
{
    QHash<qint64, QMultiHash<QString, QString>> found;
    QXmlStreamReader xml(runProgram(program, options, references).output);
    qint64 document = 0;
    while (!xml.atEnd()) {
        if (xml.readNext() != QXmlStreamReader::StartElement) continue;
        const QString name = xml.name().toString();
        // a key of BibTeX ends in the identifier
        if (name == u"mods")
            document = xml.attributes().value(u"ID"_s).toString().section(u'-', -1).toLongLong();
        if (name == u"mods") found[document];
        if (QStringList{u"title"_s, u"abstract"_s, u"note"_s, u"url"_s, u"namePart"_s}.contains(name))
            found[document].insert(name, xml.readElementText().simplified());
    }
    EXPECT_FALSE(xml.hasError()) << xml.errorString().toStdString();
    return found;
}

/// A text in one line without control characters.
QString inOneLine(QString text)
{
    static const QRegularExpression lineEnds(u"[\\s\\x{85}\\x{2028}]+"_s);
    static const QRegularExpression controls(u"\\p{Cc}"_s);
    return text.replace(lineEnds, u" "_s).remove(controls).simplified();
}

/// What LaTeX makes of quotation marks and hyphens, and of two commands that its reader takes otherwise.
QString asReadFromLatex(QString text)
{
    return text.replace(u'\\', u"\\textbackslash"_s)
        .replace(u'"', u'”')
        .replace(u"--"_s, u"–"_s)
        .replace(u'^', u'⌃');
}

TEST_F(References, KeepTheirTextsForOtherPrograms)
{
    const QByteArray bibtex = collection.exported("bibtex", RecordKind::Document);
    const ProgramRun checked = runProgram(u"bibtool"_s, {}, bibtex);
    EXPECT_EQ(checked.errors, QByteArray());
    const auto byBibtex = convert(u"bib2xml"_s, {u"-nt"_s}, bibtex);
    const auto byRis =
        convert(u"ris2xml"_s, {u"-nt"_s, u"-nl"_s}, collection.exported("ris", RecordKind::Document));
    const std::vector<qint64> identifiers = collection.identifiers(RecordKind::Document);
    EXPECT_EQ(checked.output.count("\n@"), static_cast<qsizetype>(identifiers.size()));
    EXPECT_EQ(byBibtex.size(), static_cast<qsizetype>(identifiers.size()));
    EXPECT_EQ(byRis.size(), byBibtex.size());
    const std::pair<QString, QString> texts[] = {{u"title"_s, u"DocumentName"_s},
                                                 {u"abstract"_s, u"DocumentDescription"_s},
                                                 {u"note"_s, u"Notes"_s},
                                                 {u"url"_s, u"URL"_s}};
    for (const qint64 document : identifiers) {
        for (const auto& [element, column] : texts) {
            SCOPED_TRACE(u"%1 %2"_s.arg(document).arg(column).toStdString());
            const QString held = inOneLine(collection.database().ask(
                u"SELECT ifnull(%1, '') FROM Document WHERE DocumentID = %2"_s.arg(column).arg(document)));
            const QString inLatex = element == u"url" ? held : asReadFromLatex(held);
            EXPECT_TRUE(held.isEmpty() || byBibtex[document].contains(element, inLatex))
                << byBibtex[document].value(element).left(200).toStdString();
            EXPECT_TRUE(held.isEmpty() || byRis[document].contains(element, held))
                << byRis[document].value(element).left(200).toStdString();
        }
    }
    EXPECT_TRUE(byBibtex[3].contains(u"namePart"_s, u"Agency of Ports and Dams"_s));
    EXPECT_TRUE(byRis[2].contains(u"namePart"_s, u"Lee"_s));
}

TEST_F(References, HaveTheFieldsOfTheirType)
{
    const QByteArray bibtex = collection.exported("bibtex", RecordKind::Document);
    EXPECT_TRUE(bibtex.contains(linesIn("export/cases/reference.bib").join(u'\n').toUtf8() + '\n'));
    EXPECT_FALSE(bibtex.contains("{None}"));
    EXPECT_TRUE(collection.exported("ris", RecordKind::Document)
                    .contains(linesIn("export/cases/reference.ris").join(u"\r\n"_s).toUtf8() + " \r\n"));
    struct Case
    {
        const char* type;
        const char* publication;
        const char* entry; ///< with the beginning of the key
        const char* code;
    };
    const Case cases[] = {{"Periodical Article", "Weekly", "@article{long1937-5", "JOUR"},
                          {"Periodical Article", "", "@misc{long1937-5", "GEN"},
                          {"HANDBOOK", "", "@book{long1937-5", "BOOK"},
                          {"Survey map", "", "@misc{long1937-5", "MAP"},
                          {"Lawn", "", "@misc{long1937-5", "GEN"}};
    for (const Case& each : cases) {
        SCOPED_TRACE(each.type);
        collection.database().run(
            u"UPDATE DocumentType SET DocumentTypeName = '%1' WHERE DocumentTypeID = 3;"
            "DELETE FROM DocumentTypes; INSERT INTO DocumentTypes VALUES (5, 3);"
            "UPDATE Document SET Publication = '%2', DocumentDate = 'May 1937' WHERE DocumentID = 5"_s.arg(
                QString::fromUtf8(each.type), QString::fromUtf8(each.publication)));
        EXPECT_TRUE(collection.exported("bibtex", RecordKind::Document).contains(each.entry));
        EXPECT_TRUE(collection.exported("ris", RecordKind::Document)
                        .contains("TY  - " + QByteArray(each.code) + "\r\nID  - 5\r\n"));
    }
}

TEST_F(References, TellPersonsFromOrganizations)
{
    const std::pair<const char*, const char*> cases[] = {
        {"Smith, Ann;  Lee, B. C. ;", "<Smith, Ann> <Lee, B. C.>"},
        {"John A. Smith and van der Berg, Jan", "<Smith, John A.> <van der Berg, Jan>"},
        {"J. de la Cruz", "<de la Cruz, J.>"},
        {"O’Neil-Müller, Zoë", "<O’Neil-Müller, Zoë>"},
        {"Ann Smith", "[Ann Smith]"},
        {"National Oceanic and Atmospheric Administration",
         "[National Oceanic and Atmospheric Administration]"},
        {"Wind Science and Engineering Center, Texas Tech University",
         "[Wind Science and Engineering Center, Texas Tech University]"},
        {"FERC, NERC and Regional Entities", "[FERC, NERC and Regional Entities]"},
        {"U. S. Congress; U.S. Geological Survey", "[U. S. Congress] [U.S. Geological Survey]"},
        {"Smith, Ann and the Port\nAuthority", "[Smith, Ann and the Port Authority]"},
        {"漢字; ", "[漢字]"},
        {"", ""}};
    for (const auto& [text, expected] : cases) {
        QStringList found;
        for (const ReferenceAuthor& each : ReferenceReader::authorsIn(QString::fromUtf8(text)))
            found << (each.isPerson ? u"<%1>"_s : u"[%1]"_s).arg(each.name);
        EXPECT_EQ(found.join(u' '), QString::fromUtf8(expected));
    }
}

} // namespace

// SPDX-License-Identifier: GPL-3.0-or-later

#include "export/ExportFile.h"
#include "export/ExportFormat.h"
#include "export/Reference.h"

#include <array>

using namespace Qt::StringLiterals;

namespace {

/// An entry of a type of document and the fields that its publication and its organization go to.
struct Entry
{
    const char* type;
    const char* publication;
    const char* organization;
};

Entry entryOf(ReferenceType type)
{
    switch (type) {
    case ReferenceType::Article:
        return {"article", "journal", "organization"};
    case ReferenceType::Report:
        return {"techreport", "type", "institution"};
    case ReferenceType::Book:
        return {"book", "series", "publisher"};
    default:
        return {"misc", "howpublished", "organization"};
    }
}

/// How LaTeX is told of a character that it takes as special. Braces are named, since BibTeX counts those
/// that are escaped, too.
const char* commandOf(QChar character)
{
    switch (character.unicode()) {
    case u'{':
        return "\\textbraceleft{}";
    case u'}':
        return "\\textbraceright{}";
    case u'\\':
        return "\\textbackslash{}";
    case u'^':
        return "\\textasciicircum{}";
    case u'~':
        return "\\textasciitilde{}";
    case u'%':
        return "\\%";
    case u'&':
        return "\\&";
    case u'$':
        return "\\$";
    case u'#':
        return "\\#";
    case u'_':
        return "\\_";
    default:
        return nullptr;
    }
}

QString asLatex(const QString& text)
{
    QString result;
    result.reserve(text.size());
    for (const QChar character : text) {
        if (const char* const command = commandOf(character)) {
            result += QLatin1StringView(command);
        } else {
            result += character;
        }
    }
    return result;
}

/// An address or a file name, which LaTeX takes as it is.
QString verbatim(QString text)
{
    return text.replace(u'\\', u"%5C"_s).replace(u'{', u"%7B"_s).replace(u'}', u"%7D"_s);
}

/// The letters a to z of the first word that has some.
QString keyWord(const QString& text)
{
    QString word;
    for (const QChar character : text.normalized(QString::NormalizationForm_KD).toLower()) {
        if (character >= u'a' && character <= u'z') word += character;
        if (character.isSpace() && !word.isEmpty()) break;
    }
    return word;
}

/// Unique by the identifier, and the same in every export as long as the record stays as it is.
QString keyOf(const Reference& reference)
{
    QString key = keyWord(reference.authors.empty() ? QString() : reference.authors.front().name);
    if (key.isEmpty()) key = keyWord(reference.title);
    if (key.isEmpty()) key = u"document"_s;
    if (reference.year != 0) key += QString::number(reference.year);
    return key + u'-' + QString::number(reference.identifier);
}

/// Each name that is not surely a person's is in braces, so that it stays in one piece.
QString authorsOf(const Reference& reference)
{
    QStringList names;
    for (const ReferenceAuthor& each : reference.authors)
        names << (each.isPerson ? asLatex(each.name) : u'{' + asLatex(each.name) + u'}');
    return names.join(u" and "_s);
}

QString keywordsOf(const Reference& reference)
{
    QStringList keywords;
    for (const QString& each : reference.keywords)
        keywords << (each.contains(u',') || each.contains(u';') ? u'{' + asLatex(each) + u'}'
                                                                : asLatex(each));
    return keywords.join(u", "_s);
}

QString pagesOf(const Reference& reference)
{
    const QString first = asLatex(reference.firstPage);
    return reference.lastPage.isEmpty() ? first : first + u"--"_s + asLatex(reference.lastPage);
}

/// Entries of BibTeX, in UTF-8.
class BibtexWriter final : public RecordWriter
{
public:
    BibtexWriter(const ExportOrder& order, ExportFile& file) : m_reader(order.fields), m_text(file.text()) {}

    void add(const ExportedRecord& record) override
    {
        const Reference reference = m_reader.read(record);
        const Entry entry = entryOf(reference.type);
        m_text += '@';
        m_text += entry.type;
        m_text += '{' + keyOf(reference).toStdString();
        // an entry without any field is none; the inner braces keep the capitals
        addField("title", u'{' + asLatex(reference.title) + u'}');
        addField("author", authorsOf(reference));
        addDate(reference);
        addField(entry.publication, asLatex(reference.publication));
        addField("volume", asLatex(reference.volume));
        addField("number", asLatex(reference.number));
        addField("pages", pagesOf(reference));
        addField(entry.organization, asLatex(reference.organization));
        addField("url", verbatim(reference.url));
        addField("file", verbatim(reference.file));
        addField("keywords", keywordsOf(reference));
        addField("abstract", asLatex(reference.description));
        addField("note", asLatex(reference.notes));
        m_text += "\n}\n\n";
    }

    bool finish() override { return false; }

private:
    void addField(const char* name, const QString& value)
    {
        if (value.trimmed().isEmpty()) return;
        beginField(name);
        m_text += '{' + value.toStdString() + '}';
    }

    /// A date that cannot be read stands in place of the year. BibTeX itself has no day.
    void addDate(const Reference& reference)
    {
        static constexpr std::array months{"jan", "feb", "mar", "apr", "may", "jun",
                                           "jul", "aug", "sep", "oct", "nov", "dec"};
        if (reference.year == 0) return addField("year", asLatex(reference.date));
        addField("year", QString::number(reference.year));
        if (reference.month == 0) return;
        beginField("month");
        m_text += months[static_cast<std::size_t>(reference.month) - 1];
        if (reference.day == 0) return;
        addField("date", u"%1-%2-%3"_s.arg(reference.year, 4, 10, QChar(u'0'))
                             .arg(reference.month, 2, 10, QChar(u'0'))
                             .arg(reference.day, 2, 10, QChar(u'0')));
    }

    void beginField(const char* name)
    {
        m_text += ",\n  ";
        m_text += name;
        m_text += " = ";
    }

    ReferenceReader m_reader;
    std::string& m_text;
};

} // namespace

ExportFormat bibtexFormat()
{
    return {.name = u"bibtex"_s,
            .title = QT_TRANSLATE_NOOP("Export", "References for LaTeX (BibTeX)"),
            .remark = QT_TRANSLATE_NOOP("Export", "To cite documents in a paper that is written with LaTeX."),
            .ending = u".bib"_s,
            .kind = RecordKind::Document,
            .begin = [](const ExportOrder& order, ExportFile& file) -> std::unique_ptr<RecordWriter> {
                return std::make_unique<BibtexWriter>(order, file);
            }};
}

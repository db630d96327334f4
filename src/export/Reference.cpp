// SPDX-License-Identifier: GPL-3.0-or-later

#include "export/Reference.h"

#include "data/ListEntry.h"
#include "export/PlainText.h"
#include "util/TypedDate.h"

#include <QRegularExpression>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

/// The words of the names of document types that tell what a document is; the first row that fits counts.
struct TypeWord
{
    QStringView word;
    ReferenceType type;
};
constexpr TypeWord typeWords[]{
    {u"article", ReferenceType::Article},
    {u"journal", ReferenceType::Article},
    {u"periodical", ReferenceType::Article},
    {u"report", ReferenceType::Report},
    {u"assessment", ReferenceType::Report},
    {u"book", ReferenceType::Book},
    {u"handbook", ReferenceType::Book},
    {u"manual", ReferenceType::Book},
    {u"map", ReferenceType::Map},
    {u"web", ReferenceType::WebPage},
    {u"law", ReferenceType::Law},
};

/// An article is one only if it is known where it was published; what has a publication and its volume but no
/// type that tells is one, too.
ReferenceType typeOf(const QStringList& types, const Reference& reference)
{
    static const QRegularExpression separators(u"[^\\p{L}]+"_s,
                                               QRegularExpression::UseUnicodePropertiesOption);
    const QStringList words = types.join(u' ').toLower().split(separators);
    for (const TypeWord& each : typeWords) {
        const bool isPossible = each.type != ReferenceType::Article || !reference.publication.isEmpty();
        if (isPossible && words.contains(each.word)) return each.type;
    }
    const bool isInVolume = !reference.publication.isEmpty() && !reference.volume.isEmpty();
    return isInVolume ? ReferenceType::Article : ReferenceType::Other;
}

ReferenceAuthor authorOf(const QString& name)
{
    static const QString word = u"\\p{Lu}[\\p{L}\\p{M}'’-]+"_s;
    static const QString initial = u"\\p{Lu}\\."_s;
    // one family name with particles such as `van der`, and one given name with initials
    static const QRegularExpression familyFirst(
        u"^(?:\\p{Ll}+ )*%1, (?:%1|%2)(?: ?%2)*$"_s.arg(word, initial));
    // not a body of the U. S.
    static const QRegularExpression givenFirst(
        u"^(?!U\\.)((?:%1|%2)(?: ?%2)*) ((?:\\p{Ll}+ )*%1)$"_s.arg(word, initial));
    if (familyFirst.match(name).hasMatch()) return {name, true};
    const QRegularExpressionMatch match = givenFirst.match(name);
    if (!match.hasMatch() || !match.captured(1).contains(u'.')) return {name, false};
    return {match.captured(2) + u", "_s + match.captured(1), true};
}

void setDate(const QString& typed, Reference& reference)
{
    reference.date = typed;
    const int order = typedDateOrder(typed).value_or(0);
    reference.year = order / 10000;
    reference.month = order / 100 % 100;
    reference.day = order % 100;
}

void setPages(const QString& pages, Reference& reference)
{
    static const QRegularExpression range(u"^(\\w*\\d\\w*)\\s*[-–—]+\\s*(\\w*\\d\\w*)$"_s);
    const QRegularExpressionMatch match = range.match(pages);
    reference.firstPage = match.hasMatch() ? match.captured(1) : pages;
    reference.lastPage = match.captured(2);
}

} // namespace

std::vector<ReferenceAuthor> ReferenceReader::authorsIn(const QString& text)
{
    std::vector<ReferenceAuthor> authors;
    for (const QString& part : text.split(u';')) {
        const QString whole = part.simplified();
        if (whole.isEmpty()) continue;
        std::vector<ReferenceAuthor> persons;
        for (const QString& name : whole.split(u" and "_s))
            persons.push_back(authorOf(name));
        const bool areAll = std::all_of(persons.begin(), persons.end(),
                                        [](const ReferenceAuthor& each) { return each.isPerson; });
        if (!areAll) persons = {{whole, false}};
        authors.insert(authors.end(), persons.begin(), persons.end());
    }
    return authors;
}

ReferenceReader::ReferenceReader(const std::vector<ExportField>& fields)
{
    for (std::size_t i = 0; i < fields.size(); ++i)
        m_fields.insert(fields[i].member().toLower(), i);
}

Reference ReferenceReader::read(const ExportedRecord& document) const
{
    Reference reference;
    reference.identifier = document.identifier;
    reference.title = line(document, u"documentname"_s);
    reference.authors = authorsIn(text(document, u"author"_s));
    setDate(line(document, u"documentdate"_s), reference);
    reference.publication = line(document, u"publication"_s);
    reference.number = line(document, u"pubnum"_s);
    reference.volume = line(document, u"volume"_s);
    setPages(line(document, u"pagenum"_s), reference);
    reference.url = line(document, u"url"_s);
    reference.file = line(document, u"filelocation"_s);
    reference.description = text(document, u"documentdescription"_s);
    reference.notes = text(document, u"notes"_s);
    const auto organization = m_fields.constFind(u"organizationid"_s);
    if (organization != m_fields.constEnd() && document.values[*organization].whole != noneKey)
        reference.organization = line(document, u"organizationid"_s);
    const QStringList types = links(document, u"documenttypes"_s);
    reference.type = typeOf(types, reference);
    reference.keywords =
        types + links(document, u"documentcategories"_s) + links(document, u"documentvenues"_s);
    reference.keywords.removeDuplicates();
    return reference;
}

QString ReferenceReader::text(const ExportedRecord& document, const QString& member) const
{
    const auto field = m_fields.constFind(member);
    return field == m_fields.constEnd() ? QString() : plainText(document.values[*field].text);
}

QString ReferenceReader::line(const ExportedRecord& document, const QString& member) const
{
    return text(document, member).simplified();
}

QStringList ReferenceReader::links(const ExportedRecord& document, const QString& member) const
{
    const auto field = m_fields.constFind(member);
    QStringList names;
    if (field == m_fields.constEnd()) return names;
    for (const ExportedLink& link : document.values[*field].links)
        if (link.key != noneKey) names << plainText(link.name).simplified();
    return names;
}

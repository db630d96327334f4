// SPDX-License-Identifier: GPL-3.0-or-later

#include "search/SearchResults.h"

#include "data/DatabaseSession.h"
#include "search/FoundInFiles.h"
#include "search/FoundKeys.h"
#include "search/KeywordSearch.h"
#include "search/SearchTexts.h"
#include "views/StandardQueries.h"

namespace {

/// Returns the caption of a list of results, with %1 for the keywords.
QString captionOf(RecordKind kind)
{
    return kind == RecordKind::Document ? SearchTexts::tr("Document Search Results for \"%1\"")
           : kind == RecordKind::Event  ? SearchTexts::tr("Event Search Results for \"%1\"")
                                        : SearchTexts::tr("Organization Search Results for \"%1\"");
}

std::optional<SearchResults::Record> firstOf(DatabaseSession& session, const SearchResults::Kind& kind)
{
    const RecordNames names = recordNames(kind.kind);
    RecordSet rows = session.read(kind.query->sqlStr());
    if (!rows.next()) return std::nullopt;
    return SearchResults::Record{kind.kind, rows.integer(rows.column(names.key)),
                                 rows.text(rows.column(names.name))};
}

SearchResults::InFiles readFiles(DatabaseSession& session, const StandardQueries& queries,
                                 const QString& keywords)
{
    const FoundInFiles found(session, queries, keywords);
    const std::vector<qint64> documents = found.documents();
    return {queryOfKeys(RecordKind::Document, queries.documents, documents),
            static_cast<qint64>(documents.size()), found.note()};
}

} // namespace

QString SearchResults::Kind::label() const
{
    const int number = static_cast<int>(count);
    switch (kind) {
    case RecordKind::Document:
        return number == 1 ? SearchTexts::tr("1 Document") : SearchTexts::tr("%n Documents", nullptr, number);
    case RecordKind::Event:
        return number == 1 ? SearchTexts::tr("1 Event") : SearchTexts::tr("%n Events", nullptr, number);
    case RecordKind::Organization:
        break;
    }
    return number == 1 ? SearchTexts::tr("1 Organization")
                       : SearchTexts::tr("%n Organizations", nullptr, number);
}

QString SearchResults::InFiles::label() const
{
    return count == 1 ? SearchTexts::tr("1 Document with the words in its file")
                      : SearchTexts::tr("%n Documents with the words in their files", nullptr,
                                        static_cast<int>(count));
}

qint64 SearchResults::total() const
{
    qint64 sum = 0;
    for (const Kind& kind : kinds)
        sum += kind.count;
    return sum;
}

QString SearchResults::sentence() const
{
    const qint64 count = total();
    if (count == 0) {
        return SearchTexts::tr(
                   "Your keyword search for \"%1\" found 0 items. Click on the Search icon to try again.")
            .arg(keywords);
    }
    if (count == 1) {
        return SearchTexts::tr(
                   "Your keyword search for \"%1\" found 1 item. Click on the result to view this item or "
                   "click the Search icon to try again.")
            .arg(keywords);
    }
    return SearchTexts::tr(
               "Your keyword search for \"%1\" found %n items. Click on the results you would like to view "
               "or click the Search icon to try again.",
               nullptr, static_cast<int>(count))
        .arg(keywords);
}

clsView SearchResults::listView(const Kind& kind) const
{
    return {viewOf(kind.kind), kind.query, kind.caption, keywords, {}};
}

clsView SearchResults::filesView(const StandardQueries& queries) const
{
    clsView view{ViewKind::Documents,
                 queries.documents,
                 SearchTexts::tr("File Search Results for \"%1\"").arg(keywords),
                 keywords,
                 {}};
    view.onlyInFiles = true;
    return view;
}

SearchResults SearchResults::read(DatabaseSession& session, const StandardQueries& queries,
                                  const QString& keywords, bool alsoInFiles)
{
    SearchResults results;
    results.keywords = keywords;
    const QStringList words = splitWords(keywords).words;
    for (std::size_t i = 0; i < recordKinds.size(); ++i) {
        Kind& kind = results.kinds[i];
        kind.kind = recordKinds[i];
        kind.query = keywordQuery(queries, kind.kind, words);
        kind.caption = captionOf(kind.kind).arg(keywords);
        kind.count = StandardQueries::count(session, kind.kind, *kind.query);
    }
    if (alsoInFiles) results.inFiles = readFiles(session, queries, keywords);
    if (results.total() != 1) return results;
    for (const Kind& kind : results.kinds) {
        if (kind.count == 1) results.single = firstOf(session, kind);
    }
    return results;
}

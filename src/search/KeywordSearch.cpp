// SPDX-License-Identifier: GPL-3.0-or-later

#include "search/KeywordSearch.h"

#include "search/SearchTexts.h"
#include "util/StrTok.h"
#include "views/StandardQueries.h"

namespace {

QString descriptionColumn(RecordKind kind)
{
    switch (kind) {
    case RecordKind::Document:
        return QStringLiteral("DocumentDescription");
    case RecordKind::Event:
        return QStringLiteral("EventDescription");
    case RecordKind::Organization:
        break;
    }
    return QStringLiteral("ResponseActivities");
}

QString caption(RecordKind kind, const QString& text)
{
    switch (kind) {
    case RecordKind::Document:
        return SearchTexts::tr("Document Search for \"%1\"").arg(text);
    case RecordKind::Event:
        return SearchTexts::tr("Event Search for \"%1\"").arg(text);
    case RecordKind::Organization:
        break;
    }
    return SearchTexts::tr("Organization Search for \"%1\"").arg(text);
}

QString allWordsIn(const QString& column, const QStringList& words)
{
    QStringList conditions;
    for (const QString& word : words)
        conditions << column + QStringLiteral(" LIKE '%") + word + QStringLiteral("%'");
    return conditions.join(QStringLiteral(" AND "));
}

} // namespace

Keywords splitWords(const QString& text)
{
    Keywords keywords;
    StrTok tokenizer;
    tokenizer.AddDelimiter(QStringLiteral(" "));
    tokenizer.setDataString(text);
    while (!tokenizer.atEnd()) {
        const QString word = tokenizer.NextToken();
        if (word.isEmpty()) break;
        if (keywords.words.size() == Keywords::most) {
            keywords.moreThanMost = true;
            break;
        }
        keywords.words << word;
    }
    return keywords;
}

SharedQuery keywordQuery(const StandardQueries& queries, RecordKind kind, const QStringList& words)
{
    SQLObject query = *queries.of(kind);
    query.WhereClause += QStringLiteral(" AND ((") + allWordsIn(recordNames(kind).name, words) +
                         QStringLiteral(") OR (") + allWordsIn(descriptionColumn(kind), words) +
                         QStringLiteral("))");
    query.OrderClause.clear();
    return std::make_shared<const SQLObject>(std::move(query));
}

clsView keywordView(const StandardQueries& queries, std::optional<RecordKind> kind, const QString& text,
                    bool alsoInFiles)
{
    clsView view;
    view.Keywords = text;
    view.alsoInFiles = alsoInFiles && kind.value_or(RecordKind::Document) == RecordKind::Document;
    if (kind) {
        view.viewIndex = viewOf(*kind);
        view.SQL = keywordQuery(queries, *kind, splitWords(text).words);
        view.Caption = caption(*kind, text);
    } else {
        view.viewIndex = ViewKind::SearchResults;
        view.Caption = SearchTexts::tr("Search Results for \"%1\"").arg(text);
    }
    return view;
}

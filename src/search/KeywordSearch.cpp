#include "search/KeywordSearch.h"

#include "util/StrTok.h"

namespace {

struct Columns
{
    QString name;
    QString description;
    QString captionPrefix;
};

Columns columnsOf(ViewKind kind)
{
    if (kind == ViewKind::Documents) {
        return {QStringLiteral("DocumentName"), QStringLiteral("DocumentDescription"),
                QStringLiteral("Document Search for \"")};
    }
    if (kind == ViewKind::Events) {
        return {QStringLiteral("EventName"), QStringLiteral("EventDescription"),
                QStringLiteral("Event Search for \"")};
    }
    return {QStringLiteral("OrganizationName"), QStringLiteral("ResponseActivities"),
            QStringLiteral("Organization Search for \"")};
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

SharedQuery keywordQuery(const StandardQueries& queries, ViewKind kind, const QStringList& words)
{
    const SQLObject& standard = standardQuery(queries, kind);
    const Columns columns = columnsOf(kind);
    SQLObject query;
    query.SelectClause = standard.SelectClause;
    query.FromClause = standard.FromClause;
    query.WhereClause = standard.WhereClause + QStringLiteral(" AND ((") + allWordsIn(columns.name, words) +
                        QStringLiteral(") OR (") + allWordsIn(columns.description, words) +
                        QStringLiteral("))");
    return std::make_shared<const SQLObject>(std::move(query));
}

clsView keywordView(const StandardQueries& queries, SearchScope scope, const QString& text)
{
    clsView view;
    view.Keywords = text;
    if (const auto kind = kindOf(scope)) {
        view.viewIndex = *kind;
        view.SQL = keywordQuery(queries, *kind, splitWords(text).words);
        view.Caption = columnsOf(*kind).captionPrefix + text + u'"';
    } else {
        view.viewIndex = ViewKind::SearchResults;
        view.Caption = QStringLiteral("Search Results for \"") + text + u'"';
    }
    return view;
}

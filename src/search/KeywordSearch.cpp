#include "search/KeywordSearch.h"

#include "util/StrTok.h"

#include <QCoreApplication>

namespace {

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(KeywordSearch)
};

struct Columns
{
    QString name;
    QString description;
    QString caption; ///< %1 stands for the keywords
};

Columns columnsOf(ViewKind kind)
{
    if (kind == ViewKind::Documents) {
        return {QStringLiteral("DocumentName"), QStringLiteral("DocumentDescription"),
                Texts::tr("Document Search for \"%1\"")};
    }
    if (kind == ViewKind::Events) {
        return {QStringLiteral("EventName"), QStringLiteral("EventDescription"),
                Texts::tr("Event Search for \"%1\"")};
    }
    return {QStringLiteral("OrganizationName"), QStringLiteral("ResponseActivities"),
            Texts::tr("Organization Search for \"%1\"")};
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
        view.Caption = columnsOf(*kind).caption.arg(text);
    } else {
        view.viewIndex = ViewKind::SearchResults;
        view.Caption = Texts::tr("Search Results for \"%1\"").arg(text);
    }
    return view;
}

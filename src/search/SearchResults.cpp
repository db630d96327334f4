#include "search/SearchResults.h"

#include "data/DatabaseSession.h"
#include "search/KeywordSearch.h"
#include "views/StandardQueries.h"

namespace {

/// Counts the records without reading their rows, which would take several times as long.
qint64 countOf(DatabaseSession& session, const SearchResults::Kind& kind)
{
    const RecordNames names = recordNames(kind.kind);
    RecordSet rows =
        session.read(QStringLiteral("SELECT count(%1.%2) as dCount ").arg(names.record, names.key) +
                     kind.query->FromClause + u' ' + kind.query->WhereClause);
    return rows.next() ? rows.integer(0) : 0;
}

std::optional<SearchResults::Record> firstOf(DatabaseSession& session, const SearchResults::Kind& kind)
{
    const RecordNames names = recordNames(kind.kind);
    RecordSet rows = session.read(kind.query->sqlStr());
    if (!rows.next()) return std::nullopt;
    return SearchResults::Record{kind.kind, rows.integer(rows.column(names.key)),
                                 rows.text(rows.column(names.name))};
}

} // namespace

QString SearchResults::Kind::label() const
{
    return QString::number(count) + u' ' + recordNames(kind).record +
           (count == 1 ? QString() : QStringLiteral("s"));
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
    const QString beginning = QStringLiteral("Your keyword search for \"") + keywords +
                              QStringLiteral("\" found ") + QString::number(count);
    if (count == 0) return beginning + QStringLiteral(" items. Click on the Search icon to try again.");
    if (count == 1) {
        return beginning + QStringLiteral(" item. Click on the result to view this item or click the Search "
                                          "icon to try again.");
    }
    return beginning + QStringLiteral(" items. Click on the results you would like to view or click the "
                                      "Search icon to try again.");
}

clsView SearchResults::listView(const Kind& kind) const
{
    return {viewOf(kind.kind), kind.query, kind.caption, keywords, {}};
}

SearchResults SearchResults::read(DatabaseSession& session, const StandardQueries& queries,
                                  const QString& keywords)
{
    SearchResults results;
    results.keywords = keywords;
    const QStringList words = splitWords(keywords).words;
    for (std::size_t i = 0; i < recordKinds.size(); ++i) {
        Kind& kind = results.kinds[i];
        kind.kind = recordKinds[i];
        kind.query = keywordQuery(queries, kind.kind, words);
        kind.caption =
            recordNames(kind.kind).record + QStringLiteral(" Search Results for \"") + keywords + u'"';
        kind.count = countOf(session, kind);
    }
    if (results.total() != 1) return results;
    for (const Kind& kind : results.kinds) {
        if (kind.count == 1) results.single = firstOf(session, kind);
    }
    return results;
}

#include "chart/DocumentTypeCounts.h"

#include "data/DatabaseSession.h"

std::vector<DocumentTypeCount> countDocumentTypes(DatabaseSession& session, const SQLObject& query)
{
    RecordSet rows = session.read(
        QStringLiteral("SELECT DocumentTypeID, DocumentTypeName, count(Document.DocumentID) as Docs ") +
        query.FromClause + u' ' + query.WhereClause + QStringLiteral(" AND DocumentTypeID > 0") +
        QStringLiteral(" GROUP BY DocumentTypeID, DocumentTypeName"));
    const int name = rows.column(u"DocumentTypeName");
    const int documents = rows.column(u"Docs");
    std::vector<DocumentTypeCount> counts;
    while (rows.next())
        counts.push_back({rows.text(name), rows.integer(documents)});
    return counts;
}

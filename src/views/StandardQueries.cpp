// SPDX-License-Identifier: GPL-3.0-or-later

#include "views/StandardQueries.h"

#include "data/DatabaseSession.h"
#include "views/ViewsTexts.h"

namespace {

SharedQuery documentsQuery()
{
    return std::make_shared<const SQLObject>(SQLObject{
        QStringLiteral(
            "SELECT DISTINCT Document.DocumentID, DocumentName, KeyDocument, FileTypeID, ReleaseForm, "
            "FileTypeName, Document.OrganizationID, OrganizationName, FileLocation, Author, "
            "DocumentDate"),
        QStringLiteral("FROM Q_Document"),
        QStringLiteral("WHERE dStatus <> 'DELETED' AND Document.DocumentID > 1"),
        QStringLiteral("ORDER BY DocumentName")});
}

SharedQuery eventsQuery()
{
    return std::make_shared<const SQLObject>(
        SQLObject{QStringLiteral(
                      "SELECT DISTINCT EventID, EventName, KeyEvent, StartDate, StartTime, EndDate, EndTime"),
                  QStringLiteral("FROM Q_Event"),
                  QStringLiteral("WHERE Event.Status <> 'DELETED' AND Event.EventID > 1"),
                  QStringLiteral("ORDER BY StartDate, StartTime, EndDate, EndTime, EventName")});
}

SharedQuery organizationsQuery()
{
    return std::make_shared<const SQLObject>(SQLObject{
        QStringLiteral("SELECT DISTINCT Organization.OrganizationID, OrganizationName, "
                       "Organization.OrganizationTypeID, OrganizationTypeName, "
                       "Organization.OrganizationSubTypeID, OrganizationSubTypeName, "
                       "Organization.FunctionID, FunctionName, City, State, Lat, Lon"),
        QStringLiteral("FROM Q_Organization"),
        QStringLiteral("WHERE Organization.Status <> 'DELETED' AND Organization.OrganizationID > 1"),
        QStringLiteral("ORDER BY OrganizationName")});
}

QString titleOfAll(RecordKind kind)
{
    switch (kind) {
    case RecordKind::Document:
        return ViewsTexts::tr("View ALL Documents");
    case RecordKind::Event:
        return ViewsTexts::tr("View ALL Events");
    case RecordKind::Organization:
        break;
    }
    return ViewsTexts::tr("View ALL Organizations");
}

} // namespace

StandardQueries::StandardQueries()
    : documents(documentsQuery()), events(eventsQuery()), organizations(organizationsQuery())
{
}

const SharedQuery& StandardQueries::of(RecordKind kind) const
{
    switch (kind) {
    case RecordKind::Document:
        return documents;
    case RecordKind::Event:
        return events;
    case RecordKind::Organization:
        break;
    }
    return organizations;
}

SharedQuery StandardQueries::narrowed(RecordKind kind, const QString& condition) const
{
    SQLObject query = *of(kind);
    query.WhereClause += condition;
    return std::make_shared<const SQLObject>(std::move(query));
}

clsView StandardQueries::all(RecordKind kind) const
{
    return {viewOf(kind), of(kind), titleOfAll(kind)};
}

bool StandardQueries::has(DatabaseSession& session, RecordKind kind, qint64 identifier) const
{
    const RecordNames names = recordNames(kind);
    const QString condition = QStringLiteral(" AND %1.%2 = %3").arg(names.record, names.key).arg(identifier);
    return session.read(narrowed(kind, condition)->sqlStr()).next();
}

qint64 StandardQueries::count(DatabaseSession& session, RecordKind kind, const SQLObject& query)
{
    const RecordNames names = recordNames(kind);
    RecordSet rows =
        session.read(QStringLiteral("SELECT count(%1.%2) as dCount ").arg(names.record, names.key) +
                     query.FromClause + u' ' + query.WhereClause);
    return rows.next() ? rows.integer(0) : 0;
}

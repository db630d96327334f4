#include "data/StandardQueries.h"

namespace {

SharedQuery make(const QString& select, const QString& from, const QString& where, const QString& order)
{
    return std::make_shared<const SQLObject>(SQLObject{select, from, where, order, true});
}

} // namespace

StandardQueries::StandardQueries()
    : documents(make(QStringLiteral("SELECT DISTINCT Document.DocumentID, DocumentName, KeyDocument, FileTypeID, "
                                    "ReleaseForm, FileTypeName, Document.OrganizationID, OrganizationName, "
                                    "FileLocation, Author, DocumentDate"),
                     QStringLiteral("FROM Q_Document"),
                     QStringLiteral("WHERE dStatus <> 'DELETED' AND Document.DocumentID > 1"),
                     QStringLiteral("ORDER BY DocumentName"))),
      events(make(QStringLiteral("SELECT DISTINCT EventID, EventName, KeyEvent, StartDate, StartTime, EndDate, "
                                 "EndTime"),
                  QStringLiteral("FROM Q_Event"),
                  QStringLiteral("WHERE Event.Status <> 'DELETED' AND Event.EventID > 1"),
                  QStringLiteral("ORDER BY StartDate, StartTime, EndDate, EndTime, EventName"))),
      organizations(make(QStringLiteral("SELECT DISTINCT Organization.OrganizationID, OrganizationName, "
                                        "Organization.OrganizationTypeID, OrganizationTypeName, "
                                        "Organization.OrganizationSubTypeID, OrganizationSubTypeName, "
                                        "Organization.FunctionID, FunctionName, City, State, Lat, Lon"),
                         QStringLiteral("FROM Q_Organization"),
                         QStringLiteral("WHERE Organization.Status <> 'DELETED' AND Organization.OrganizationID > 1"),
                         QStringLiteral("ORDER BY OrganizationName")))
{
}

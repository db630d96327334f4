#include "search/ShowOnlyViews.h"

#include "data/DatabaseSession.h"
#include "data/StandardQueries.h"
#include "map/clsCities.h"

#include <cerrno>

namespace {

SharedQuery narrowed(const SQLObject& standard, const QString& condition)
{
    SQLObject query = standard;
    query.WhereClause += condition;
    return std::make_shared<const SQLObject>(query);
}

QString locationName(const QString& city, const QString& state)
{
    return city + QStringLiteral(", ") + state;
}

} // namespace

clsView ShowOnlyViews::documentsOfType(const QString& typeName) const
{
    RecordSet types = m_session.read(
        QStringLiteral("SELECT * FROM DocumentType WHERE DocumentTypeName LIKE '") + typeName + u'\'');
    if (!types.next()) throw Error(ENOENT, QStringLiteral("There is no document type of this name."));
    clsAdvSearch search;
    search.bDocTypes = true;
    search.docTypes.push_back(clsPickListItem::of(types.integer(types.column(u"DocumentTypeID")),
                                                  types.text(types.column(u"DocumentTypeName"))));
    search.buildAdvSQL();
    return checked({ViewKind::Documents, narrowed(*m_queries.documents, search.advDocSQL),
                    QStringLiteral("View Only ") + typeName + QStringLiteral(" Documents")});
}

clsView ShowOnlyViews::organizationsOfState(const clsCities& place) const
{
    RecordSet locations =
        m_session.read(QStringLiteral("SELECT DISTINCT LocationID, City, State FROM Q_Organization "
                                      "WHERE OrganizationID > 1 AND Status <> 'DELETED' AND LocationID > 0 "
                                      "AND City <> '' AND State LIKE '") +
                       place.State + QStringLiteral("' ORDER BY State, City"));
    clsAdvSearch search;
    search.bOrgLocations = true;
    while (locations.next()) {
        search.orgLocations.push_back(
            clsPickListItem::of(locations.integer(0), locationName(locations.text(1), locations.text(2))));
    }
    search.buildAdvSQL();
    if (search.orgLocations.empty())
        search.advOrgSQL = QStringLiteral(" AND State LIKE '") + place.State + u'\'';
    return organizations(search,
                         QStringLiteral("View Only ") + place.State + QStringLiteral(" Organizations"));
}

clsView ShowOnlyViews::organizationsOfCity(const clsCities& place) const
{
    const QString name = locationName(place.city, place.State);
    clsAdvSearch search;
    search.bOrgLocations = true;
    // a place that no known city stands for is narrowed to by its text alone
    search.orgLocations.push_back(clsPickListItem::of(place.LocationID.value_or(0), name));
    search.buildAdvSQL();
    // to the builder an empty state is an empty text, but a missing one is empty too
    if (place.State.isEmpty()) {
        search.advOrgSQL = QStringLiteral(" AND City LIKE '") + place.city +
                           QStringLiteral("' AND (State IS NULL OR State LIKE '')");
    }
    return organizations(search, QStringLiteral("View Only ") + name + QStringLiteral(" Organizations"));
}

clsView ShowOnlyViews::organizations(const clsAdvSearch& search, const QString& caption) const
{
    return checked({ViewKind::Organizations, narrowed(*m_queries.organizations, search.advOrgSQL), caption});
}

/// A view is only shown once its statement can be asked, so that the current one stays where it cannot.
clsView ShowOnlyViews::checked(clsView view) const
{
    (void)m_session.read(view.SQL->sqlStr());
    return view;
}

// SPDX-License-Identifier: GPL-3.0-or-later

#include "views/ShowOnlyViews.h"

#include "data/DatabaseSession.h"
#include "records/RecordFields.h"
#include "views/NarrowedQuery.h"
#include "views/StandardQueries.h"
#include "views/ViewsTexts.h"
#include "views/clsCities.h"

#include <QStringList>

#include <cerrno>
#include <utility>

namespace {

QString locationName(const QString& city, const QString& state)
{
    return city + QStringLiteral(", ") + state;
}

QString partCondition(const QString& column, const QString& text)
{
    const QString match = column + QStringLiteral(" LIKE '") + text + u'\'';
    return text.isEmpty() ? u'(' + column + QStringLiteral(" IS NULL OR ") + match + u')' : match;
}

/// The organizations of several cities, each with its state.
class Locations
{
public:
    /// `known` is the identifier of the known city that stands for the place, or 0. Throws Error 6 if it does
    /// not fit into 16 bits.
    void add(qint64 known, const QString& city, const QString& state)
    {
        const QString name = locationName(city, state);
        const bool isEmpty = city.isEmpty() || state.isEmpty();
        if (isEmpty || clsAdvSearch::cityAndState(name) != std::pair(city, state)) {
            // the name of a location cannot hold it: a part is missing, or has a comma or an outer blank
            m_others << QStringLiteral("(%1 AND %2)")
                            .arg(partCondition(QStringLiteral("City"), city),
                                 partCondition(QStringLiteral("State"), state));
        } else {
            m_search.orgLocations.push_back(clsPickListItem::of(known, name));
        }
    }

    /// Returns the condition that follows the standard where clause; empty without a location.
    [[nodiscard]] QString condition()
    {
        m_search.bOrgLocations = true;
        m_search.buildAdvSQL();
        if (m_others.isEmpty()) return m_search.advOrgSQL;
        const QString joint = QStringLiteral(" AND ");
        if (!m_search.advOrgSQL.isEmpty()) m_others.prepend(m_search.advOrgSQL.mid(joint.size()));
        return joint + u'(' + m_others.join(QStringLiteral(" OR ")) + u')';
    }

private:
    clsAdvSearch m_search;
    QStringList m_others;
};

} // namespace

clsView ShowOnlyViews::documentsOfType(const QString& typeName) const
{
    RecordSet types = m_session.read(
        QStringLiteral("SELECT * FROM DocumentType WHERE DocumentTypeName LIKE '") + typeName + u'\'');
    if (!types.next()) throw Error(ENOENT, ViewsTexts::tr("There is no document type of this name."));
    clsAdvSearch search;
    search.bDocTypes = true;
    search.docTypes.push_back(clsPickListItem::of(types.integer(types.column(u"DocumentTypeID")),
                                                  types.text(types.column(u"DocumentTypeName"))));
    search.buildAdvSQL();
    return checked({ViewKind::Documents, m_queries.narrowed(RecordKind::Document, search.advDocSQL),
                    ViewsTexts::tr("View Only %1 Documents").arg(typeName)});
}

clsView ShowOnlyViews::organizationsOfState(const clsCities& place) const
{
    RecordSet known =
        m_session.read(QStringLiteral("SELECT DISTINCT LocationID, City, State FROM Q_Organization "
                                      "WHERE OrganizationID > 1 AND Status <> 'DELETED' AND LocationID > 0 "
                                      "AND City <> '' AND State LIKE '") +
                       place.State + QStringLiteral("' ORDER BY State, City"));
    Locations locations;
    while (known.next())
        locations.add(known.integer(0), known.text(1), known.text(2));
    // the map also draws organizations that have a position of their own, but no known city
    RecordSet others = m_session.read(
        QStringLiteral(
            "SELECT DISTINCT City, State FROM Q_Organization WHERE OrganizationID > 1 "
            "AND Status <> 'DELETED' AND (LocationID IS NULL OR LocationID <= 0) AND State LIKE '") +
        place.State + QStringLiteral("' ORDER BY State, City"));
    while (others.next())
        locations.add(0, others.text(0), others.text(1));
    QString condition = locations.condition();
    if (condition.isEmpty()) condition = QStringLiteral(" AND State LIKE '") + place.State + u'\'';
    return organizations(condition, ViewsTexts::tr("View Only %1 Organizations").arg(place.State));
}

clsView ShowOnlyViews::organizationsOfCity(const clsCities& place) const
{
    Locations locations;
    locations.add(place.LocationID.value_or(0), place.city, place.State);
    return organizations(
        locations.condition(),
        ViewsTexts::tr("View Only %1 Organizations").arg(locationName(place.city, place.State)));
}

clsView ShowOnlyViews::organizationsAt(const std::vector<qint64>& identifiers, const QString& places) const
{
    return organizations(
        keysAmong(RecordKind::Organization, identifiers),
        ViewsTexts::tr("View Only %n Organizations of %1", nullptr, static_cast<int>(identifiers.size()))
            .arg(places));
}

clsView ShowOnlyViews::organizationsWithoutPlace(const SharedQuery& query) const
{
    return checked(
        {ViewKind::Organizations, query, ViewsTexts::tr("View Only Organizations Without a Place")});
}

std::optional<clsView> ShowOnlyViews::record(RecordKind kind, qint64 identifier) const
{
    const RecordNames names = recordNames(kind);
    const QString condition = QStringLiteral(" AND %1.%2 = %3").arg(names.record, names.key).arg(identifier);
    clsView view{viewOf(kind), m_queries.narrowed(kind, condition), {}};
    RecordSet rows = m_session.read(view.SQL->sqlStr());
    if (!rows.next()) return std::nullopt;
    const QString name = rows.text(rows.column(names.name));
    view.Caption =
        ViewsTexts::tr("View Only %1").arg(name.isEmpty() ? FieldTexts::withoutName(identifier) : name);
    return view;
}

clsView ShowOnlyViews::organizations(const QString& condition, const QString& caption) const
{
    return checked(
        {ViewKind::Organizations, m_queries.narrowed(RecordKind::Organization, condition), caption});
}

/// Reads the view's records once before it is shown: if that fails, the current view stays.
clsView ShowOnlyViews::checked(clsView view) const
{
    (void)m_session.read(view.SQL->sqlStr());
    return view;
}

#include "data/DatabaseSession.h"
#include "map/OrganizationPlaces.h"
#include "views/ShowOnlyViews.h"
#include "views/StandardQueries.h"

#include <QFile>
#include <QSet>
#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

/// The identifiers of the organizations that a view shows.
QSet<qint64> shownBy(DatabaseSession& session, const clsView& view)
{
    QSet<qint64> identifiers;
    RecordSet rows = session.read(view.SQL->sqlStr());
    while (rows.next())
        identifiers.insert(rows.integer(0));
    return identifiers;
}

TEST(SampleViews, EveryPlaceOfTheMapIsInTheViewsThatItLeadsTo)
{
    const QTemporaryDir folder;
    const QString file = folder.filePath(u"sample.sqlite"_s);
    ASSERT_TRUE(QFile::copy(QStringLiteral(ORVIK_SAMPLE_DIR "/data/orvik-sample.sqlite"), file));
    DatabaseSession session;
    session.open(file);
    const StandardQueries queries;
    const ShowOnlyViews views(session, queries);
    OrganizationPlaces places(session);
    places.read(queries.organizations);
    ASSERT_GT(places.entries().size(), 100u);
    for (std::size_t entry = 0; entry < places.entries().size(); ++entry) {
        const clsCities& place = places.entries()[entry];
        ASSERT_TRUE(place.hasState() && !place.city.isEmpty()) << place.placeText().toStdString();
        for (const clsView& view : {views.organizationsOfCity(place), views.organizationsOfState(place)}) {
            const QSet<qint64> shown = shownBy(session, view);
            for (const PlacedOrganization& organization : places.organizationsAt(entry, false)) {
                EXPECT_TRUE(shown.contains(organization.identifier))
                    << organization.name.toStdString() << " in " << view.Caption.toStdString();
            }
        }
    }
}

} // namespace

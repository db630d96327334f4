// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "Journey.h"
#include "map/MapView.h"

/// Organizations of two functions in Austin, of one in Dallas and in Reno, and one without a place.
class MapJourney : public testing::Test
{
protected:
    MapJourney() { journey.database.runFile("journeys/rows/MapJourney.sql"); }

    void show()
    {
        journey.start();
        journey.trigger("mnuViewOrganizations");
        QApplication::processEvents();
    }

    MapView& map() { return journey.find<MapView>("Map1"); }

    /// The number of the entry of that name, as assistive tools name it; of a disc, that of its lead.
    std::size_t entry(const char* name)
    {
        for (int item = 0; item < map().accessibleItemCount(); ++item) {
            if (map().accessibleItemName(item) == QString::fromUtf8(name))
                return map().markers().leads()[static_cast<std::size_t>(item)];
        }
        throw std::runtime_error(std::string("no such place: ") + name);
    }

    void click(Qt::MouseButton button, const char* place)
    {
        QTest::mouseClick(&map(), button, {}, map().positionOf(entry(place)).toPoint());
    }

    std::string menuTexts()
    {
        QStringList texts;
        for (const QAction* action : journey.find<QMenu>("popOrgTab").actions()) {
            if (action->isVisible()) texts << action->text();
        }
        return texts.join(u'|').toStdString();
    }

    Journey journey;
};

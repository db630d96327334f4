// SPDX-License-Identifier: GPL-3.0-or-later

#include "map/PlacesMenu.h"

#include <algorithm>

namespace {

/// A menu takes a single ampersand as the mark of a mnemonic.
QString menuText(QString text)
{
    return text.replace(u'&', QStringLiteral("&&"));
}

bool areInOneState(const clsCities& a, const clsCities& b)
{
    return a.State.compare(b.State, Qt::CaseInsensitive) == 0;
}

bool areInOneCity(const clsCities& a, const clsCities& b)
{
    return areInOneState(a, b) && a.city.compare(b.city, Qt::CaseInsensitive) == 0 &&
           a.LocationID == b.LocationID;
}

} // namespace

PlacesMenu::PlacesMenu(QWidget* parent)
    : QMenu(parent),
      m_city(addAction(QString(), this, [this] { Q_EMIT cityChosen(m_place); })),
      m_state(addAction(QString(), this, [this] { Q_EMIT stateChosen(m_place); })),
      m_all(addAction(QString(), this, &PlacesMenu::allChosen))
{
    setObjectName(QStringLiteral("popOrgTab"));
    m_city->setObjectName(QStringLiteral("popOrgTabShowOnlyCity"));
    m_state->setObjectName(QStringLiteral("popOrgTabShowOnlyState"));
    m_all->setObjectName(QStringLiteral("popOrgTabShowOnlyThese"));
}

void PlacesMenu::offer(const std::vector<clsCities>& places, const QPoint& position)
{
    m_place = places.front();
    const QString& state = m_place.State;
    const auto all = [&](bool (*areTogether)(const clsCities&, const clsCities&)) {
        return std::ranges::all_of(places,
                                   [&](const clsCities& place) { return areTogether(m_place, place); });
    };
    m_city->setText(menuText(tr("Show Only %1, %2 Organizations").arg(m_place.city, state)));
    m_city->setVisible(all(areInOneCity));
    // a place without a city cannot be narrowed to
    m_city->setEnabled(!m_place.city.isEmpty());
    m_state->setText(menuText(tr("Show Only %1 Organizations").arg(state)));
    m_state->setVisible(m_place.hasState() && all(areInOneState));
    int organizations = 0;
    for (const clsCities& place : places)
        organizations += place.organizations;
    m_all->setText(tr("Show Only These %n Organizations", nullptr, organizations));
    m_all->setVisible(places.size() > 1);
    popup(position);
}

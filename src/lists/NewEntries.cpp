// SPDX-License-Identifier: GPL-3.0-or-later

#include "lists/NewEntries.h"

#include "lists/KnownPlaces.h"
#include "lists/ListReader.h"
#include "lists/frmListEntry.h"

std::optional<LookupEntry> NewEntries::add(ListKind list, const LookupEntry& preset, QWidget* window) const
{
    return frmListEntry(m_platform, m_session, m_positions, list, window).addEntry(preset);
}

bool NewEntries::isKnownCity(const QString& city, const QString& state) const
{
    const auto cities = KnownPlaces::cityKeys(ListReader::entries(m_session, ListKind::Cities));
    return cities.contains(KnownPlaces::compared(city, state));
}

// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "data/ListEntry.h"
#include "records/StoredState.h"

#include <QString>

#include <optional>
#include <vector>

/// What is known of an organization besides its address. Numbers are texts, as typed.
struct OrganizationProfile
{
    QString missionStatement;
    QString swornEmployees;
    QString civilianEmployees;
    QString volunteers;
    QString annualBudget;
    QString resources;
    QString training;
    QString other;
    QString organizationChart; ///< the path of the chart's file, in the form that the user gave it
    bool chartOption = false;  ///< whether there is a chart; kept by the store alone
};

/// An organization as its editor holds it.
struct OrganizationRecord
{
    qint64 id = -1; ///< below 0 until it is saved

    QString organizationName;
    QString address1;
    QString address2;
    QString address3;
    QString city;
    QString state; ///< the abbreviation; `None` or empty if there is none
    QString zip;
    QString fax;
    QString telephone;
    QString website;
    QString responseActivities;
    QString notes;
    qint64 functionId = noneKey;
    qint64 organizationTypeId = noneKey;
    qint64 organizationSubTypeId = noneKey;

    std::vector<CheckEntry> venues; ///< all venues; only those checked are linked

    /// All types, each stored with whether it is checked.
    std::vector<CheckEntry> jurisdictions;
    std::vector<CheckEntry> populations;

    OrganizationProfile profile;

    std::optional<StoredState> stored; ///< what was read; missing for a new record; kept by the store alone
};

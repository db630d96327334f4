// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "records/OrganizationRecord.h"
#include "records/RecordColumns.h"

/// The columns of `Organization` that an editor shows.
inline constexpr RecordColumn<OrganizationRecord> organizationColumns[]{
    {u"OrganizationName", &OrganizationRecord::organizationName, History::Copied,
     QT_TRANSLATE_NOOP("Records", "Name")},
    {u"Address1", &OrganizationRecord::address1, History::Copied, QT_TRANSLATE_NOOP("Records", "Address")},
    {u"Address2", &OrganizationRecord::address2, History::Copied,
     QT_TRANSLATE_NOOP("Records", "Address line 2")},
    {u"Address3", &OrganizationRecord::address3, History::Copied,
     QT_TRANSLATE_NOOP("Records", "Address line 3")},
    {u"city", &OrganizationRecord::city, History::Copied, QT_TRANSLATE_NOOP("Records", "City")},
    {u"State", &OrganizationRecord::state, History::Copied, QT_TRANSLATE_NOOP("Records", "State"),
     &RecordValues::stateOrNone},
    {u"Zip", &OrganizationRecord::zip, History::Copied, QT_TRANSLATE_NOOP("Records", "Zip")},
    {u"Fax", &OrganizationRecord::fax, History::Copied, QT_TRANSLATE_NOOP("Records", "Fax")},
    {u"Telephone", &OrganizationRecord::telephone, History::Copied,
     QT_TRANSLATE_NOOP("Records", "Telephone")},
    {u"Website", &OrganizationRecord::website, History::Copied, QT_TRANSLATE_NOOP("Records", "Web site")},
    {u"ResponseActivities", &OrganizationRecord::responseActivities, History::Copied,
     QT_TRANSLATE_NOOP("Records", "Response activities")},
    {u"Notes", &OrganizationRecord::notes, History::Copied, QT_TRANSLATE_NOOP("Records", "Notes")},
    {u"functionId", &OrganizationRecord::functionId, History::Copied,
     QT_TRANSLATE_NOOP("Records", "Function")},
    {u"OrganizationTypeID", &OrganizationRecord::organizationTypeId, History::Copied,
     QT_TRANSLATE_NOOP("Records", "Type")},
    {u"OrganizationSubTypeID", &OrganizationRecord::organizationSubTypeId, History::Copied,
     QT_TRANSLATE_NOOP("Records", "Sub-type")},
};

/// The columns of `OrganizationProfile`, which has no history.
inline constexpr RecordColumn<OrganizationProfile> profileColumns[]{
    {u"MissionStatement", &OrganizationProfile::missionStatement, History::NotCopied,
     QT_TRANSLATE_NOOP("Records", "Mission statement")},
    {u"SwornEmployees", &OrganizationProfile::swornEmployees, History::NotCopied,
     QT_TRANSLATE_NOOP("Records", "Sworn employees"), &RecordValues::countOrText},
    {u"CivilianEmployees", &OrganizationProfile::civilianEmployees, History::NotCopied,
     QT_TRANSLATE_NOOP("Records", "Civilian employees"), &RecordValues::countOrText},
    {u"Volunteers", &OrganizationProfile::volunteers, History::NotCopied,
     QT_TRANSLATE_NOOP("Records", "Volunteers"), &RecordValues::countOrText},
    {u"AnnualBudget", &OrganizationProfile::annualBudget, History::NotCopied,
     QT_TRANSLATE_NOOP("Records", "Annual budget"), &RecordValues::amountOrText},
    {u"Resources", &OrganizationProfile::resources, History::NotCopied,
     QT_TRANSLATE_NOOP("Records", "Resources")},
    {u"Training", &OrganizationProfile::training, History::NotCopied,
     QT_TRANSLATE_NOOP("Records", "Training")},
    {u"Other", &OrganizationProfile::other, History::NotCopied, QT_TRANSLATE_NOOP("Records", "Other")},
    {u"OrganizationChart", &OrganizationProfile::organizationChart, History::NotCopied,
     QT_TRANSLATE_NOOP("Records", "Organization chart")},
    {u"ChartOption", &OrganizationProfile::chartOption, History::NotCopied,
     QT_TRANSLATE_NOOP("Records", "Organization chart")},
};

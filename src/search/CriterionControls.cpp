// SPDX-License-Identifier: GPL-3.0-or-later

#include "search/CriterionControls.h"

#include "search/SearchTexts.h"

namespace {

using Controls = CriterionControls;
using Records = PickListKind;

Controls::Lookup venues()
{
    return {QStringLiteral("Venue"), QStringLiteral("VenueID"), QStringLiteral("VenueName")};
}

Controls::Lookup fileTypes()
{
    return {QStringLiteral("FileTypes"), QStringLiteral("FileTypeID"), QStringLiteral("FileTypeName")};
}

Controls::Lookup organizationTypes()
{
    return {QStringLiteral("OrganizationTypes"), QStringLiteral("OrganizationTypeID"),
            QStringLiteral("OrganizationTypeName")};
}

QString clearList()
{
    return SearchTexts::tr("Clear List (Search ALL)");
}

std::vector<Controls> documentControls()
{
    return {
        {QStringLiteral("DocVenues"),
         SearchTexts::tr("I want to restrict my search to documents pertaining to specific venues"),
         venues(),
         {}},
        {QStringLiteral("DocTypes"),
         SearchTexts::tr("I want to restrict my search to documents of specific document types"),
         {},
         Controls::Picked{Records::DocumentTypes, QStringLiteral("cmdAddDocType"),
                          SearchTexts::tr("Add Document Type(s) to List"), QStringLiteral("cmdClearDocTypes"),
                          SearchTexts::tr("Clear Selections (Search ALL)")}},
        {QStringLiteral("DocOrgs"),
         SearchTexts::tr("I want to restrict my search to documents from specific organizations"),
         {},
         Controls::Picked{Records::Organizations, QStringLiteral("cmdAddDocOrg"),
                          SearchTexts::tr("Add Organization(s) to List"), QStringLiteral("cmdClearDocOrgs"),
                          clearList()}},
        {QStringLiteral("FileTypes"),
         SearchTexts::tr("I want to restrict my search to documents of specific file types"),
         fileTypes(),
         {}},
    };
}

std::vector<Controls> eventControls()
{
    return {
        {QStringLiteral("EventDate"),
         SearchTexts::tr("I want to restrict my search to events between specific dates"),
         {},
         {}},
        {QStringLiteral("EventVenues"),
         SearchTexts::tr("I want to restrict my search to events in specific venues"),
         venues(),
         {}},
        {QStringLiteral("EventFunctions"),
         SearchTexts::tr("I want to restrict my search to events pertaining to specific functions"),
         {},
         Controls::Picked{Records::Functions, QStringLiteral("cmdAddEventFunction"),
                          SearchTexts::tr("Add Function(s) to List"),
                          QStringLiteral("cmdClearEventFunctions"), clearList()}},
        {QStringLiteral("EventOrgs"),
         SearchTexts::tr("I want to restrict my search to events involving specific organizations"),
         {},
         Controls::Picked{Records::Organizations, QStringLiteral("cmdAddEventOrg"),
                          SearchTexts::tr("Add Organization(s) to List"), QStringLiteral("cmdClearEventOrgs"),
                          clearList()}},
    };
}

std::vector<Controls> organizationControls()
{
    return {
        {QStringLiteral("OrgVenues"),
         SearchTexts::tr("I want to restrict my search to organizations associated with specific venues"),
         venues(),
         {}},
        {QStringLiteral("OrgTypes"),
         SearchTexts::tr("I want to restrict my search to organizations of specific organization types"),
         organizationTypes(),
         {}},
        {QStringLiteral("OrgFunctions"),
         SearchTexts::tr("I want to restrict my search to organizations performing specific functions"),
         {},
         Controls::Picked{Records::Functions, QStringLiteral("cmdAddOrgFunction"),
                          SearchTexts::tr("Add Function to List"), QStringLiteral("cmdClearOrgFunctions"),
                          clearList()}},
        {QStringLiteral("OrgLocations"),
         SearchTexts::tr("I want to restrict my search to organizations from specific locations"),
         {},
         Controls::Picked{Records::CityLocations, QStringLiteral("cmdAddOrgLocation"),
                          SearchTexts::tr("Add Location(s) to List"), QStringLiteral("cmdClearOrgLocations"),
                          clearList()}},
    };
}

} // namespace

std::vector<CriterionControls> criterionControls(RecordKind kind)
{
    return kind == RecordKind::Document ? documentControls()
           : kind == RecordKind::Event  ? eventControls()
                                        : organizationControls();
}

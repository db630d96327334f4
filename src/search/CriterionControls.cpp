#include "search/CriterionControls.h"

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
    return QStringLiteral("Clear List (Search ALL)");
}

std::vector<Controls> documentControls()
{
    return {
        {QStringLiteral("DocVenues"),
         QStringLiteral("I want to restrict my search to documents pertaining to specific venues"),
         venues(),
         {}},
        {QStringLiteral("DocTypes"),
         QStringLiteral("I want to restrict my search to documents of specific document types"),
         {},
         Controls::Picked{Records::DocumentTypes, QStringLiteral("cmdAddDocType"),
                          QStringLiteral("Add Document Type(s) to List"), QStringLiteral("cmdClearDocTypes"),
                          QStringLiteral("Clear Selections (Search ALL)")}},
        {QStringLiteral("DocOrgs"),
         QStringLiteral("I want to restrict my search to documents from specific organizations"),
         {},
         Controls::Picked{Records::Organizations, QStringLiteral("cmdAddDocOrg"),
                          QStringLiteral("Add Organization(s) to List"), QStringLiteral("cmdClearDocOrgs"),
                          clearList()}},
        {QStringLiteral("FileTypes"),
         QStringLiteral("I want to restrict my search to documents of specific file types"),
         fileTypes(),
         {}},
    };
}

std::vector<Controls> eventControls()
{
    return {
        {QStringLiteral("EventDate"),
         QStringLiteral("I want to restrict my search to events between specific dates"),
         {},
         {}},
        {QStringLiteral("EventVenues"),
         QStringLiteral("I want to restrict my search to events in specific venues"),
         venues(),
         {}},
        {QStringLiteral("EventFunctions"),
         QStringLiteral("I want to restrict my search to events pertaining to specific functions"),
         {},
         Controls::Picked{Records::Functions, QStringLiteral("cmdAddEventFunction"),
                          QStringLiteral("Add Function(s) to List"), QStringLiteral("cmdClearEventFunctions"),
                          clearList()}},
        {QStringLiteral("EventOrgs"),
         QStringLiteral("I want to restrict my search to events involving specific organizations"),
         {},
         Controls::Picked{Records::Organizations, QStringLiteral("cmdAddEventOrg"),
                          QStringLiteral("Add Organization(s) to List"), QStringLiteral("cmdClearEventOrgs"),
                          clearList()}},
    };
}

std::vector<Controls> organizationControls()
{
    return {
        {QStringLiteral("OrgVenues"),
         QStringLiteral("I want to restrict my search to organizations associated with specific venues"),
         venues(),
         {}},
        {QStringLiteral("OrgTypes"),
         QStringLiteral("I want to restrict my search to organizations of specific organization types"),
         organizationTypes(),
         {}},
        {QStringLiteral("OrgFunctions"),
         QStringLiteral("I want to restrict my search to organizations performing specific functions"),
         {},
         Controls::Picked{Records::Functions, QStringLiteral("cmdAddOrgFunction"),
                          QStringLiteral("Add Function to List"), QStringLiteral("cmdClearOrgFunctions"),
                          clearList()}},
        {QStringLiteral("OrgLocations"),
         QStringLiteral("I want to restrict my search to organizations from specific locations"),
         {},
         Controls::Picked{Records::CityLocations, QStringLiteral("cmdAddOrgLocation"),
                          QStringLiteral("Add Location(s) to List"), QStringLiteral("cmdClearOrgLocations"),
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

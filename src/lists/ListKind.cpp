// SPDX-License-Identifier: GPL-3.0-or-later

#include "lists/ListKind.h"

#include "lists/ListsTexts.h"

using namespace Qt::StringLiterals;

namespace {

ListReference documentColumn(const QString& column, const char* caption)
{
    return {RecordKind::Document, u"Document"_s, column, u"DocumentID"_s, caption};
}

ListReference organizationColumn(const QString& column, const char* caption)
{
    return {RecordKind::Organization, u"Organization"_s, column, u"OrganizationID"_s, caption};
}

ListReference profileLink(const QString& table, const QString& column, const char* caption)
{
    return {RecordKind::Organization, table, column, u"OrganizationProfileID"_s, caption, true};
}

ListReference link(RecordKind kind, const QString& table, const QString& column, const char* caption)
{
    return {kind, table, column, recordNames(kind).key, caption};
}

std::vector<ListTable> documentLists()
{
    return {
        {QT_TRANSLATE_NOOP("Lists", "Document Types"),
         QT_TRANSLATE_NOOP("Lists", "Document Type"),
         u"DocumentType"_s,
         u"DocumentTypeID"_s,
         u"DocumentTypeName"_s,
         {link(RecordKind::Document, u"DocumentTypes"_s, u"DocumentTypeID"_s,
               QT_TRANSLATE_NOOP("Lists", "View Only Documents for Document Type \"%1\""))}},
        {QT_TRANSLATE_NOOP("Lists", "Document Categories"),
         QT_TRANSLATE_NOOP("Lists", "Document Category"),
         u"DocumentCategory"_s,
         u"DocumentCategoryID"_s,
         u"DocumentCategoryName"_s,
         {link(RecordKind::Document, u"DocumentCategories"_s, u"DocumentCategoryID"_s,
               QT_TRANSLATE_NOOP("Lists", "View Only Documents for Category \"%1\""))}},
        {QT_TRANSLATE_NOOP("Lists", "File Types"),
         QT_TRANSLATE_NOOP("Lists", "File Type"),
         u"FileTypes"_s,
         u"FileTypeID"_s,
         u"FileTypeName"_s,
         {documentColumn(u"FileTypeID"_s,
                         QT_TRANSLATE_NOOP("Lists", "View Only Documents for File Type \"%1\""))}},
    };
}

std::vector<ListTable> sharedLists()
{
    return {
        {QT_TRANSLATE_NOOP("Lists", "Functions"),
         QT_TRANSLATE_NOOP("Lists", "Function"),
         u"Function"_s,
         u"FunctionID"_s,
         u"FunctionName"_s,
         {link(RecordKind::Event, u"EventFunctions"_s, u"FunctionID"_s,
               QT_TRANSLATE_NOOP("Lists", "View Only Events for Function \"%1\"")),
          organizationColumn(u"FunctionID"_s,
                             QT_TRANSLATE_NOOP("Lists", "View Only Organizations for Function \"%1\""))}},
        {QT_TRANSLATE_NOOP("Lists", "Venues"),
         QT_TRANSLATE_NOOP("Lists", "Venue"),
         u"Venue"_s,
         u"VenueID"_s,
         u"VenueName"_s,
         {link(RecordKind::Document, u"DocumentVenues"_s, u"VenueID"_s,
               QT_TRANSLATE_NOOP("Lists", "View Only Documents for Venue \"%1\"")),
          link(RecordKind::Event, u"EventVenues"_s, u"VenueID"_s,
               QT_TRANSLATE_NOOP("Lists", "View Only Events for Venue \"%1\"")),
          link(RecordKind::Organization, u"OrganizationVenues"_s, u"VenueID"_s,
               QT_TRANSLATE_NOOP("Lists", "View Only Organizations for Venue \"%1\""))},
         true},
    };
}

std::vector<ListTable> organizationLists()
{
    return {
        {QT_TRANSLATE_NOOP("Lists", "Organization Types"),
         QT_TRANSLATE_NOOP("Lists", "Organization Type"),
         u"OrganizationTypes"_s,
         u"OrganizationTypeID"_s,
         u"OrganizationTypeName"_s,
         {organizationColumn(u"OrganizationTypeID"_s,
                             QT_TRANSLATE_NOOP("Lists", "View Only Organizations for Type \"%1\""))}},
        {QT_TRANSLATE_NOOP("Lists", "Organization Sub-Types"),
         QT_TRANSLATE_NOOP("Lists", "Organization Sub-Type"),
         u"OrganizationSubTypes"_s,
         u"OrganizationSubTypeID"_s,
         u"OrganizationSubTypeName"_s,
         {organizationColumn(u"OrganizationSubTypeID"_s,
                             QT_TRANSLATE_NOOP("Lists", "View Only Organizations for Sub-Type \"%1\""))}},
        {QT_TRANSLATE_NOOP("Lists", "Jurisdictions"),
         QT_TRANSLATE_NOOP("Lists", "Jurisdiction"),
         u"JurisdictionTypes"_s,
         u"JurisdictionID"_s,
         u"Name"_s,
         {profileLink(u"OrganizationProfileJurisdictions"_s, u"JurisdictionID"_s,
                      QT_TRANSLATE_NOOP("Lists", "View Only Organizations for Jurisdiction \"%1\""))},
         true},
        {QT_TRANSLATE_NOOP("Lists", "Populations"),
         QT_TRANSLATE_NOOP("Lists", "Population"),
         u"PopulationTypes"_s,
         u"PopulationID"_s,
         u"Name"_s,
         {profileLink(u"OrganizationProfilePopulations"_s, u"PopulationID"_s,
                      QT_TRANSLATE_NOOP("Lists", "View Only Organizations for Population \"%1\""))},
         true},
        {QT_TRANSLATE_NOOP("Lists", "States"),
         QT_TRANSLATE_NOOP("Lists", "State"),
         u"States"_s,
         u"StateID"_s,
         u"StateAbbreviation"_s,
         {organizationColumn(u"State"_s,
                             QT_TRANSLATE_NOOP("Lists", "View Only Organizations for State \"%1\""))}},
        {QT_TRANSLATE_NOOP("Lists", "Cities"),
         QT_TRANSLATE_NOOP("Lists", "City"),
         u"CityLocations"_s,
         u"LocationID"_s,
         u"City"_s,
         {organizationColumn(u"City"_s,
                             QT_TRANSLATE_NOOP("Lists", "View Only Organizations for City \"%1\""))},
         true},
    };
}

/// In the order of the kinds.
std::vector<ListTable> allLists()
{
    std::vector<ListTable> all;
    for (const auto& lists : {documentLists(), sharedLists(), organizationLists()})
        all.insert(all.end(), lists.begin(), lists.end());
    return all;
}

} // namespace

const ListTable& listTable(ListKind list)
{
    static const std::vector<ListTable> all = allLists();
    return all.at(static_cast<std::size_t>(list));
}

QString listTitle(ListKind list)
{
    return ListsTexts::tr(listTable(list).title);
}

QString listEntryWord(ListKind list)
{
    return ListsTexts::tr(listTable(list).entryWord);
}

QStringList listHeaders(ListKind list)
{
    switch (list) {
    case ListKind::OrganizationSubTypes:
        return {ListsTexts::tr("Sub-Type"), ListsTexts::tr("Type")};
    case ListKind::States:
        return {ListsTexts::tr("Abbreviation"), ListsTexts::tr("State")};
    case ListKind::Cities:
        return {ListsTexts::tr("City"), ListsTexts::tr("State"), ListsTexts::tr("Position")};
    default:
        return {listEntryWord(list)};
    }
}

// SPDX-License-Identifier: GPL-3.0-or-later

#include "journal/RecordParts.h"

using namespace Qt::StringLiterals;

namespace {

NamedKey keyOf(const QString& table, const QString& keyColumn, const QString& nameColumn)
{
    return {keyColumn, table, keyColumn, nameColumn};
}

RecordParts documentParts()
{
    const RecordNames names = recordNames(RecordKind::Document);
    return {names,
            u"dStatus"_s,
            {keyOf(u"FileTypes"_s, u"FileTypeID"_s, u"FileTypeName"_s),
             keyOf(u"Organization"_s, u"OrganizationID"_s, u"OrganizationName"_s)},
            {{u"DocumentTypes"_s, names.key,
              keyOf(u"DocumentType"_s, u"DocumentTypeID"_s, u"DocumentTypeName"_s)},
             {u"DocumentCategories"_s, names.key,
              keyOf(u"DocumentCategory"_s, u"DocumentCategoryID"_s, u"DocumentCategoryName"_s)},
             {u"DocumentVenues"_s, names.key, keyOf(u"Venue"_s, u"VenueID"_s, u"VenueName"_s)}}};
}

RecordParts eventParts()
{
    const RecordNames names = recordNames(RecordKind::Event);
    return {names,
            u"Status"_s,
            {},
            {{u"EventVenues"_s, names.key, keyOf(u"Venue"_s, u"VenueID"_s, u"VenueName"_s)},
             {u"EventFunctions"_s, names.key, keyOf(u"Function"_s, u"FunctionID"_s, u"FunctionName"_s)},
             {u"DocumentEvents"_s, names.key, keyOf(u"Document"_s, u"DocumentID"_s, u"DocumentName"_s)},
             {u"OrganizationEvents"_s, names.key,
              keyOf(u"Organization"_s, u"OrganizationID"_s, u"OrganizationName"_s)}}};
}

RecordParts organizationParts()
{
    const RecordNames names = recordNames(RecordKind::Organization);
    const QString profileKey = u"OrganizationProfileID"_s;
    return {names,
            u"Status"_s,
            {keyOf(u"OrganizationTypes"_s, u"OrganizationTypeID"_s, u"OrganizationTypeName"_s),
             keyOf(u"OrganizationSubTypes"_s, u"OrganizationSubTypeID"_s, u"OrganizationSubTypeName"_s),
             keyOf(u"Function"_s, u"FunctionID"_s, u"FunctionName"_s)},
            {{u"OrganizationProfile"_s, profileKey, std::nullopt},
             {u"OrganizationProfileJurisdictions"_s, profileKey,
              keyOf(u"JurisdictionTypes"_s, u"JurisdictionID"_s, u"Name"_s)},
             {u"OrganizationProfilePopulations"_s, profileKey,
              keyOf(u"PopulationTypes"_s, u"PopulationID"_s, u"Name"_s)},
             {u"OrganizationVenues"_s, names.key, keyOf(u"Venue"_s, u"VenueID"_s, u"VenueName"_s)}}};
}

} // namespace

const RecordParts& recordParts(RecordKind kind)
{
    static const RecordParts documents = documentParts();
    static const RecordParts events = eventParts();
    static const RecordParts organizations = organizationParts();
    if (kind == RecordKind::Document) return documents;
    return kind == RecordKind::Event ? events : organizations;
}

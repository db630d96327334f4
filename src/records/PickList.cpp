// SPDX-License-Identifier: GPL-3.0-or-later

#include "records/PickList.h"

#include "data/DatabaseSession.h"
#include "records/RecordsTexts.h"

#include <array>

namespace {

struct KindOfList
{
    const char* none; ///< the message about an empty list
    const char* header;
    const char* secondHeader;
    const char* statement;
};

constexpr std::array<KindOfList, 6> kinds{
    {{QT_TRANSLATE_NOOP("Records", "No ACTIVE Organizations"),
      QT_TRANSLATE_NOOP("Records", "Organization Name"), nullptr,
      "SELECT OrganizationID as idField, OrganizationName as nameField"
      " FROM Organization"
      " WHERE OrganizationID > 1"
      " AND Status <> 'DELETED'"
      " ORDER BY OrganizationName"},
     {QT_TRANSLATE_NOOP("Records", "No ACTIVE Functions"), QT_TRANSLATE_NOOP("Records", "Function Name"),
      nullptr,
      "SELECT FunctionID as idField, FunctionName as nameField"
      " FROM Function"
      " WHERE FunctionID > 1"
      " ORDER BY FunctionName"},
     {QT_TRANSLATE_NOOP("Records", "No ACTIVE DocumentTypes"), QT_TRANSLATE_NOOP("Records", "Document Type"),
      nullptr,
      "SELECT DocumentTypeID as idField, DocumentTypeName as nameField"
      " FROM DocumentType"
      " WHERE DocumentTypeID > 1"
      " ORDER BY DocumentTypeName"},
     {QT_TRANSLATE_NOOP("Records", "No ACTIVE Documents"), QT_TRANSLATE_NOOP("Records", "Document Title"),
      nullptr,
      "SELECT DocumentID as idField, DocumentName as nameField"
      " FROM Document"
      " WHERE DocumentID > 1"
      " AND dStatus <> 'DELETED'"
      " ORDER BY DocumentName"},
     {QT_TRANSLATE_NOOP("Records", "No ACTIVE DocumentCategories"),
      QT_TRANSLATE_NOOP("Records", "Document Category Name"), nullptr,
      "SELECT DocumentCategoryID as idField, DocumentCategoryName as nameField"
      " FROM DocumentCategory"
      " WHERE DocumentCategoryID > 1"
      " ORDER BY DocumentCategoryName"},
     {QT_TRANSLATE_NOOP("Records", "No ACTIVE CityLocations"), QT_TRANSLATE_NOOP("Records", "City"),
      QT_TRANSLATE_NOOP("Records", "State"),
      "SELECT DISTINCT LocationID as idField, City as nameField, State"
      " FROM Q_Organization"
      " WHERE OrganizationID > 1"
      " AND Status <> 'DELETED' AND LocationID > 0"
      " AND City <> '' AND State <> '' AND State <> 'None'"
      " ORDER BY State, City"}}};

const KindOfList& of(PickListKind kind)
{
    return kinds[static_cast<std::size_t>(kind)];
}

} // namespace

QString emptyPickListText(PickListKind kind)
{
    return RecordsTexts::tr(of(kind).none);
}

QStringList pickListHeaders(PickListKind kind)
{
    QStringList headers{RecordsTexts::tr(of(kind).header)};
    if (of(kind).secondHeader != nullptr) headers << RecordsTexts::tr(of(kind).secondHeader);
    return headers;
}

std::vector<PickListRow> readPickList(DatabaseSession& session, PickListKind kind)
{
    RecordSet records = session.read(QString::fromLatin1(of(kind).statement));
    const int identifier = records.column(u"idField");
    const int name = records.column(u"nameField");
    const int state = kind == PickListKind::CityLocations ? records.column(u"State") : -1;
    std::vector<PickListRow> rows;
    while (records.next()) {
        rows.push_back(
            {records.integer(identifier), records.text(name), state < 0 ? QString() : records.text(state)});
    }
    return rows;
}

clsPickListItem pickedItem(const PickListRow& row, PickListKind kind)
{
    return clsPickListItem::of(row.identifier, kind == PickListKind::CityLocations
                                                   ? row.name + QStringLiteral(", ") + row.state
                                                   : row.name);
}

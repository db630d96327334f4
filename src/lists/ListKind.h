// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "data/ListEntry.h"
#include "data/RecordKind.h"

#include <QString>
#include <QStringList>

#include <array>
#include <vector>

/// The lists from which the records of a collection take their types, places and other properties.
enum class ListKind
{
    DocumentTypes,
    DocumentCategories,
    FileTypes,
    Functions,
    Venues,
    OrganizationTypes,
    OrganizationSubTypes,
    Jurisdictions,
    Populations,
    States,
    Cities
};

/// Every list, in the order in which they are offered.
inline constexpr std::array listKinds{ListKind::DocumentTypes,
                                      ListKind::DocumentCategories,
                                      ListKind::FileTypes,
                                      ListKind::Functions,
                                      ListKind::Venues,
                                      ListKind::OrganizationTypes,
                                      ListKind::OrganizationSubTypes,
                                      ListKind::Jurisdictions,
                                      ListKind::Populations,
                                      ListKind::States,
                                      ListKind::Cities};

/// Where the records of one kind refer to the entries of a list: in a column of their own table or in a table
/// of links. A list has at most one such place for each kind of record.
struct ListReference
{
    RecordKind kind;
    QString table;
    QString entryColumn;     ///< the key of the entry; for states and cities, a text
    QString recordColumn;    ///< the key of the record
    const char* caption;     ///< of the view of the records that use an entry, with %1 for its name
    bool hasSetting = false; ///< whether only rows whose `Setting` is 1 count

    [[nodiscard]] bool isLink() const { return table != recordNames(kind).record; }
};

/// A list as the database holds it.
struct ListTable
{
    const char* title;     ///< such as `Document Types`
    const char* entryWord; ///< such as `Document Type`
    QString table;
    QString keyColumn;
    QString nameColumn;
    std::vector<ListReference> references;
    bool showsFirstRow =
        false; ///< whether the editors offer row 1, too; it can be one of the user's own then
};

const ListTable& listTable(ListKind list);

QString listTitle(ListKind list);
QString listEntryWord(ListKind list);

/// The titles of the columns that describe an entry; the first is that of its name.
QStringList listHeaders(ListKind list);

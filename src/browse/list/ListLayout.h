// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "browse/list/EventTimes.h"
#include "data/RecordKind.h"

#include <QString>

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

/// A row of a list, with its texts as the file holds them. The texts belong to the list.
struct ListRow
{
    static constexpr std::size_t mostFields = 6;

    qint64 identifier = 0;
    std::array<std::string_view, mostFields> fields; ///< in the order of the layout's field names
    std::int32_t number = 0;                         ///< a document's file type, an organization's sub-type
    bool isKey = false;                              ///< whether the record is marked as a key record
    bool isReleased = false;                         ///< whether a document may be shown
};

/// What rows are ordered by: the number and, if that is equal, the text, without regard to case.
struct ListSortKey
{
    qint64 number = 0;
    std::string text;
};

/// A column of a list.
struct ListColumn
{
    const char* title = "";                            ///< to be translated
    int widthInTwips = 0;                              ///< 1/1440 inch; 0 for the list's own default
    std::string (*text)(const ListRow& row) = nullptr; ///< in UTF-8
    ListSortKey (*sortKey)(const ListRow& row) = nullptr;
    QString (*toolTip)(const ListRow& row) = nullptr;
    bool marksKeys = false; ///< whether it shows a picture for key records in place of a text
    bool fitsTexts = false; ///< whether it is made as wide as its texts, within limits
};

/// What a list of one kind of record reads of its query, and the columns that it shows.
struct ListLayout
{
    QStringView identifier;
    QStringView number; ///< empty if the list needs none; so are the next two
    QStringView isKey;
    QStringView isReleased;
    std::vector<QStringView> fields;
    std::vector<ListColumn> columns;
};

/// `years` is how the columns show dates; tool tips show four digits of a year.
const ListLayout& listLayout(RecordKind kind, Years years = Years::TwoDigits);

/// The field of a document's row that has its file name.
inline constexpr std::size_t fileLocationField = 5;
inline constexpr std::size_t fileTypeField = 3; ///< its name

// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "data/RecordKind.h"

#include <QString>

#include <optional>
#include <vector>

/// A column that holds the key of a row elsewhere, and where that row has its name.
struct NamedKey
{
    QString column;
    QString table;
    QString keyColumn;
    QString nameColumn;
};

/// A table whose rows belong to records: their links, their settings or their profile.
struct PartTable
{
    QString table;
    QString recordColumn;             ///< the key of the record
    std::optional<NamedKey> linkedTo; ///< std::nullopt if the rows link to nothing
};

/// Where all that belongs to a record of one kind is kept. Every table of links belongs to one kind.
struct RecordParts
{
    RecordNames names;
    QString statusColumn;
    std::vector<NamedKey> keys; ///< in the main table
    std::vector<PartTable> parts;
};

const RecordParts& recordParts(RecordKind kind);

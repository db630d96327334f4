// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "data/ListEntry.h"
#include "data/RecordKind.h"
#include "views/PositionPicker.h"

#include <QString>

#include <optional>
#include <vector>

/// An entry of a list, as it is stored.
struct LookupEntry
{
    qint64 key = noneKey;
    QString name;            ///< of a state, its abbreviation
    QString detail{};        ///< of a state its name, of a city its state, of a sub-type its type; else empty
    qint64 typeId = noneKey; ///< of a sub-type
    std::optional<MapPosition> position{}; ///< of a city
};

/// How many records of a kind use an entry, each counted once.
struct RecordUse
{
    RecordKind kind = RecordKind::Document;
    qint64 shown = 0;
    qint64 deleted = 0; ///< records that were deleted and are in no list any more
};

/// An entry of a list with what uses it.
struct LookupRow
{
    LookupEntry entry;
    std::vector<RecordUse> uses; ///< in the order of the list's references
    qint64 parts = 0;            ///< the sub-types of a type, the known cities of a state

    [[nodiscard]] qint64 shown() const
    {
        qint64 count = 0;
        for (const RecordUse& use : uses)
            count += use.shown;
        return count;
    }

    [[nodiscard]] qint64 deleted() const
    {
        qint64 count = 0;
        for (const RecordUse& use : uses)
            count += use.deleted;
        return count;
    }

    [[nodiscard]] qint64 records() const { return shown() + deleted(); }
};

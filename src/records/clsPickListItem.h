// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "util/Error.h"

#include <QCoreApplication>
#include <QString>

#include <cstdint>
#include <limits>

/// One choice of a pick list: a record and the text shown for it.
struct clsPickListItem
{
    std::int16_t itemID = 0;
    QString itemName;

    /// The key of an item in the collections that hold it: `k` and its identifier.
    [[nodiscard]] QString key() const { return u'k' + QString::number(itemID); }

    /// An item for a record. Throws Error 6 if its identifier does not fit into 16 bits.
    static clsPickListItem of(qint64 identifier, const QString& name)
    {
        using Limits = std::numeric_limits<std::int16_t>;
        constexpr int overflow = 6;
        if (identifier < Limits::min() || identifier > Limits::max()) {
            throw Error(overflow, QCoreApplication::translate("clsPickListItem", "Overflow"));
        }
        return {static_cast<std::int16_t>(identifier), name};
    }
};

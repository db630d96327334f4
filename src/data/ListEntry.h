// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>

/// The key of the reserved row "None" of every main and lookup table.
inline constexpr qint64 noneKey = 1;

/// One entry of a drop-down or list: a record, and the text shown for it.
struct ListEntry
{
    QString display;
    qint64 key = noneKey;

    /// The entry that stands for the reserved row.
    static ListEntry none() { return {QStringLiteral("None"), noneKey}; }

    friend bool operator==(const ListEntry&, const ListEntry&) = default;
};

/// One entry of a list with check boxes.
struct CheckEntry
{
    ListEntry entry;
    bool isChecked = false;

    friend bool operator==(const CheckEntry&, const CheckEntry&) = default;
};

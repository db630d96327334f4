// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "data/ListEntry.h"
#include "records/StoredState.h"

#include <QString>

#include <optional>
#include <vector>

/// An event as its editor holds it.
struct EventRecord
{
    qint64 id = -1; ///< below 0 until it is saved

    QString eventName;
    QString eventDescription;
    QString notes;
    bool keyEvent = false;

    /// What the pickers hold: `mm/dd/yyyy` and `hh:mm`, empty if there is none. A text that cannot be read
    /// is kept as it is stored or typed.
    QString startDate;
    QString endDate;
    QString startTime;
    QString endTime;

    std::vector<CheckEntry> venues; ///< all venues; only those checked are linked

    /// Each record once. Without links they hold "None"; an empty list is saved as that.
    std::vector<ListEntry> functions;
    std::vector<ListEntry> documents;
    std::vector<ListEntry> organizations;

    std::optional<StoredState> stored; ///< what was read; missing for a new record; kept by the store alone
};

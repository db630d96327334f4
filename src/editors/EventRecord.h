#pragma once

#include "data/ListEntry.h"

#include <QDate>
#include <QString>
#include <QTime>

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

    /// Missing where the picker is empty. Times count to the minute.
    std::optional<QDate> startDate;
    std::optional<QDate> endDate;
    std::optional<QTime> startTime;
    std::optional<QTime> endTime;

    std::vector<CheckEntry> venues; ///< all venues; only those checked are linked

    /// Each id once; empty stands for "None", which a loaded or blank record already holds then.
    std::vector<ListEntry> functions;
    std::vector<ListEntry> documents;
    std::vector<ListEntry> organizations;
};

// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "records/EventRecord.h"
#include "records/RecordColumns.h"

/// The columns of `Event` that an editor shows.
inline constexpr RecordColumn<EventRecord> eventColumns[]{
    {u"EventName", &EventRecord::eventName, History::Copied, QT_TRANSLATE_NOOP("Records", "Title")},
    {u"EventDescription", &EventRecord::eventDescription, History::Copied,
     QT_TRANSLATE_NOOP("Records", "Description")},
    {u"Notes", &EventRecord::notes, History::Copied, QT_TRANSLATE_NOOP("Records", "Notes")},
    {u"KeyEvent", &EventRecord::keyEvent, History::Copied, QT_TRANSLATE_NOOP("Records", "Key event")},
    {u"startDate", &EventRecord::startDate, History::Copied, QT_TRANSLATE_NOOP("Records", "Start date"),
     &RecordValues::date},
    {u"endDate", &EventRecord::endDate, History::Copied, QT_TRANSLATE_NOOP("Records", "End date"),
     &RecordValues::date},
    {u"startTime", &EventRecord::startTime, History::Copied, QT_TRANSLATE_NOOP("Records", "Start time"),
     &RecordValues::time},
    {u"endTime", &EventRecord::endTime, History::Copied, QT_TRANSLATE_NOOP("Records", "End time"),
     &RecordValues::time},
};

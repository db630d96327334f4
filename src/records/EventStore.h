// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "records/EventRecord.h"
#include "records/RecordStore.h"

#include <QDateTime>

#include <optional>

/// The fields of an event that can fail a check.
enum class EventField
{
    EventName,
    EventDescription,
    Venues,
    StartDate,
    EndDate,
    StartTime,
    EndTime
};

/// Reads and writes events, with their links and their history. What RecordStore says of a save holds here.
class EventStore final : public RecordStore<EventRecord>
{
public:
    using Problem = FieldProblem<EventField>;

    EventStore(DatabaseSession& session, const Clock& clock);

    /// Where events are kept.
    [[nodiscard]] static const RecordTables<EventRecord>& tables();

    /// A record to begin with: no dates, no venue, "None" in every list that the preset does not fill.
    [[nodiscard]] EventRecord blank(const std::optional<clsFieldInfo>& preset) const;

    /// Returns the message for a preset that an event cannot take, or std::nullopt.
    [[nodiscard]] static std::optional<QString> refusalOfPreset(const clsFieldInfo& preset);

    [[nodiscard]] static QString notFoundMessage(qint64 id);

    /// The first required field that is empty; else the first date or time that cannot be read.
    [[nodiscard]] static std::optional<Problem> check(const EventRecord& record);

    /// Adds the record as RecordStore::add does. Returns a problem if another active event has that title.
    /// Throws Error, and writes nothing, if a date or time cannot be read.
    [[nodiscard]] std::optional<Problem> saveEvent(EventRecord& record);

    /// Changes the record as RecordStore::change does. Throws Error, and writes nothing, if a date or time
    /// cannot be read.
    [[nodiscard]] std::optional<RecordConflict> updateEvent(EventRecord& record);

    /// Marks a record as deleted, as a part of `step` if there is one, and returns the message that says so.
    QString deleteEvent(qint64 id, JournalStep* step = nullptr);

    /// The moment at which an event starts, for the timeline; a missing time is midnight. Returns
    /// std::nullopt if there is no date.
    [[nodiscard]] static std::optional<QDateTime> getStartDate(const EventRecord& record);

private:
    void requireWritable(const EventRecord& record) const override;
    void readLinks(EventRecord& record) const override;
};

#pragma once

#include "data/DatabaseSession.h"
#include "platform/Clock.h"
#include "records/EditorTypes.h"
#include "records/EventRecord.h"

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

/// Reads and writes events, with their links and their history.
///
/// Lives as long as its editor; the session and the clock outlive it. Every failure is an Error. A
/// save is one transaction: what was written before a failure stays, and a process that dies leaves all or
/// nothing.
class EventStore
{
public:
    using Problem = FieldProblem<EventField>;

    EventStore(DatabaseSession& session, const Clock& clock) : m_session(session), m_clock(clock) {}

    /// A record to begin with: no dates, no venue, "None" in every list that the preset does not fill.
    [[nodiscard]] EventRecord blank(const std::optional<clsFieldInfo>& preset) const;

    /// What the user is told of a preset that an event cannot take; nothing where it can.
    [[nodiscard]] static std::optional<QString> refusalOfPreset(const clsFieldInfo& preset);

    /// A record for editing or viewing. Throws Error 6 for an identifier beyond 16 bits.
    [[nodiscard]] LoadedRecord<EventRecord> load(qint64 id) const;
    [[nodiscard]] static QString notFoundMessage(qint64 id);

    /// The first required field that is empty; else the first date or time that cannot be read.
    [[nodiscard]] static std::optional<Problem> check(const EventRecord& record);

    /// Adds the record; `record.id` is known afterwards, also if a later step failed. A record that such a
    /// failure left unfinished is completed. Returns a problem, and writes nothing, if another active event
    /// has that title. Like `updateEvent`, throws Error before anything is written if a date or time
    /// cannot be read.
    [[nodiscard]] std::optional<Problem> saveEvent(EventRecord& record);

    /// Writes a record that exists; what the user did not change stays as it is stored. If somebody else
    /// changed or deleted the record after it was read, returns what differs and writes nothing. A deleted
    /// record stays deleted. Throws Error if it is gone meanwhile; nothing is written then.
    [[nodiscard]] std::optional<RecordConflict> updateEvent(EventRecord& record);

    /// Marks a record as deleted, and gives the message that says so.
    QString deleteEvent(qint64 id);

    /// The moment at which an event starts, for the timeline; a missing time is midnight. Nothing where there
    /// is no date.
    [[nodiscard]] static std::optional<QDateTime> getStartDate(const EventRecord& record);

private:
    [[nodiscard]] bool hasOtherActiveTitle(const EventRecord& record) const;
    void writeLinks(const EventRecord& record);
    void writeHistory(const EventRecord& record, const QString& status);

    DatabaseSession& m_session;
    const Clock& m_clock;
};

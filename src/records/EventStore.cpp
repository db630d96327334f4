// SPDX-License-Identifier: GPL-3.0-or-later

#include "records/EventStore.h"

#include "records/EventColumns.h"
#include "records/RecordsTexts.h"
#include "util/DateTimeText.h"
#include "util/Error.h"

#include <sqlite3.h>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

const CheckLink<EventRecord> venueLinks{{u"EventVenues"_s, u"EventID"_s, u"VenueID"_s},
                                        QT_TRANSLATE_NOOP("Records", "Venues"),
                                        &EventRecord::venues,
                                        {u"Venue"_s, u"VenueName"_s, u"VenueID"_s}};
const ListLink<EventRecord> functionLinks{{u"EventFunctions"_s, u"EventID"_s, u"functionId"_s},
                                          QT_TRANSLATE_NOOP("Records", "Functions"),
                                          &EventRecord::functions,
                                          u"SELECT Function.FunctionName, Function.FunctionID"
                                          " FROM Function, EventFunctions"
                                          " WHERE Function.FunctionID = EventFunctions.FunctionID"
                                          " AND EventID = "_s,
                                          u"functionName"_s};
const ListLink<EventRecord> documentLinks{{u"DocumentEvents"_s, u"EventID"_s, u"DocumentID"_s},
                                          QT_TRANSLATE_NOOP("Records", "Related documents"),
                                          &EventRecord::documents,
                                          u"SELECT Document.DocumentName, Document.DocumentID"
                                          " FROM Document, DocumentEvents"
                                          " WHERE Document.DocumentID = DocumentEvents.DocumentID"
                                          " AND EventID = "_s,
                                          u"DocumentName"_s};
const ListLink<EventRecord> organizationLinks{
    {u"OrganizationEvents"_s, u"EventID"_s, u"OrganizationID"_s},
    QT_TRANSLATE_NOOP("Records", "Related organizations"),
    &EventRecord::organizations,
    u"SELECT Organization.OrganizationName, Organization.OrganizationID"
    " FROM Organization, OrganizationEvents"
    " WHERE Organization.OrganizationID = OrganizationEvents.OrganizationID"
    " AND EventID = "_s,
    u"OrganizationName"_s};

/// A date or time that cannot be read must not be saved as if there were none.
std::optional<EventStore::Problem> unreadableMoment(const EventRecord& record)
{
    const QString noDate =
        RecordsTexts::tr("%1 \"%2\" is not a date. Please type month, day and year, such as 09/11/2001.");
    const QString noTime =
        RecordsTexts::tr("%1 \"%2\" is not a time. Please type hour and minute, such as 13:05.");
    const auto isDate = [](const QString& text) { return DateTimeText::readDate(text).has_value(); };
    const auto isTime = [](const QString& text) { return DateTimeText::readTime(text).has_value(); };
    const struct
    {
        EventField field;
        QString name;
        QString text;
        bool isRead;
        QString message;
    } moments[] = {
        {EventField::StartDate, RecordsTexts::tr("Start date"), record.startDate, isDate(record.startDate),
         noDate},
        {EventField::EndDate, RecordsTexts::tr("End date"), record.endDate, isDate(record.endDate), noDate},
        {EventField::StartTime, RecordsTexts::tr("Start time"), record.startTime, isTime(record.startTime),
         noTime},
        {EventField::EndTime, RecordsTexts::tr("End time"), record.endTime, isTime(record.endTime), noTime},
    };
    for (const auto& [field, name, text, isRead, message] : moments) {
        if (!isRead && !text.trimmed().isEmpty()) return EventStore::Problem{field, message.arg(name, text)};
    }
    return std::nullopt;
}

} // namespace

const RecordTables<EventRecord>& EventStore::tables()
{
    static const RecordTables<EventRecord> tables{
        RecordKind::Event,
        &EventRecord::eventName,
        u"Status"_s,
        eventColumns,
        {{u"UserID"_s, qint64{1}, History::Copied}},
        {venueLinks, functionLinks, documentLinks, organizationLinks}};
    return tables;
}

EventStore::EventStore(DatabaseSession& session, const Clock& clock) : RecordStore(session, clock, tables())
{
}

EventRecord EventStore::blank(const std::optional<clsFieldInfo>& preset) const
{
    EventRecord record = emptyRecord();
    if (preset && preset->FieldName == documentKindWord) {
        record.documents = {{preset->FieldText, preset->FieldID}};
    }
    if (preset && preset->FieldName == organizationKindWord) {
        record.organizations = {{preset->FieldText, preset->FieldID}};
    }
    return record;
}

std::optional<QString> EventStore::refusalOfPreset(const clsFieldInfo& preset)
{
    if (preset.FieldName == documentKindWord || preset.FieldName == organizationKindWord) return std::nullopt;
    return RecordsTexts::tr("Invalid FieldName to add to current event");
}

QString EventStore::notFoundMessage(qint64 id)
{
    return RecordsTexts::tr("Event %1 not found").arg(id);
}

std::optional<EventStore::Problem> EventStore::check(const EventRecord& record)
{
    if (record.eventName.isEmpty())
        return Problem{EventField::EventName, RecordsTexts::tr("Event title is required.")};
    if (record.eventDescription.isEmpty()) {
        return Problem{EventField::EventDescription, RecordsTexts::tr("Event description is required.")};
    }
    const bool hasVenue = std::any_of(record.venues.begin(), record.venues.end(),
                                      [](const CheckEntry& venue) { return venue.isChecked; });
    if (!hasVenue) return Problem{EventField::Venues, RecordsTexts::tr("Event venue is required.")};
    return unreadableMoment(record);
}

std::optional<EventStore::Problem> EventStore::saveEvent(EventRecord& record)
{
    if (add(record)) return std::nullopt;
    return Problem{
        EventField::EventName,
        RecordsTexts::tr("Event with identical title already exists. Please choose a different title.")};
}

std::optional<RecordConflict> EventStore::updateEvent(EventRecord& record)
{
    return change(record);
}

QString EventStore::deleteEvent(qint64 id, JournalStep* step)
{
    return remove(id, step);
}

void EventStore::requireWritable(const EventRecord& record) const
{
    if (const auto problem = unreadableMoment(record)) throw Error(SQLITE_MISMATCH, problem->message);
    RecordStore::requireWritable(record);
}

/// The links are read in an order of their own.
void EventStore::readLinks(EventRecord& record) const
{
    readLink(venueLinks, record);
    for (const auto& links : {organizationLinks, documentLinks, functionLinks})
        readLink(links, record);
}

std::optional<QDateTime> EventStore::getStartDate(const EventRecord& record)
{
    const auto date = DateTimeText::readDate(record.startDate);
    if (!date) return std::nullopt;
    const QTime time = DateTimeText::readTime(record.startTime).value_or(QTime(0, 0));
    return QDateTime(*date, QTime(time.hour(), time.minute()));
}

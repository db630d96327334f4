#include "records/EventStore.h"

#include "data/ControlFill.h"
#include "records/RecordIdentifier.h"
#include "records/RecordLinks.h"
#include "records/RecordValues.h"
#include "util/DateTimeText.h"
#include "util/Error.h"

#include <sqlite3.h>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

const ListSource venueSource{u"Venue"_s, u"VenueName"_s, u"VenueID"_s};
const LinkTable venueLinks{u"EventVenues"_s, u"EventID"_s, u"VenueID"_s};
const LinkTable functionLinks{u"EventFunctions"_s, u"EventID"_s, u"functionId"_s};
const LinkTable documentLinks{u"DocumentEvents"_s, u"EventID"_s, u"DocumentID"_s};
const LinkTable organizationLinks{u"OrganizationEvents"_s, u"EventID"_s, u"OrganizationID"_s};

QString recordStatement(qint64 id)
{
    return u"SELECT * FROM Event WHERE EventID = "_s + QString::number(id);
}

bool isBlank(const QString& text)
{
    return text.trimmed().isEmpty();
}

/// A picker's date as it is written. What is no date is handed on as it is: the session refuses it.
Value dateValue(const QString& typed)
{
    if (isBlank(typed)) return {};
    const auto date = DateTimeText::readDate(typed);
    return date ? DateTimeText::programDate(*date) : typed;
}

/// The same of a time, which is written without seconds.
Value timeValue(const QString& typed)
{
    if (isBlank(typed)) return {};
    const auto time = DateTimeText::readTime(typed);
    return time ? DateTimeText::programTime(*time) : typed;
}

void readRow(const RecordTable& rows, EventRecord& record)
{
    record.eventName = rows.text(0, u"EventName");
    record.eventDescription = rows.text(0, u"EventDescription");
    record.notes = rows.text(0, u"Notes");
    record.keyEvent = rows.integer(0, u"KeyEvent") != 0;
    record.startDate = rows.text(0, u"startDate");
    record.endDate = rows.text(0, u"endDate");
    record.startTime = rows.text(0, u"startTime");
    record.endTime = rows.text(0, u"endTime");
}

void readLists(DatabaseSession& session, EventRecord& record)
{
    const QString id = QString::number(record.id);
    record.organizations =
        RecordLinks::read(session,
                          u"SELECT Organization.OrganizationName, Organization.OrganizationID"
                          " FROM Organization, OrganizationEvents"
                          " WHERE Organization.OrganizationID = OrganizationEvents.OrganizationID"
                          " AND EventID = "_s +
                              id,
                          u"OrganizationName"_s, u"OrganizationID"_s);
    record.documents = RecordLinks::read(session,
                                         u"SELECT Document.DocumentName, Document.DocumentID"
                                         " FROM Document, DocumentEvents"
                                         " WHERE Document.DocumentID = DocumentEvents.DocumentID"
                                         " AND EventID = "_s +
                                             id,
                                         u"DocumentName"_s, u"DocumentID"_s);
    record.functions = RecordLinks::read(session,
                                         u"SELECT Function.FunctionName, Function.FunctionID"
                                         " FROM Function, EventFunctions"
                                         " WHERE Function.FunctionID = EventFunctions.FunctionID"
                                         " AND EventID = "_s +
                                             id,
                                         u"functionName"_s, u"functionId"_s);
}

void addPlaceholders(EventRecord& record)
{
    RecordLinks::addPlaceholder(record.functions);
    RecordLinks::addPlaceholder(record.organizations);
    RecordLinks::addPlaceholder(record.documents);
}

FieldValues fieldsOf(const EventRecord& record)
{
    return {
        {u"EventName"_s, u"Title"_s, record.eventName},
        {u"EventDescription"_s, u"Description"_s, record.eventDescription},
        {u"Notes"_s, u"Notes"_s, record.notes},
        {u"KeyEvent"_s, u"Key event"_s, RecordValues::flag(record.keyEvent)},
        {u"startDate"_s, u"Start date"_s, dateValue(record.startDate)},
        {u"endDate"_s, u"End date"_s, dateValue(record.endDate)},
        {u"startTime"_s, u"Start time"_s, timeValue(record.startTime)},
        {u"endTime"_s, u"End time"_s, timeValue(record.endTime)},
    };
}

/// The fields as an update writes them.
FieldValues fieldsToWrite(const EventRecord& record)
{
    FieldValues fields = fieldsOf(record);
    if (record.stored) {
        EventRecord read;
        readRow(record.stored->row, read);
        StoredStates::keepUnchanged(fields, fieldsOf(read), record.stored->row);
    }
    return fields;
}

/// All that another save could have changed.
RecordView viewOf(const EventRecord& record, const QString& status)
{
    FieldValues fields = fieldsOf(record);
    fields.push_back(RecordLinks::field(venueLinks, u"Venues"_s, record.venues));
    fields.push_back(RecordLinks::field(functionLinks, u"Functions"_s, record.functions));
    fields.push_back(RecordLinks::field(documentLinks, u"Related documents"_s, record.documents));
    fields.push_back(RecordLinks::field(organizationLinks, u"Related organizations"_s, record.organizations));
    return {fields, status};
}

void setConstants(EditableRecordSet& rows, const QString& status)
{
    rows.set(u"Status"_s, status);
    rows.set(u"UserID"_s, qint64{1});
}

/// A date or time that cannot be read must not be saved as if there were none.
std::optional<EventStore::Problem> unreadableMoment(const EventRecord& record)
{
    const QString noDate = u"%1 \"%2\" is not a date. Please type month, day and year, such as 09/11/2001."_s;
    const QString noTime = u"%1 \"%2\" is not a time. Please type hour and minute, such as 13:05."_s;
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
        {EventField::StartDate, u"Start date"_s, record.startDate, isDate(record.startDate), noDate},
        {EventField::EndDate, u"End date"_s, record.endDate, isDate(record.endDate), noDate},
        {EventField::StartTime, u"Start time"_s, record.startTime, isTime(record.startTime), noTime},
        {EventField::EndTime, u"End time"_s, record.endTime, isTime(record.endTime), noTime},
    };
    for (const auto& [field, name, text, isRead, message] : moments) {
        if (!isRead && !isBlank(text)) return EventStore::Problem{field, message.arg(name, text)};
    }
    return std::nullopt;
}

/// Refuses what could not be written as it is, before anything is written.
void requireWritable(const EventRecord& record)
{
    if (const auto problem = unreadableMoment(record)) throw Error(SQLITE_MISMATCH, problem->message);
    RecordLinks::requireChecked(record.venues);
    RecordLinks::requireIdentifiers(record.functions);
    RecordLinks::requireIdentifiers(record.documents);
    RecordLinks::requireIdentifiers(record.organizations);
}

} // namespace

EventRecord EventStore::blank(const std::optional<clsFieldInfo>& preset) const
{
    EventRecord record;
    fillCheckList(m_session, venueSource, record.venues);
    if (preset && preset->FieldName == documentKindWord) {
        record.documents.push_back({preset->FieldText, preset->FieldID});
    }
    if (preset && preset->FieldName == organizationKindWord) {
        record.organizations.push_back({preset->FieldText, preset->FieldID});
    }
    addPlaceholders(record);
    return record;
}

std::optional<QString> EventStore::refusalOfPreset(const clsFieldInfo& preset)
{
    if (preset.FieldName == documentKindWord || preset.FieldName == organizationKindWord) return std::nullopt;
    return u"Invalid FieldName to add to current event"_s;
}

LoadedRecord<EventRecord> EventStore::load(qint64 id) const
{
    recordIdentifier(id);
    LoadedRecord<EventRecord> loaded;
    EventRecord& record = loaded.record;
    record.id = id;
    RecordTable row = m_session.readAll(recordStatement(id));
    loaded.isFound = row.count() > 0;
    if (loaded.isFound) readRow(row, record);
    fillCheckList(m_session, venueSource, record.venues);
    RecordLinks::readChecks(m_session, venueLinks, id, false, record.venues);
    readLists(m_session, record);
    addPlaceholders(record);
    if (loaded.isFound) {
        const QString status = row.text(0, u"Status");
        record.stored = StoredState{std::move(row), {}, viewOf(record, status)};
    }
    return loaded;
}

QString EventStore::notFoundMessage(qint64 id)
{
    return u"Event %1 not found"_s.arg(id);
}

std::optional<EventStore::Problem> EventStore::check(const EventRecord& record)
{
    if (record.eventName.isEmpty()) return Problem{EventField::EventName, u"Event title is required."_s};
    if (record.eventDescription.isEmpty()) {
        return Problem{EventField::EventDescription, u"Event description is required."_s};
    }
    const bool hasVenue = std::any_of(record.venues.begin(), record.venues.end(),
                                      [](const CheckEntry& venue) { return venue.isChecked; });
    if (!hasVenue) return Problem{EventField::Venues, u"Event venue is required."_s};
    return unreadableMoment(record);
}

bool EventStore::hasOtherActiveTitle(const EventRecord& record) const
{
    return RecordValues::hasRow(m_session, u"SELECT * FROM Event WHERE EventName LIKE "_s +
                                               RecordValues::quotedTitle(record.eventName) +
                                               u" AND Status = 'ACTIVE'"_s +
                                               RecordValues::exceptFor(u"EventID", record.id));
}

std::optional<EventStore::Problem> EventStore::saveEvent(EventRecord& record)
{
    record.stored.reset();
    requireWritable(record);
    Transaction transaction(m_session);
    if (hasOtherActiveTitle(record)) {
        return Problem{EventField::EventName,
                       u"Event with identical title already exists. Please choose a different title."_s};
    }
    EditableRecordSet rows = m_session.edit(recordStatement(record.id));
    if (rows.atEnd()) rows.addNew();
    const std::int16_t id = recordIdentifier(std::get<qint64>(rows.value(u"EventID")));
    StoredStates::setDiffering(rows, fieldsOf(record));
    setConstants(rows, activeStatus);
    rows.update();
    record.id = id;
    writeLinks(record);
    writeHistory(record, activeStatus);
    transaction.commit();
    return std::nullopt;
}

std::optional<RecordConflict> EventStore::updateEvent(EventRecord& record)
{
    recordIdentifier(record.id);
    requireWritable(record);
    Transaction transaction(m_session);
    EditableRecordSet rows = RecordValues::openRecord(m_session, recordStatement(record.id));
    const auto find = [this, &record] { return load(record.id).record.stored->known; };
    if (auto conflict = StoredStates::conflict(record.stored, find())) return conflict;
    const StoredStates::KnownAfterSave known(record.stored, find);
    StoredStates::setDiffering(rows, fieldsToWrite(record));
    rows.update();
    writeLinks(record);
    writeHistory(record, StoredStates::historyStatus(rows.value(u"Status")));
    transaction.commit();
    return std::nullopt;
}

void EventStore::writeLinks(const EventRecord& record)
{
    RecordLinks::rewriteChecked(m_session, venueLinks, record.id, record.venues);
    RecordLinks::rewrite(m_session, functionLinks, record.id, record.functions);
    RecordLinks::rewrite(m_session, documentLinks, record.id, record.documents);
    RecordLinks::rewrite(m_session, organizationLinks, record.id, record.organizations);
}

void EventStore::writeHistory(const EventRecord& record, const QString& status)
{
    EditableRecordSet rows =
        m_session.edit(u"SELECT * FROM Event_HIST WHERE EventID = "_s + QString::number(record.id));
    rows.addNew();
    rows.set(u"EventID"_s, record.id);
    StoredStates::setDiffering(rows, fieldsOf(record));
    setConstants(rows, status);
    rows.set(u"UpdateTime"_s, RecordValues::updateTime(m_clock));
    rows.update();
}

QString EventStore::deleteEvent(qint64 id)
{
    const QString number = QString::number(recordIdentifier(id));
    m_session.execute(u"UPDATE Event SET Status = 'DELETED' WHERE EventID = "_s + number);
    return u"Event ID "_s + number + u" successfully deleted."_s;
}

std::optional<QDateTime> EventStore::getStartDate(const EventRecord& record)
{
    const auto date = DateTimeText::readDate(record.startDate);
    if (!date) return std::nullopt;
    const QTime time = DateTimeText::readTime(record.startTime).value_or(QTime(0, 0));
    return QDateTime(*date, QTime(time.hour(), time.minute()));
}

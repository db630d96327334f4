// SPDX-License-Identifier: GPL-3.0-or-later

#include "EventRecords.h"

#include <QLocale>

using namespace Qt::StringLiterals;

namespace {

const QStringList columns{u"Name"_s,    u"Key"_s,         u"StartDate"_s, u"StartTime"_s,
                          u"EndDate"_s, u"EndTime"_s,     u"Functions"_s, u"Venues"_s,
                          u"Notes"_s,   u"Description"_s, u"Status"_s,    u"Organizations"_s};

/// The start and the end of an event, each with or without a time of day.
struct Span
{
    std::optional<QDate> startDate;
    std::optional<QTime> startTime;
    std::optional<QDate> endDate;
    std::optional<QTime> endTime;
};

Span readSpan(const SourceRow& row)
{
    const Span span{row.date(u"StartDate"_s), row.time(u"StartTime"_s), row.date(u"EndDate"_s),
                    row.time(u"EndTime"_s)};
    if ((span.startTime && !span.startDate) || (span.endTime && !span.endDate))
        row.fail(u"a time without its date"_s);
    if (span.endDate && !span.startDate) row.fail(u"an end without a start"_s);
    if (span.endDate && *span.endDate < *span.startDate) row.fail(u"the event ends before it starts"_s);
    if (span.endTime && span.startTime && span.endDate == span.startDate && *span.endTime < *span.startTime)
        row.fail(u"the event ends before it starts"_s);
    return span;
}

FieldValue heldDate(std::optional<QDate> date)
{
    return date ? FieldValue(date->toString(u"yyyy-MM-dd"_s)) : FieldValue();
}

FieldValue heldTime(std::optional<QTime> time)
{
    return time ? FieldValue(time->toString(u"HH:mm"_s)) : FieldValue();
}

QString inWords(const Span& span)
{
    if (!span.startDate) return {};
    const QLocale english(QLocale::English, QLocale::UnitedStates);
    const auto moment = [&english](QDate date, std::optional<QTime> time) {
        const QString day = english.toString(date, u"MMMM d, yyyy"_s);
        return time ? day + english.toString(*time, u" 'at' HH:mm"_s) : day;
    };
    QString start = moment(*span.startDate, span.startTime);
    if (!span.endDate) return u"from "_s + start;
    if (span.startDate != span.endDate) return u"%1 to %2"_s.arg(start, moment(*span.endDate, span.endTime));
    if (span.endTime && span.endTime != span.startTime)
        return u"%1 to %2"_s.arg(start, span.endTime->toString(u"HH:mm"_s));
    return start;
}

} // namespace

EventRecords::EventRecords(const QDir& source, const LookupTables& lookups,
                           const OrganizationRecords& organizations, SampleDatabase& database)
{
    m_facts.resize(2);
    database.insert("Event", {{"EventID", qint64{1}},
                              {"EventName", u"None"_s},
                              {"KeyEvent", qint64{0}},
                              {"Status", u"ACTIVE"_s},
                              {"UserID", qint64{1}}});
    const SourceTable table(source.filePath(u"events.tsv"_s), columns);
    for (const SourceRow& row : table.rows())
        addEvent(row, lookups, organizations, database);
}

void EventRecords::addEvent(const SourceRow& row, const LookupTables& lookups,
                            const OrganizationRecords& organizations, SampleDatabase& database)
{
    const QString name = row.requiredText(u"Name"_s);
    const qint64 identifier = m_names.add(name, row);
    const Span span = readSpan(row);
    database.insert("Event", {{"EventID", identifier},
                              {"EventName", name},
                              {"KeyEvent", qint64{row.flag(u"Key"_s) ? 1 : 0}},
                              {"StartDate", heldDate(span.startDate)},
                              {"StartTime", heldTime(span.startTime)},
                              {"EndDate", heldDate(span.endDate)},
                              {"EndTime", heldTime(span.endTime)},
                              {"EventDescription", textOrNull(row.text(u"Description"_s))},
                              {"Notes", textOrNull(row.text(u"Notes"_s))},
                              {"Status", textOrNull(row.text(u"Status"_s))},
                              {"UserID", qint64{1}}});
    const std::set<qint64> linked = organizations.names().findAll(u"Organizations"_s, row);
    database.link("EventFunctions", "EventID", identifier, "FunctionID",
                  lookups.names(u"Function"_s).findAll(u"Functions"_s, row));
    database.link("EventVenues", "EventID", identifier, "VenueID",
                  lookups.names(u"Venue"_s).findAll(u"Venues"_s, row));
    database.link("OrganizationEvents", "EventID", identifier, "OrganizationID", linked);
    m_facts.push_back({name, inWords(span), row.text(u"Description"_s), linked});
}

const EventFacts& EventRecords::facts(qint64 identifier) const
{
    return m_facts.at(static_cast<std::size_t>(identifier));
}

// SPDX-License-Identifier: GPL-3.0-or-later

#include "data/DatabaseSession.h"
#include "export/ExportFile.h"
#include "export/ExportFormat.h"
#include "export/PlainText.h"
#include "platform/Clock.h"
#include "util/DateTimeText.h"

#include <QDateTime>
#include <QFileInfo>

#include <libical/ical.h>
#include <new>

using namespace Qt::StringLiterals;

namespace {

/// When an event is, as the timeline draws it: a missing time is midnight; an end that is missing, or before
/// the start, is that of the start.
struct EventSpan
{
    QDateTime start;
    QDateTime end;
    bool isOfDays = false; ///< no time is known
};

/// Takes the property and returns its line, escaped and folded by the library.
std::string lineOf(icalproperty* property)
{
    const std::unique_ptr<char, decltype(&icalmemory_free_buffer)> line(
        icalproperty_as_ical_string_r(property), &icalmemory_free_buffer);
    icalproperty_free(property);
    if (!line) throw std::bad_alloc();
    return line.get();
}

/// The line of a property that holds a text. The library leaves commas of categories as they are, which parts
/// one in two, but not those of a description. `name` is no longer than that word, so that no line grows.
std::string textLine(std::string_view name, const QString& text)
{
    constexpr std::string_view description = "DESCRIPTION";
    return lineOf(icalproperty_new_description(text.toUtf8().constData()))
        .replace(0, description.size(), name);
}

/// Not made by the library, which knows no year after 3000.
std::string dayText(QDate day)
{
    return day.toString(u"yyyyMMdd").toStdString();
}

/// Without a zone, so that every calendar shows the time that was entered.
std::string momentText(const QDateTime& moment)
{
    return dayText(moment.date()) + moment.time().toString(u"'T'HHmmss").toStdString();
}

/// Returns nothing if there is no such day or time.
std::optional<QDateTime> momentOfHeldTexts(const std::string& date, const std::string& time)
{
    const std::optional<QDate> day = DateTimeText::dateFromHeld(date);
    const std::optional<QTime> clock = time.empty() ? QTime(0, 0) : DateTimeText::timeFromHeld(time);
    if (!day || !clock) return std::nullopt;
    return QDateTime(*day, *clock, Qt::UTC);
}

std::string timeLines(const EventSpan& span)
{
    if (!span.isOfDays) {
        const std::string start = "DTSTART:" + momentText(span.start) + "\r\n";
        return span.end == span.start ? start : start + "DTEND:" + momentText(span.end) + "\r\n";
    }
    const QDate day = span.start.date();
    const QDate dayAfter = span.end.date().addDays(1);
    const std::string start = "DTSTART;VALUE=DATE:" + dayText(day) + "\r\n";
    if (dayAfter.year() <= 9999) return start + "DTEND;VALUE=DATE:" + dayText(dayAfter) + "\r\n";
    // a date has no room for the year 10000
    return start + "DURATION:P" + std::to_string(day.daysTo(dayAfter)) + "D\r\n";
}

/// A calendar of events. What the properties of a calendar do not hold stands in the description, a line for
/// each field. An event without a start, or whose start is no date, is a journal entry without a date, since
/// an event of a calendar must have one.
class CalendarWriter final : public RecordWriter
{
public:
    CalendarWriter(const ExportOrder& order, ExportFile& file)
        : m_fields(order.fields),
          m_text(file.text()),
          m_collection(u'@' + QFileInfo(order.session.fileName()).completeBaseName()),
          m_stamp("DTSTAMP:" + SystemClock().now().toUTC().toString(u"yyyyMMdd'T'HHmmss'Z'").toStdString() +
                  "\r\n")
    {
        m_text += "BEGIN:VCALENDAR\r\nVERSION:2.0\r\nPRODID:-//Orvik//Orvik Database//EN\r\n";
        if (order.options.caption.isEmpty()) return;
        icalproperty* name = icalproperty_new_x(order.options.caption.toUtf8().constData());
        icalproperty_set_x_name(name, "X-WR-CALNAME");
        m_text += lineOf(name);
    }

    void add(const ExportedRecord& record) override
    {
        m_isTold.assign(m_fields.size(), false);
        const std::optional<EventSpan> span = spanOf(record);
        const char* component = span ? "VEVENT\r\n" : "VJOURNAL\r\n";
        m_text += "BEGIN:";
        m_text += component;
        // the same in every export, so that a calendar takes a later one for the same event
        addText("UID", u"event-%1"_s.arg(record.identifier) + m_collection);
        m_text += m_stamp;
        addText("SUMMARY", tell(record, m_name).text);
        if (span) {
            m_text += timeLines(*span);
            addText("LOCATION", readable(record, m_venues));
            if (tell(record, m_isKey).real != 0) m_text += "PRIORITY:1\r\n";
        }
        for (const ExportedLink& function : tell(record, m_functions).links)
            addText("CATEGORIES", function.name);
        addText("DESCRIPTION", description(record));
        m_text += "END:";
        m_text += component;
    }

    bool finish() override
    {
        m_text += "END:VCALENDAR\r\n";
        return false;
    }

private:
    using Field = std::optional<std::size_t>; ///< absent if the file lacks it

    /// Its value, which then need not stand in the description.
    const ExportedValue& tell(const ExportedRecord& record, Field field)
    {
        static const ExportedValue missing;
        if (!field) return missing;
        m_isTold[*field] = true;
        return record.values[*field];
    }

    std::string readable(const ExportedRecord& record, Field field)
    {
        std::string text;
        if (field) appendReadable(m_fields[*field], tell(record, field), text);
        return text;
    }

    static std::string held(const ExportedRecord& record, Field field)
    {
        return field ? record.values[*field].text : std::string();
    }

    std::optional<EventSpan> spanOf(const ExportedRecord& record)
    {
        const std::string startTime = held(record, m_startTime);
        const std::string endTime = held(record, m_endTime);
        const std::optional<QDateTime> start = momentOfHeldTexts(held(record, m_startDate), startTime);
        if (!start) return std::nullopt;
        tell(record, m_startDate);
        tell(record, m_startTime);
        const EventSpan atStart{*start, *start, startTime.empty()};
        const std::optional<QDateTime> end = momentOfHeldTexts(held(record, m_endDate), endTime);
        if (!end || *end < *start) return atStart;
        tell(record, m_endDate);
        tell(record, m_endTime);
        return EventSpan{*start, *end, startTime.empty() && endTime.empty()};
    }

    std::string description(const ExportedRecord& record)
    {
        std::string text = tell(record, m_description).text;
        const char* gap = text.empty() ? "" : "\n\n";
        for (std::size_t i = 0; i < m_fields.size(); ++i) {
            const ExportedValue& value = record.values[i];
            const bool isFlag = m_fields[i].field.form == FieldForm::Flag;
            if (m_isTold[i] || (isFlag ? value.real == 0 : value.text.empty() && value.links.empty()))
                continue;
            text += gap + m_fields[i].field.caption.toStdString() + ": ";
            appendReadable(m_fields[i], value, text);
            gap = "\n";
        }
        return text;
    }

    void addText(std::string_view name, const QString& text)
    {
        if (!text.isEmpty()) m_text += textLine(name, text);
    }
    void addText(std::string_view name, const std::string& text) { addText(name, plainText(text)); }

    const std::vector<ExportField>& m_fields;
    std::string& m_text;
    QString m_collection;
    std::string m_stamp;
    Field m_name = fieldNamed(m_fields, u"EventName");
    Field m_description = fieldNamed(m_fields, u"EventDescription");
    Field m_isKey = fieldNamed(m_fields, u"KeyEvent");
    Field m_startDate = fieldNamed(m_fields, u"StartDate");
    Field m_startTime = fieldNamed(m_fields, u"StartTime");
    Field m_endDate = fieldNamed(m_fields, u"EndDate");
    Field m_endTime = fieldNamed(m_fields, u"EndTime");
    Field m_venues = fieldNamed(m_fields, u"EventVenues");
    Field m_functions = fieldNamed(m_fields, u"EventFunctions");
    std::vector<bool> m_isTold; ///< of the record's fields, those that a property holds
};

} // namespace

ExportFormat calendarFormat()
{
    return {.name = u"ics"_s,
            .title = QT_TRANSLATE_NOOP("Export", "Calendar (iCalendar)"),
            .remark = QT_TRANSLATE_NOOP(
                "Export", "For the calendar of a computer or a phone. Events without a start date are in "
                          "the file as journal entries, which many calendars do not show."),
            .ending = u".ics"_s,
            .kind = RecordKind::Event,
            .begin = [](const ExportOrder& order, ExportFile& file) -> std::unique_ptr<RecordWriter> {
                return std::make_unique<CalendarWriter>(order, file);
            }};
}

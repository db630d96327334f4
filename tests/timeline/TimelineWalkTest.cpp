#include "app/ProgramState.h"
#include "support/ScriptedPlatform.h"
#include "support/TestDatabase.h"
#include "timeline/Timeline.h"

#include <QDateTime>
#include <QTimeZone>

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <random>
#include <set>
#include <tuple>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

constexpr int pictureWidth = 1000;

/// An event, its moments as the calendar of Qt counts them.
struct Known
{
    qint64 identifier = 0;
    QString name;
    QDateTime start;
    QDateTime end; ///< as the file holds it; invalid where missing

    [[nodiscard]] bool isSound() const { return end.isValid() && end > start; }
};

QDateTime momentFrom(const QString& day, const QString& time)
{
    return {QDate::fromString(day, Qt::ISODate),
            QTime::fromString(time.isEmpty() ? u"00:00"_s : time.left(5)), QTimeZone::utc()};
}

double minutesFrom(const QDateTime& from, const QDateTime& to)
{
    return static_cast<double>(from.secsTo(to) / 60);
}

/// Many events around the turn of a year, and some that last from before them until after; of every length,
/// some without a time, some without an end, some that end before they start.
void addEvents(const TestDatabase& database)
{
    std::mt19937 random(11);
    const auto upTo = [&random](int most) { return std::uniform_int_distribution(0, most)(random); };
    constexpr std::array<int, 7> lengths{0, 1, 45, 300, 1440, 3000, -90};
    const QDateTime first(QDate(1999, 12, 30), QTime(7, 41), QTimeZone::utc());
    QStringList rows;
    for (int i = 2; i < 152; ++i) {
        const QDateTime start = first.addSecs(60LL * upTo(1800));
        const QDateTime end = start.addSecs(60LL * lengths[static_cast<std::size_t>(upTo(6))]);
        const auto text = [&](const QDateTime& moment, const QString& form, int missing) {
            return upTo(missing) == 0 ? u"NULL"_s : u'\'' + moment.toString(form) + u'\'';
        };
        rows << u"(%1, 'Event %2', '%3', %4, %5, %6, '%7')"_s.arg(
            QString::number(i), QString::number(i % 50), start.toString(u"yyyy-MM-dd"),
            text(start, u"HH:mm:ss"_s, 30), text(end, u"yyyy-MM-dd"_s, 30), text(end, u"HH:mm"_s, 30),
            i % 40 == 0 ? u"DELETED"_s : u"ACTIVE"_s);
    }
    database.run(qPrintable(u"INSERT INTO Event (EventID, EventName, StartDate, StartTime, EndDate, EndTime, "
                            "Status) VALUES "_s +
                            rows.join(u',')));
}

std::vector<Known> eventsOf(const TestDatabase& database)
{
    std::vector<Known> events;
    const QString rows = database.ask("SELECT EventID, EventName, StartDate, ifnull(StartTime, ''), "
                                      "ifnull(EndDate, ''), ifnull(EndTime, '') "
                                      "FROM Event WHERE Status = 'ACTIVE' AND EventID > 1");
    for (const QString& row : rows.split(u'\n', Qt::SkipEmptyParts)) {
        const QStringList values = row.split(u'|');
        events.push_back({values[0].toLongLong(), values[1], momentFrom(values[2], values[3]),
                          values[4].isEmpty() ? QDateTime() : momentFrom(values[4], values[5])});
    }
    return events;
}

/// What a lane must say and where it must lie.
using Drawn = std::tuple<std::string, qint64, long, long>;

Drawn drawn(const Lane& lane)
{
    return {lane.caption.toStdString(), lane.eventId, std::lround(lane.barLeft * 10),
            std::lround((lane.barLeft + lane.barWidth) * 10)};
}

/// Computed for each event by itself, from the definition.
std::vector<Drawn> expected(const std::vector<Known>& events, const QDateTime& from, int stepMinutes)
{
    const double unitsPerMinute = 385.0 / stepMinutes;
    const QDateTime to = from.addSecs(60 * static_cast<qint64>(pictureWidth / unitsPerMinute));
    std::vector<Drawn> lanes;
    for (const Known& event : events) {
        const bool startsInside = from <= event.start && event.start <= to;
        const bool stillRuns = event.start < from && event.end.isValid() && event.end > from;
        if (!startsInside && !stillRuns) continue;
        const bool endsAfter = event.isSound() && event.end > to;
        const double left = startsInside ? minutesFrom(from, event.start) * unitsPerMinute : 0;
        const double right = !event.isSound() ? left
                             : endsAfter      ? pictureWidth
                                              : minutesFrom(from, event.end) * unitsPerMinute;
        const QString caption =
            (stillRuns ? u"<-- "_s : QString()) + event.name + (endsAfter ? u" -->"_s : QString());
        lanes.emplace_back(caption.toStdString(), event.identifier, std::lround(left * 10),
                           std::lround(right * 10));
    }
    return lanes;
}

/// Through every window from the first event to the last, at every level that has more than one.
TEST(TimelineWalk, EveryEventOfAWindowIsThereOnceAtItsPlace)
{
    TestDatabase database;
    addEvents(database);
    const std::vector<Known> events = eventsOf(database);
    ASSERT_GT(events.size(), 140u);
    const QDateTime first =
        std::min_element(events.begin(), events.end(), [](const Known& a, const Known& b) {
            return a.start < b.start;
        })->start;

    ScriptedPlatform desktop;
    ProgramState state{ProgramFolder(database.folder())};
    state.session.open(database.fileName());
    Timeline timeline(
        desktop.platform(), state, [](const QString& text) { return static_cast<int>(text.size()) * 7; },
        [](const QString& text, bool /*isDate*/) { return static_cast<int>(text.size()) * 7; });
    state.history.addView({ViewKind::Events, state.queries.events, u"Events"_s});
    timeline.mainLoad();
    timeline.resize(pictureWidth, 17 * 400);

    int windows = 0;
    for (int level = 0; level <= 7; ++level) {
        const int step = static_cast<int>(timeline.window().step());
        std::set<qint64> seen;
        timeline.NavBeginning();
        QDateTime from = first;
        for (Moment previous = -1; timeline.window().currentTime() != previous; ++windows) {
            ASSERT_EQ(timeline.captions()[0], from.toString(u"MM/dd/yyyy HH:mm"));
            std::vector<Drawn> lanes;
            for (const Lane& lane : timeline.lanes()) {
                lanes.push_back(drawn(lane));
                seen.insert(lane.eventId);
            }
            std::vector<Drawn> wanted = expected(events, from, step);
            std::sort(lanes.begin(), lanes.end());
            std::sort(wanted.begin(), wanted.end());
            ASSERT_EQ(lanes, wanted) << level << " " << timeline.captions()[0].toStdString();
            previous = timeline.window().currentTime();
            timeline.NavStepForward();
            from = from.addSecs(60 * (timeline.window().currentTime() - previous));
        }
        EXPECT_EQ(seen.size(), events.size()) << level;
        if (timeline.window().canZoomOut()) timeline.ZoomOut();
    }
    EXPECT_GT(windows, 1500);
}

} // namespace

// SPDX-License-Identifier: GPL-3.0-or-later

// The timeline's refresh, from the button to the painted picture of 1600 x 400, at both ends of the span and
// in its middle; its statement beside what SQLite alone takes for the same over the stored query as a
// plain view; a frame while the middle button drags the strip; and an arrow key that goes to another lane,
// with the list that follows. Then the band over the ruler: its first picture, and a frame of dragging its
// box.

#include "BenchWindow.h"
#include "browse/window/frmMain.h"
#include "timeline/TimeWindowQuery.h"
#include "timeline/TimelineBand.h"
#include "timeline/TimelinePanel.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QRegularExpression>
#include <QToolButton>

#include <algorithm>

namespace {

enum Place
{
    Beginning,
    Middle,
    End
};

/// The statement as SQLite takes it: dates and times in held form, names without their table.
QString plainStatement(QString statement)
{
    statement.replace(QRegularExpression(QStringLiteral("#(\\d\\d)/(\\d\\d)/(\\d{4})#")),
                      QStringLiteral("'\\3-\\1-\\2'"));
    statement.replace(QRegularExpression(QStringLiteral("#(\\d\\d:\\d\\d)#")), QStringLiteral("'\\1'"));
    return statement.remove(QStringLiteral("Event."));
}

/// The program with its timeline at a place of the span and a level of the scale.
class BenchTimeline
{
public:
    BenchTimeline(int events, Place place, int zoomFactor)
        : m_window(events),
          m_panel(*m_window.program().window()->findChild<TimelinePanel*>(QStringLiteral("pnlTimeline"))),
          m_picture(m_panel.findChild<QWidget*>(QStringLiteral("picTimeline")))
    {
        ProgramState& state = m_window.program().state();
        state.history.addView({ViewKind::Events, state.queries.events, QStringLiteral("All")});
        m_picture->setFixedSize(1600, 400);
        QApplication::processEvents();
        for (int level = 0; level < zoomFactor; ++level)
            click("ZoomOut");
        if (place == Middle) m_panel.chooseEvent(events / 2);
        if (place == End) click("NavEnd");
    }

    void click(const char* button) { m_panel.findChild<QToolButton*>(QString::fromLatin1(button))->click(); }

    /// A step there or back, as far as the place allows, and the picture of it.
    void refresh()
    {
        m_forward = !m_forward;
        click(m_forward ? "NavStepForward" : "NavStepBack");
        m_panel.repaint();
    }

    /// Drags the strip further, so far that it shows another window at every level, and paints it.
    void drag()
    {
        if (m_dragged == 0) sendMouse(QEvent::MouseButtonPress, *m_picture, Qt::MiddleButton);
        m_dragged += 100;
        sendMouse(QEvent::MouseMove, m_panel, Qt::NoButton);
        m_panel.repaint();
    }

    /// A lane down or up again, and all that is painted for it.
    void goToLane()
    {
        m_forward = !m_forward;
        QKeyEvent key(QEvent::KeyPress, m_forward ? Qt::Key_Down : Qt::Key_Up, {});
        QApplication::sendEvent(m_picture, &key);
        QApplication::processEvents();
    }

    [[nodiscard]] QString statement()
    {
        const TimeWindow& window = m_panel.timeline().window();
        return TimeWindowQuery::inWindow(*m_window.program().state().queries.events, window.currentTime(),
                                         window.windowEnd());
    }

    /// Shows the view again, and the picture of it.
    void drawView()
    {
        m_panel.drawTimeline();
        m_panel.repaint();
    }

    /// Sends an event of the left button to the band, at a position from its left edge.
    void mouse(QEvent::Type type, double position)
    {
        const QPointF place(position, band().height() / 2.0);
        QMouseEvent event(type, place, band().mapToGlobal(place),
                          type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton,
                          type == QEvent::MouseButtonRelease ? Qt::NoButton : Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(&band(), &event);
    }

    [[nodiscard]] TimelineBand& band() { return *m_panel.findChild<TimelineBand*>(); }
    [[nodiscard]] TimelinePanel& panel() { return m_panel; }
    [[nodiscard]] const SQLObject& view() { return *m_window.program().state().queries.events; }

    [[nodiscard]] DatabaseSession& session() { return m_window.program().state().session; }
    [[nodiscard]] std::size_t hits() const { return m_panel.timeline().hitCount(); }

private:
    void sendMouse(QEvent::Type type, QWidget& receiver, Qt::MouseButton button)
    {
        const QPointF place = m_picture->mapToGlobal(QPointF(-m_dragged, 0));
        QMouseEvent event(type, receiver.mapFromGlobal(place), place, button, Qt::MiddleButton, {});
        QApplication::sendEvent(&receiver, &event);
    }

    BenchWindow m_window;
    TimelinePanel& m_panel;
    QWidget* m_picture;
    bool m_forward = false;
    int m_dragged = 0; ///< to the left, in pixels
};

void measure(benchmark::State& state, void (BenchTimeline::*frame)())
{
    BenchTimeline timeline(static_cast<int>(state.range(0)), static_cast<Place>(state.range(1)),
                           static_cast<int>(state.range(2)));
    std::vector<double> times;
    for (auto _ : state) {
        times.push_back(timeOf([&] { (timeline.*frame)(); }).count());
        state.SetIterationTime(times.back() / 1000);
    }
    state.counters["median_ms"] = medianOf(times);
    state.counters["slowest_ms"] = *std::max_element(times.begin(), times.end());
    state.counters["events"] = static_cast<double>(timeline.hits());
}

void refresh(benchmark::State& state)
{
    measure(state, &BenchTimeline::refresh);
}

void drag(benchmark::State& state)
{
    measure(state, &BenchTimeline::drag);
}

void goToLane(benchmark::State& state)
{
    measure(state, &BenchTimeline::goToLane);
}

void statement(benchmark::State& state)
{
    const int events = static_cast<int>(state.range(0));
    BenchTimeline timeline(events, static_cast<Place>(state.range(1)), static_cast<int>(state.range(2)));
    const QString ours = timeline.statement();
    const QString plain = plainStatement(ours);
    std::int64_t plainRows = 0;
    std::int64_t ourRows = 0;
    compare(
        state, [&] { plainRows = stepPlain(largeDatabase(events), plain); },
        [&] {
            RecordSet rows = timeline.session().read(ours);
            for (ourRows = 0; rows.next();)
                ++ourRows;
        });
    if (plainRows != ourRows) state.SkipWithError("the numbers of rows differ");
    state.counters["rows"] = static_cast<double>(ourRows);
}

/// The band as it is first seen of a view: its statement, its layout and its painting.
void firstBand(benchmark::State& state)
{
    BenchTimeline timeline(static_cast<int>(state.range(0)), Beginning, 0);
    const SQLObject& view = timeline.view();
    TimelineBand& band = timeline.band();
    std::vector<double> times;
    std::vector<double> statements;
    for (auto _ : state) {
        qint64 events = 0;
        statements.push_back(timeOf([&] {
                                 const EventDensity density = EventDensity::read(timeline.session(), view);
                                 for (const EventDensity::Day& day : density.days())
                                     events += day.events;
                             }).count());
        times.push_back(timeOf([&] { timeline.drawView(); }).count());
        if (events != band.parts().events()) state.SkipWithError("the band lacks events");
        state.SetIterationTime(times.back() / 1000);
    }
    state.counters["median_ms"] = medianOf(times);
    state.counters["statement_ms"] = medianOf(statements);
}

/// A frame of dragging the box over the whole band: the window moved, its events read, all painted.
void dragBand(benchmark::State& state)
{
    BenchTimeline timeline(static_cast<int>(state.range(0)), Beginning, static_cast<int>(state.range(1)));
    TimelineBand& band = timeline.band();
    const BandBox box = band.scale().boxOf(timeline.panel().timeline().window());
    double at = (box.left + box.right) / 2;
    const double step = (band.width() - at) / 100;
    timeline.mouse(QEvent::MouseButtonPress, at);
    std::vector<double> times;
    for (auto _ : state) {
        at += step;
        times.push_back(timeOf([&] {
                            timeline.mouse(QEvent::MouseMove, at);
                            timeline.panel().repaint();
                        }).count());
        state.SetIterationTime(times.back() / 1000);
    }
    timeline.mouse(QEvent::MouseButtonRelease, at);
    state.counters["median_ms"] = medianOf(times);
    state.counters["slowest_ms"] = *std::max_element(times.begin(), times.end());
}

void places(benchmark::internal::Benchmark* benchmark, const std::vector<std::int64_t>& sizes)
{
    benchmark->ArgNames({"events", "place", "level"})
        ->ArgsProduct({sizes, {Beginning, Middle, End}, {0, 4, 7}})
        ->Unit(benchmark::kMillisecond)
        ->UseManualTime();
}

} // namespace

BENCHMARK(refresh)->Apply([](auto* benchmark) { places(benchmark, {1000, 8000, 32000}); }) -> Iterations(100);
BENCHMARK(statement)->Apply([](auto* benchmark) {
                        places(benchmark, {1000, 8000, 32000});
                    }) -> Iterations(20);
BENCHMARK(statement)->Apply([](auto* benchmark) { places(benchmark, {1000000}); }) -> Iterations(3);
BENCHMARK(firstBand)
    ->ArgName("events")
    ->Arg(32000)
    ->Arg(1000000)
    ->Unit(benchmark::kMillisecond)
    ->UseManualTime()
    ->Iterations(5);
BENCHMARK(dragBand)
    ->ArgNames({"events", "level"})
    ->ArgsProduct({{32000, 1000000}, {0, 4, 7}})
    ->Unit(benchmark::kMillisecond)
    ->UseManualTime()
    ->Iterations(100);
BENCHMARK(drag)->Apply([](auto* benchmark) { places(benchmark, {32000, 1000000}); }) -> Iterations(100);
BENCHMARK(goToLane)->Apply([](auto* benchmark) { places(benchmark, {32000, 1000000}); }) -> Iterations(100);

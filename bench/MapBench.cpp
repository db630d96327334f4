// SPDX-License-Identifier: GPL-3.0-or-later

// The map of the organizations: reading its places beside SQLite's own time for the same statements, and
// the redraw of states and markers at rest, while dragging and at every step of a zoom.

#include "BenchWindow.h"
#include "browse/window/frmMain.h"
#include "map/MapPane.h"
#include "map/MapView.h"
#include "map/OrganizationPlaces.h"

#include <QApplication>
#include <QMouseEvent>
#include <QWheelEvent>

#include <algorithm>
#include <cmath>

namespace {

constexpr int fullSize = 32000;
constexpr int markersAtFullSize = 19455;
constexpr QSize wholeScreen(1600, 1000);

/// The clauses without the table names that plain views do not know.
QString plainClauses(const SQLObject& query)
{
    return QString(query.FromClause + u' ' + query.WhereClause).remove(QStringLiteral("Organization."));
}

/// The statements of one drawing of the map, as SQLite alone runs them.
QStringList statementsOf(const SQLObject& query, const std::vector<clsCities>& places)
{
    const QString clauses = plainClauses(query);
    QStringList statements{QStringLiteral("SELECT DISTINCT FunctionID ") + clauses +
                           QStringLiteral(" AND Lat IS NOT NULL")};
    std::vector<qint64> functions;
    for (const clsCities& place : places) {
        const qint64 function = place.functionId.value_or(0);
        if (!functions.empty() && functions.back() == function) continue;
        functions.push_back(function);
        statements << QStringLiteral("SELECT DISTINCT FunctionName, LocationID, Lat, Lon, City, State ") +
                          clauses + QStringLiteral(" AND FunctionID = %1 AND Lat IS NOT NULL").arg(function);
    }
    return statements;
}

void drawMap(benchmark::State& state)
{
    BenchWindow window(fullSize);
    ProgramState& program = window.program().state();
    const SharedQuery query = program.queries.organizations;
    program.history.addView({ViewKind::Organizations, query, QStringLiteral("All")});
    auto* pane = window.program().window()->findChild<MapPane*>(QStringLiteral("MapPane"));
    OrganizationPlaces places(program.session);
    places.read(query, query);
    const QStringList statements = statementsOf(*query, places.entries());
    std::int64_t rows = 0;
    compare(
        state,
        [&] {
            rows = 0;
            for (const QString& statement : statements)
                rows += stepPlain(largeDatabase(fullSize), statement);
        },
        [&] { pane->drawMap(); });
    state.counters["statements"] = static_cast<double>(statements.size());
    state.counters["rows"] = static_cast<double>(rows);
    state.counters["entries"] = static_cast<double>(places.entries().size());
}

/// A map of its own with markers all over the states, each at a place of its own.
class FullMap
{
public:
    explicit FullMap(int markers = 5000) : FullMap(allOver(markers)) {}

    explicit FullMap(const std::vector<clsCities>& places) : m_view(nullptr)
    {
        m_view.setStates(StatesLayer(ShapeFile::read(QStringLiteral(ORVIK_STATES))));
        m_view.setPlaces(places);
        m_view.resize(wholeScreen);
        m_view.show();
        QApplication::processEvents();
    }

    MapView& view() { return m_view; }
    void repaint() { m_view.repaint(); }

private:
    static std::vector<clsCities> allOver(int markers)
    {
        std::vector<clsCities> places;
        constexpr int columns = 100;
        for (int i = 0; i < markers; ++i) {
            clsCities place;
            place.functionId = i % 30;
            const int row = i / columns;
            place.lat = 25 + 24.0 * row * columns / markers;
            place.lon = -124 + 57.0 * (i % columns) / columns;
            place.colour = clsCities::colourOf(place.functionId);
            place.organizations = 1;
            places.push_back(place);
        }
        return places;
    }

    MapView m_view;
};

void turnWheel(MapView& view, QPointF at, int turned)
{
    QWheelEvent event(at, view.mapToGlobal(at), {}, {0, turned}, Qt::NoButton, Qt::NoModifier,
                      Qt::NoScrollPhase, false);
    QApplication::sendEvent(&view, &event);
}

/// Times a redraw after each change of the map, and reports the median.
void timeRedraws(benchmark::State& state, FullMap& map, const std::function<void(int)>& change)
{
    std::vector<double> times;
    int step = 0;
    for (auto _ : state) {
        times.push_back(timeOf([&] {
                            change(step++);
                            map.repaint();
                        }).count());
        state.SetIterationTime(times.back() / 1000);
    }
    state.counters["median_ms"] = medianOf(times);
    state.counters["slowest_ms"] = *std::max_element(times.begin(), times.end());
}

void redraw(benchmark::State& state)
{
    FullMap map;
    timeRedraws(state, map, [](int) {});
}

/// Drags the map round in wide circles, nine pixels at a time.
void redrawDragging(benchmark::State& state)
{
    FullMap map;
    QPointF position(800, 500);
    const auto send = [&](QEvent::Type type) {
        const auto buttons = type == QEvent::MouseButtonRelease ? Qt::NoButton : Qt::LeftButton;
        QMouseEvent event(type, position, map.view().mapToGlobal(position),
                          type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton, buttons, Qt::NoModifier);
        QApplication::sendEvent(&map.view(), &event);
    };
    send(QEvent::MouseButtonPress);
    timeRedraws(state, map, [&](int step) {
        constexpr double turn = 0.03;
        position += QPointF(9 * std::cos(step * turn), 9 * std::sin(step * turn)).toPoint();
        send(QEvent::MouseMove);
    });
    send(QEvent::MouseButtonRelease);
}

/// Each step draws borders and names anew.
void redrawZooming(benchmark::State& state)
{
    FullMap map;
    timeRedraws(state, map, [&](int step) {
        if (step / 4 % 2 == 0)
            map.view().zoomIn();
        else
            map.view().zoomOut();
    });
}

/// Zooms from the whole map into the densest disc and back, with all organizations in groups: each step joins
/// them anew and draws borders, names and discs.
void redrawGroups(benchmark::State& state)
{
    BenchWindow window(fullSize);
    ProgramState& program = window.program().state();
    const SharedQuery query = program.queries.organizations;
    OrganizationPlaces places(program.session);
    places.read(query, query);
    FullMap map(places.entries());
    map.view().setGrouped(true);
    const std::vector<std::size_t>& leads = map.view().markers().leads();
    const QPointF densest = map.view().positionOf(*std::ranges::max_element(
        leads, {}, [&](std::size_t lead) { return map.view().markers().members(lead).size(); }));
    timeRedraws(state, map, [&](int step) {
        constexpr int stepsIn = 28; // of a quarter of a doubling each
        turnWheel(map.view(), densest, step % (2 * stepsIn) < stepsIn ? 60 : -60);
    });
    state.counters["organizations"] = static_cast<double>(places.placed());
    state.counters["entries"] = static_cast<double>(places.entries().size());
}

/// Turns the wheel in at a place and out again, from all states with their insets, with a marker at each of
/// as many places as at full size. Each step draws borders, names and insets anew.
void redrawTurningTheWheel(benchmark::State& state)
{
    FullMap map(markersAtFullSize);
    const QPointF position(700, 450);
    timeRedraws(state, map, [&](int step) {
        constexpr int stepsIn = 8;
        const int phase = step % (2 * stepsIn);
        if (phase == 0) map.view().showFullExtent();
        turnWheel(map.view(), position, phase < stepsIn ? 120 : -120);
    });
}

void readStates(benchmark::State& state)
{
    for (auto _ : state) {
        const StatesLayer layer(ShapeFile::read(QStringLiteral(ORVIK_STATES)));
        benchmark::DoNotOptimize(layer.states().size());
    }
}

} // namespace

BENCHMARK(drawMap)->Unit(benchmark::kMillisecond)->UseManualTime()->MinTime(4);
BENCHMARK(redraw)->Unit(benchmark::kMillisecond)->UseManualTime()->Iterations(200);
BENCHMARK(redrawDragging)->Unit(benchmark::kMillisecond)->UseManualTime()->Iterations(400);
BENCHMARK(redrawZooming)->Unit(benchmark::kMillisecond)->UseManualTime()->Iterations(64);
BENCHMARK(redrawGroups)->Unit(benchmark::kMillisecond)->UseManualTime()->Iterations(224);
BENCHMARK(redrawTurningTheWheel)->Unit(benchmark::kMillisecond)->UseManualTime()->Iterations(64);
BENCHMARK(readStates)->Unit(benchmark::kMillisecond);

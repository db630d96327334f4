// SPDX-License-Identifier: GPL-3.0-or-later

// The three lists, from their beginning to the last row in the model, painting included, beside what
// SQLite alone takes to step the same statement over the stored queries as plain views. The chart of the
// documents and the timeline of the events, which are drawn before their lists, have figures of their own;
// `from_call_ms` counts them in.

#include "BenchWindow.h"
#include "LastRow.h"
#include "browse/list/RecordListModel.h"
#include "browse/window/frmMain.h"
#include "chart/ChartPane.h"

#include <QApplication>
#include <QEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QTreeView>

#include <algorithm>

namespace {

constexpr int fullSize = 32000;

/// The statement without the table names that plain views do not know.
QString withoutQualifiers(const SQLObject& query)
{
    QString statement = query.sqlStr();
    for (const char16_t* table : {u"Document.", u"Event.", u"Organization."}) {
        statement.remove(QStringView(table).toString());
    }
    return statement;
}

void showList(benchmark::State& state, RecordKind kind, int records)
{
    BenchWindow window(records);
    ProgramState& program = window.program().state();
    const SharedQuery query = program.queries.of(kind);
    const QString plain = withoutQualifiers(*query);
    const auto* view = window.program().window()->findChild<QTreeView*>(QStringLiteral("ListView1"));
    const LastRow lastRow(*view->model());
    std::vector<double> wholeTimes;
    const auto show = [&] {
        const auto begin = std::chrono::steady_clock::now();
        program.history.addView({viewOf(kind), query, QStringLiteral("All")});
        wholeTimes.push_back(lastRow.since(begin).count());
        return lastRow.ofList();
    };
    show(); // makes the graphic, as the first view of a kind does
    std::int64_t rows = 0;
    compareTimed(
        state, [&] { return timeOf([&] { rows = stepPlain(largeDatabase(records), plain); }); }, show);
    if (view->model()->rowCount() != rows) state.SkipWithError("the list has other rows than the statement");
    state.counters["from_call_ms"] = medianOf(wholeTimes);
    state.counters["us_per_row"] = state.counters["ours_ms"] * 1000 / static_cast<double>(rows);
}

void documents(benchmark::State& state)
{
    showList(state, RecordKind::Document, static_cast<int>(state.range(0)));
}

void events(benchmark::State& state)
{
    showList(state, RecordKind::Event, static_cast<int>(state.range(0)));
}

void organizations(benchmark::State& state)
{
    showList(state, RecordKind::Organization, static_cast<int>(state.range(0)));
}

/// Notes when a widget has painted rows.
class FirstPaint final : public QObject
{
public:
    explicit FirstPaint(QTreeView& view) : m_view(view) { view.viewport()->installEventFilter(this); }

    void begin() { m_painted = false; }
    [[nodiscard]] std::chrono::steady_clock::time_point moment() const { return m_moment; }
    [[nodiscard]] bool painted() const { return m_painted; }

    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() == QEvent::Paint && !m_painted && m_view.model()->rowCount() > 0) {
            m_painted = true;
            m_moment = std::chrono::steady_clock::now();
        }
        return QObject::eventFilter(watched, event);
    }

private:
    QTreeView& m_view;
    bool m_painted = false;
    std::chrono::steady_clock::time_point m_moment;
};

/// From the statement's first row, which is when the session gives it, to the first screenful painted. The
/// moment of the first row is taken from drawing the chart and reading the same statement just before.
void firstScreenful(benchmark::State& state)
{
    BenchWindow window(fullSize);
    ProgramState& program = window.program().state();
    auto* view = window.program().window()->findChild<QTreeView*>(QStringLiteral("ListView1"));
    FirstPaint paint(*view);
    const SharedQuery query = program.queries.documents;
    program.history.addView({ViewKind::Documents, query, QStringLiteral("All")});
    auto* chart = window.program().window()->findChild<ChartPane*>();
    std::vector<double> waits;
    for (auto _ : state) {
        const auto firstRow = timeOf([&] {
            chart->drawCharts();
            program.session.read(query->sqlStr()).next();
        });
        paint.begin();
        const auto begin = std::chrono::steady_clock::now();
        program.history.addView({ViewKind::Documents, query, QStringLiteral("All")});
        if (!paint.painted()) QApplication::processEvents();
        waits.push_back((Milliseconds(paint.moment() - begin) - firstRow).count());
        state.SetIterationTime(waits.back() / 1000);
    }
    state.counters["first_screenful_ms"] = medianOf(waits);
}

/// From each key of two words in the field above a full list to the list painted, in the steps of a user who
/// waits for each. The first one makes the texts that words are compared with.
void keyToList(benchmark::State& state)
{
    const auto kind = static_cast<RecordKind>(state.range(0));
    BenchWindow window(fullSize);
    ProgramState& program = window.program().state();
    auto* view = window.program().window()->findChild<QTreeView*>(QStringLiteral("ListView1"));
    auto* field = window.program().window()->findChild<QLineEdit*>(QStringLiteral("txtFilter"));
    FirstPaint paint(*view);
    std::vector<double> firsts;
    std::vector<double> others;
    for (auto _ : state) {
        program.history.addView({viewOf(kind), program.queries.of(kind), QStringLiteral("All")});
        QApplication::processEvents();
        double whole = 0;
        for (const QChar key : QStringLiteral("on 12")) {
            paint.begin();
            const auto begin = std::chrono::steady_clock::now();
            QKeyEvent press(QEvent::KeyPress, 0, Qt::NoModifier, QString(key));
            QApplication::sendEvent(field, &press);
            if (view->model()->rowCount() == 0) return state.SkipWithError("nothing is left to be painted");
            QApplication::processEvents();
            const double wait = Milliseconds(std::chrono::steady_clock::now() - begin).count();
            // a key that changes nothing, as the blank, has nothing painted
            if (!paint.painted()) continue;
            (whole == 0 ? firsts : others).push_back(wait);
            whole += wait;
        }
        state.SetIterationTime(whole / 1000);
    }
    state.counters["first_key_ms"] = medianOf(firsts);
    state.counters["key_ms"] = medianOf(others);
    state.counters["slowest_ms"] = std::max(*std::max_element(firsts.begin(), firsts.end()),
                                            *std::max_element(others.begin(), others.end()));
}

} // namespace

BENCHMARK(documents)
    ->Arg(fullSize)
    ->Arg(1000)
    ->Arg(8000)
    ->Unit(benchmark::kMillisecond)
    ->UseManualTime()
    ->MinTime(1);
BENCHMARK(events)
    ->Arg(fullSize)
    ->Arg(1000)
    ->Arg(8000)
    ->Unit(benchmark::kMillisecond)
    ->UseManualTime()
    ->MinTime(1);
BENCHMARK(organizations)
    ->Arg(fullSize)
    ->Arg(1000)
    ->Arg(8000)
    ->Unit(benchmark::kMillisecond)
    ->UseManualTime()
    ->MinTime(1);
BENCHMARK(keyToList)->DenseRange(0, 2)->Unit(benchmark::kMillisecond)->UseManualTime()->Iterations(20);
BENCHMARK(firstScreenful)->Unit(benchmark::kMillisecond)->UseManualTime()->Iterations(20);
BENCHMARK(documents)->Arg(1000000)->Unit(benchmark::kMillisecond)->UseManualTime()->Iterations(1);
BENCHMARK(events)->Arg(1000000)->Unit(benchmark::kMillisecond)->UseManualTime()->Iterations(1);
BENCHMARK(organizations)->Arg(1000000)->Unit(benchmark::kMillisecond)->UseManualTime()->Iterations(1);

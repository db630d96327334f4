// SPDX-License-Identifier: GPL-3.0-or-later

// The graphic after the last key of a filter, until it is painted, with the pause for which it waits, and
// after the filter was taken away.

#include "BenchWindow.h"
#include "browse/list/ListPane.h"
#include "browse/window/frmMain.h"

#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>

#include <algorithm>
#include <array>

namespace {

constexpr int fullSize = 32000;

/// From nearly all records down to a few. Each narrows every kind, as the names of all records end with their
/// number.
const std::array words{"-1234", "-5", "5", "12", "1234"};

void press(QWidget& field, int key, const QString& text)
{
    for (const QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease}) {
        QKeyEvent event(type, key, Qt::NoModifier, text);
        QApplication::sendEvent(&field, &event);
    }
}

/// Waits until the graphic reads another query than before, and is painted.
void waitForGraphic(BenchWindow& window, const SharedQuery& before)
{
    const ViewHistory& history = window.program().state().history;
    while (history.graphicQuery() == before)
        QApplication::processEvents(QEventLoop::WaitForMoreEvents);
    QApplication::processEvents();
}

void key(benchmark::State& state)
{
    const RecordKind kind = recordKinds.at(static_cast<std::size_t>(state.range(0)));
    BenchWindow window(fullSize);
    ProgramState& program = window.program().state();
    program.history.addView({viewOf(kind), program.queries.of(kind), QStringLiteral("All")});
    QApplication::processEvents();
    auto& field = *window.program().window()->findChild<QLineEdit*>(QStringLiteral("txtFilter"));
    const auto& list = *window.program().window()->findChild<ListPane*>();
    std::vector<double> narrowed;
    std::vector<double> whole;
    for (auto _ : state) {
        const auto timed = [&](int last, const QString& text) {
            const SharedQuery before = program.history.graphicQuery();
            return timeOf([&] {
                       press(field, last, text);
                       waitForGraphic(window, before);
                   })
                .count();
        };
        const QString typed = QString::fromLatin1(words.at(static_cast<std::size_t>(state.range(1))));
        field.setFocus();
        for (const QChar letter : typed.chopped(1))
            press(field, 0, letter);
        narrowed.push_back(timed(0, typed.last(1)));
        state.counters["left"] = static_cast<double>(list.count());
        whole.push_back(timed(Qt::Key_Escape, {}));
        state.SetIterationTime(narrowed.back() / 1000);
    }
    state.counters["median_ms"] = medianOf(narrowed);
    state.counters["slowest_ms"] = *std::max_element(narrowed.begin(), narrowed.end());
    state.counters["taken_away_ms"] = medianOf(whole);
}

} // namespace

BENCHMARK(key)
    ->ArgNames({"kind", "words"})
    ->ArgsProduct({{0, 1, 2}, {0, 1, 2, 3, 4}})
    ->Unit(benchmark::kMillisecond)
    ->UseManualTime()
    ->Iterations(10);

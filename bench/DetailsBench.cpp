// SPDX-License-Identifier: GPL-3.0-or-later

// The details beside the list: from an arrow key to the record's page, painted, beside what the key takes
// without details; and how late the keys come to their list while one is held down.

#include "BenchWindow.h"
#include "browse/window/frmMain.h"

#include <QAction>
#include <QApplication>
#include <QKeyEvent>
#include <QTextBrowser>
#include <QTimer>
#include <QTreeView>

#include <algorithm>

namespace {

constexpr int fullSize = 32000;

/// The window with a list of full size and, if they are wanted, the details.
class DetailsWindow
{
public:
    DetailsWindow(RecordKind kind, bool hasDetails) : m_window(fullSize)
    {
        m_list = m_window.program().window()->findChild<QTreeView*>(QStringLiteral("ListView1"));
        ProgramState& program = m_window.program().state();
        program.history.addView({viewOf(kind), program.queries.of(kind), QStringLiteral("All")});
        if (!hasDetails) return;
        m_window.program().window()->findChild<QAction*>(QStringLiteral("mnuViewDetails"))->trigger();
        m_page = m_window.program().window()->findChild<QTextBrowser*>(QStringLiteral("txtDetails"));
        QObject::connect(m_page, &QTextBrowser::textChanged, m_page, [this] { m_isShown = true; });
    }

    /// Goes to the next row.
    void pressDown()
    {
        QKeyEvent press(QEvent::KeyPress, Qt::Key_Down, Qt::NoModifier);
        QApplication::sendEvent(m_list, &press);
    }

    /// The time until the next row is painted and, with details, its record, after a moment of rest.
    Milliseconds next()
    {
        const auto end = std::chrono::steady_clock::now() + std::chrono::milliseconds(100);
        while (std::chrono::steady_clock::now() < end)
            QApplication::processEvents(QEventLoop::AllEvents, 1);
        return timeOf([this] {
            m_isShown = m_page == nullptr;
            pressDown();
            m_list->viewport()->repaint();
            while (!m_isShown)
                QApplication::processEvents(QEventLoop::WaitForMoreEvents);
            if (m_page != nullptr) m_page->viewport()->repaint();
        });
    }

private:
    BenchWindow m_window;
    QTreeView* m_list = nullptr;
    QTextBrowser* m_page = nullptr; ///< null without details
    bool m_isShown = false;
};

void rowToPage(benchmark::State& state, RecordKind kind)
{
    DetailsWindow plain(kind, false);
    DetailsWindow details(kind, true);
    double longest = 0;
    compareTimed(
        state, [&] { return plain.next(); },
        [&] {
            const Milliseconds taken = details.next();
            longest = std::max(longest, taken.count());
            return taken;
        });
    state.counters["longest_ms"] = longest;
}

/// How much later than it is due the latest of many keys comes, of a key that repeats itself so many times a
/// second.
void heldKey(benchmark::State& state, bool hasDetails)
{
    constexpr int keys = 100;
    DetailsWindow window(RecordKind::Document, hasDetails);
    const auto interval = std::chrono::milliseconds(1000 / state.range(0));
    double latest = 0;
    for (auto _ : state) {
        const auto begin = std::chrono::steady_clock::now();
        for (int key = 1; key <= keys; ++key) {
            const auto due = begin + key * interval;
            while (std::chrono::steady_clock::now() < due)
                QApplication::processEvents(QEventLoop::AllEvents, 1);
            const Milliseconds late = std::chrono::steady_clock::now() - due;
            latest = std::max(latest, late.count());
            window.pressDown();
        }
    }
    state.counters["late_ms"] = latest;
}

} // namespace

BENCHMARK_CAPTURE(rowToPage, documents, RecordKind::Document)
    ->Unit(benchmark::kMillisecond)
    ->UseManualTime()
    ->MinTime(2);
BENCHMARK_CAPTURE(rowToPage, events, RecordKind::Event)
    ->Unit(benchmark::kMillisecond)
    ->UseManualTime()
    ->MinTime(2);
BENCHMARK_CAPTURE(rowToPage, organizations, RecordKind::Organization)
    ->Unit(benchmark::kMillisecond)
    ->UseManualTime()
    ->MinTime(2);
BENCHMARK_CAPTURE(heldKey, plain, false)->Arg(20)->Arg(30)->Iterations(1)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(heldKey, details, true)->Arg(20)->Arg(30)->Iterations(1)->Unit(benchmark::kMillisecond);

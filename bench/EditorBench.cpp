// SPDX-License-Identifier: GPL-3.0-or-later

// The editors and the pick list on a database of full size, from the command to the dialog painted, beside
// what SQLite alone takes to step the names of all organizations.

#include "BenchWindow.h"
#include "browse/window/frmMain.h"
#include "editors/EntryCombo.h"
#include "editors/RecordEditors.h"
#include "editors/frmPicList.h"
#include "lists/NewEntries.h"
#include "map/frmPosition.h"

#include <QApplication>

namespace {

constexpr int fullSize = 32000;

QString allNames()
{
    return QStringLiteral("SELECT OrganizationName, OrganizationID FROM Organization "
                          "WHERE OrganizationID > 1 ORDER BY OrganizationName COLLATE NOCASE");
}

void compareToShown(benchmark::State& state, const std::function<void()>& open)
{
    std::vector<double> plain;
    std::vector<double> ours;
    for (auto _ : state) {
        plain.push_back(timeOf([] { stepPlain(largeDatabase(fullSize), allNames()); }).count());
        ours.push_back(timeToShown(open).count());
        state.SetIterationTime(ours.back() / 1000);
    }
    state.counters["names_ms"] = medianOf(plain);
    state.counters["shown_ms"] = medianOf(ours);
    state.counters["ratio"] = medianOf(ours) / medianOf(plain);
}

void openEditor(benchmark::State& state, RecordKind kind)
{
    BenchWindow window(fullSize);
    ProgramState& program = window.program().state();
    MapPositionPicker positions(window.platform(), program.folder);
    const NewEntries newEntries(window.platform(), program.session, positions);
    RecordEditors editors(window.platform(), program.session, newEntries, program.folder,
                          *window.program().window());
    compareToShown(state, [&] { editors.view(kind, fullSize / 2); });
}

void documentEditor(benchmark::State& state)
{
    openEditor(state, RecordKind::Document);
}

void eventEditor(benchmark::State& state)
{
    openEditor(state, RecordKind::Event);
}

void organizationEditor(benchmark::State& state)
{
    openEditor(state, RecordKind::Organization);
}

void pickList(benchmark::State& state)
{
    BenchWindow window(fullSize);
    PickedItems chosen;
    compareToShown(state, [&] {
        frmPicList(window.platform(), window.program().state().session, nullptr)
            .showList(PickListKind::Organizations, chosen);
    });
}

/// From the key to the open drop-down of all organizations.
void dropDown(benchmark::State& state)
{
    std::vector<ListEntry> entries;
    entries.reserve(fullSize);
    for (int i = 0; i < fullSize; ++i)
        entries.push_back({QStringLiteral("Organization %1 of some county").arg(i), i + 2});
    EntryCombo combo(EntryCombo::Kind::Searching, nullptr);
    combo.fill(entries);
    combo.show();
    for (auto _ : state) {
        combo.showPopup();
        QApplication::processEvents();
        state.PauseTiming();
        combo.hidePopup();
        state.ResumeTiming();
    }
}

} // namespace

BENCHMARK(documentEditor)->Unit(benchmark::kMillisecond)->UseManualTime()->MinTime(2);
BENCHMARK(eventEditor)->Unit(benchmark::kMillisecond)->UseManualTime()->MinTime(2);
BENCHMARK(organizationEditor)->Unit(benchmark::kMillisecond)->UseManualTime()->MinTime(2);
BENCHMARK(pickList)->Unit(benchmark::kMillisecond)->UseManualTime()->MinTime(2);
BENCHMARK(dropDown)->Unit(benchmark::kMillisecond);

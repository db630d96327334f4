// SPDX-License-Identifier: GPL-3.0-or-later

// What the journal costs: a save beside one that is not noted, and saves, lists and
// searches with 1,000,000 steps in the journal beside the same with an empty one. Then how long the windows
// of the past take to be painted, with that journal. All full size.

#include "BenchWindow.h"
#include "LongJournal.h"
#include "Saves.h"
#include "data/HeldRows.h"
#include "history/frmDeletedRecords.h"
#include "history/frmHistory.h"
#include "journal/UndoSteps.h"
#include "search/KeywordSearch.h"

#include <QDir>
#include <QFile>

namespace {

constexpr int fullSize = 31000; // identifiers end at 32767, and each save may add one
constexpr int saves = 200;
constexpr int reads = 20;
constexpr int steps = 1'000'000;

/// A copy of the large database in a folder of its own.
class Copy
{
public:
    explicit Copy(const std::function<void(const QString& file)>& prepare = {})
    {
        QDir().mkpath(m_folder.filePath(QStringLiteral("data/documents")));
        QFile::copy(largeDatabase(fullSize), file());
        if (prepare) prepare(file());
        QFile document(m_folder.filePath(QStringLiteral("report.pdf")));
        if (document.open(QIODevice::WriteOnly)) document.write(QByteArray(200000, 'x'));
        state.session.open(file());
    }

    [[nodiscard]] std::function<bool()> saving(RecordKind kind, bool adds)
    {
        return Saves::saving(state, m_clock, m_folder.filePath(QStringLiteral("report.pdf")), kind, adds);
    }

    std::int64_t count(const QString& statement)
    {
        RecordSet rows = state.session.read(statement);
        std::int64_t count = 0;
        while (rows.next())
            ++count;
        return count;
    }

private:
    [[nodiscard]] QString file() const { return m_folder.filePath(QStringLiteral("data/large.sqlite")); }

    QTemporaryDir m_folder;
    SystemClock m_clock;

public:
    ProgramState state{ProgramFolder(m_folder.path())};
};

void compareSaves(benchmark::State& state, Copy& plain, Copy& ours, RecordKind kind, bool adds)
{
    const auto timed = [&](Copy& copy) {
        return [&state, save = copy.saving(kind, adds)] {
            if (!save()) state.SkipWithError("the save was refused");
        };
    };
    compare(state, timed(plain), timed(ours));
}

void saveWithJournal(benchmark::State& state, RecordKind kind, bool adds)
{
    Copy without;
    without.state.session.stopJournal();
    Copy with;
    compareSaves(state, without, with, kind, adds);
    const auto stepsOf = [](Copy& copy) {
        return HeldRows(copy.state.session).read(QStringLiteral("SELECT Number FROM Journal")).size();
    };
    if (stepsOf(without) != 0 || stepsOf(with) != saves)
        state.SkipWithError("the journal is not what it should be");
}

/// The same database with an empty journal and with a long one.
struct Journals
{
    Copy empty;
    Copy full{[](const QString& file) { addToJournal(file, steps); }};
};

Journals& journals()
{
    static Journals made;
    return made;
}

void saveWithLongJournal(benchmark::State& state, RecordKind kind, bool adds)
{
    compareSaves(state, journals().empty, journals().full, kind, adds);
}

void compareReading(benchmark::State& state, const QString& statement)
{
    std::int64_t plain = 0;
    std::int64_t ours = 0;
    compare(
        state, [&] { plain = journals().empty.count(statement); },
        [&] { ours = journals().full.count(statement); });
    if (plain != ours) state.SkipWithError("the two read other rows");
    state.counters["rows"] = static_cast<double>(ours);
}

void listWithLongJournal(benchmark::State& state, RecordKind kind)
{
    compareReading(state, StandardQueries().of(kind)->sqlStr());
}

void searchWithLongJournal(benchmark::State& state, RecordKind kind)
{
    const QStringList words{QStringLiteral("fairwood"), QStringLiteral("drought")};
    compareReading(state, keywordQuery(StandardQueries(), kind, words)->sqlStr());
}

void undoWithLongJournal(benchmark::State& state)
{
    const SystemClock clock;
    const auto undoable = [&](Copy& copy) {
        return [&state, steps = UndoSteps(copy.state.session, clock, copy.state.folder)] {
            if (!steps.undoable()) state.SkipWithError("there is nothing to undo");
        };
    };
    compare(state, undoable(journals().empty), undoable(journals().full));
}

void measureShown(benchmark::State& state, const std::function<void()>& open)
{
    std::vector<double> shown;
    for (auto _ : state) {
        shown.push_back(timeToShown(open).count());
        state.SetIterationTime(shown.back() / 1000);
    }
    state.counters["shown_ms"] = medianOf(shown);
}

/// A document that was changed hundreds of times.
void historyOfRecord(benchmark::State& state)
{
    const BenchWindow window(2);
    Copy& copy = journals().full;
    measureShown(state, [&] {
        frmHistory(window.platform(), copy.state.session, copy.state.folder, nullptr)
            .showHistory(RecordKind::Document, 2);
    });
}

void deletedRecords(benchmark::State& state, RecordKind kind)
{
    const BenchWindow window(2);
    static Copy copy([](const QString& file) {
        addToJournal(file, steps);
        deleteAll(file);
    });
    measureShown(state, [&] {
        frmDeletedRecords({window.platform(), copy.state.session, {}, {}}, nullptr).showDeleted(kind);
    });
}

template <typename... Arguments>
void add(const char* name, int iterations, void (*run)(benchmark::State&, Arguments...),
         Arguments... arguments)
{
    benchmark::RegisterBenchmark(name, run, arguments...)
        ->Unit(benchmark::kMillisecond)
        ->UseManualTime()
        ->Iterations(iterations);
}

const bool registered = [] {
    for (const RecordKind kind : recordKinds) {
        const std::string name = recordNames(kind).record.toStdString();
        add(("save/add/" + name).c_str(), saves, saveWithJournal, kind, true);
        add(("save/change/" + name).c_str(), saves, saveWithJournal, kind, false);
    }
    for (const RecordKind kind : recordKinds) {
        const std::string name = recordNames(kind).record.toStdString();
        add(("long/list/" + name).c_str(), reads, listWithLongJournal, kind);
        add(("long/search/" + name).c_str(), reads, searchWithLongJournal, kind);
        add(("long/add/" + name).c_str(), saves, saveWithLongJournal, kind, true);
        add(("long/change/" + name).c_str(), saves, saveWithLongJournal, kind, false);
        add(("shown/deleted/" + name).c_str(), reads, deletedRecords, kind);
    }
    add("long/undoable", saves, undoWithLongJournal);
    add("shown/history", reads, historyOfRecord);
    return true;
}();

} // namespace

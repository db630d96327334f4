// SPDX-License-Identifier: GPL-3.0-or-later

// The check of a collection's structure beside SQLite's own check of the same file, and the memory that it
// takes.

#include "check/CollectionCheck.h"
#include "data/DatabaseSession.h"
#include "files/ProgramFolder.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <cstdlib>

namespace {

using Milliseconds = std::chrono::duration<double, std::milli>;

/// A collection with so many records of each kind, and a small file for every document.
class LargeCollection
{
public:
    explicit LargeCollection(int records)
    {
        QDir().mkpath(m_folder.filePath(QStringLiteral("data/documents")));
        QProcess::execute(
            QStringLiteral(ORVIK_LARGE),
            {QStringLiteral(ORVIK_SCHEMA), QStringLiteral(ORVIK_CITIES), file(), QString::number(records)});
        DatabaseSession session;
        session.open(file(), Access::Read);
        RecordSet names =
            session.read(QStringLiteral("SELECT FileLocation FROM Document WHERE FileLocation <> ''"));
        while (names.next()) {
            QFile document(m_folder.filePath(QStringLiteral("data/documents/")) + names.text(0));
            if (!document.open(QIODevice::WriteOnly) || document.write("x") != 1) std::abort();
        }
    }

    [[nodiscard]] QString file() const { return m_folder.filePath(QStringLiteral("data/large.sqlite")); }
    [[nodiscard]] ProgramFolder folder() const { return ProgramFolder(m_folder.path()); }

private:
    QTemporaryDir m_folder;
};

/// The largest memory that the process had since it was reset, in megabytes.
double largestMemory(bool reset)
{
    if (reset) {
        QFile clear(QStringLiteral("/proc/self/clear_refs"));
        if (clear.open(QIODevice::WriteOnly)) clear.write("5");
    }
    QFile status(QStringLiteral("/proc/self/status"));
    if (!status.open(QIODevice::ReadOnly)) return 0;
    const QByteArray text = status.readAll();
    return text.mid(text.indexOf("VmHWM:") + 6, 20).simplified().split(' ').first().toDouble() / 1024;
}

double integrityCheck(const QString& file)
{
    const auto begin = std::chrono::steady_clock::now();
    SQLite::Database database(QFile::encodeName(file).toStdString(), SQLite::OPEN_READONLY);
    if (database.execAndGet("PRAGMA integrity_check").getString() != "ok") std::abort();
    return Milliseconds(std::chrono::steady_clock::now() - begin).count();
}

void structure(benchmark::State& state)
{
    const LargeCollection collection(static_cast<int>(state.range(0)));
    integrityCheck(collection.file()); // the file is in the system's memory now
    double engine = 0;
    double check = 0;
    double longest = 0;
    double memory = 0;
    for (auto _ : state) {
        engine += integrityCheck(collection.file());
        const double before = largestMemory(true);
        const auto begin = std::chrono::steady_clock::now();
        CollectionCheck work(collection.file(), collection.folder(), CheckScope::Structure);
        for (auto last = begin;;) {
            const bool goesOn = work.step();
            const auto now = std::chrono::steady_clock::now();
            longest = std::max(longest, Milliseconds(now - last).count());
            last = now;
            if (!goesOn) break;
        }
        check += Milliseconds(std::chrono::steady_clock::now() - begin).count();
        memory = std::max(memory, largestMemory(false) - before);
    }
    const auto runs = static_cast<double>(state.iterations());
    state.counters["check_ms"] = check / runs;
    state.counters["integrity_check_ms"] = engine / runs;
    state.counters["ratio"] = check / engine;
    state.counters["longest_step_ms"] = longest;
    state.counters["megabytes"] = memory;
}

} // namespace

BENCHMARK(structure)->Arg(8000)->Arg(32000)->Unit(benchmark::kMillisecond)->Iterations(10);

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return EXIT_SUCCESS;
}

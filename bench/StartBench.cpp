// SPDX-License-Identifier: GPL-3.0-or-later

// From the start of the process to the home page on the screen, beside an empty window's start; and the
// memory that a full-size list takes.

#include "BenchWindow.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QProcess>

namespace {

QString folderOf(const QString& database)
{
    return QFileInfo(QFileInfo(database).path()).path();
}

void start(benchmark::State& state)
{
    const QString folder = folderOf(largeDatabase(32000));
    compare(
        state, [] { QProcess::execute(QStringLiteral(START_EMPTY), {}); },
        [&folder] { QProcess::execute(QStringLiteral(START_ORVIK), {folder}); });
}

void listMemory(benchmark::State& state)
{
    const QString folder = folderOf(largeDatabase(32000));
    double megabytes = 0;
    for (auto _ : state) {
        QProcess program;
        program.start(QStringLiteral(START_ORVIK), {folder, QStringLiteral("list")});
        program.waitForFinished();
        megabytes = program.readAllStandardOutput().trimmed().toDouble();
    }
    state.counters["megabytes"] = megabytes;
}

} // namespace

BENCHMARK(start)->Unit(benchmark::kMillisecond)->UseManualTime()->Iterations(25);
BENCHMARK(listMemory)->Unit(benchmark::kMillisecond)->Iterations(3);

int main(int argc, char** argv)
{
    // on a display both programs do what they do for a user: icons of the desktop, windows of the server
    if (qEnvironmentVariableIsEmpty("DISPLAY")) qputenv("QT_QPA_PLATFORM", "offscreen");
    const QCoreApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return EXIT_SUCCESS;
}

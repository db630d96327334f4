// SPDX-License-Identifier: GPL-3.0-or-later

// A collection of full size with 2 GB of files backed up, each in a process of its own: beside `tar` and
// `zip` with the same compression; and the memory that it takes, beside that with a tenth of the files.

#include "BenchWindow.h"
#include "backup/CollectionBackup.h"
#include "backup/CollectionRestore.h"
#include "files/ProgramFolder.h"
#include "util/Error.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QRegularExpression>

#include <cstdio>
#include <cstdlib>
#include <random>
#include <string>
#include <sys/resource.h>

namespace {

constexpr qint64 megabyte = 1'000'000;
constexpr int records = 32000;

/// Bytes that cannot be compressed, or words.
std::string contentOf(std::mt19937_64& random, std::size_t size, bool isText)
{
    static const std::string words[] = {"river ", "levee ", "flood ", "storm ", "county ", "of ", "the ",
                                        "in ",    "1927 ",  "water ", "gauge ", "crest ",  "a ",  "and "};
    std::string content;
    content.reserve(size + sizeof(std::uint64_t));
    while (content.size() < size) {
        const std::uint64_t number = random();
        if (!isText)
            content.append(reinterpret_cast<const char*>(&number), sizeof number);
        else
            content +=
                number % 5 == 0 ? std::to_string(number % 100'000) + ' ' : words[number % std::size(words)];
    }
    content.resize(size);
    return content;
}

/// Files of 4 kB to 500 kB, which are as many as the records for 2 GB.
void addFiles(const QString& folder, qint64 megabytes)
{
    std::mt19937_64 random(1);
    QDir().mkpath(folder);
    qint64 left = megabytes * megabyte;
    for (int number = 2; left > 0; ++number) {
        const auto size = static_cast<qint64>(4000 << (random() % 8)) * 3 / 5;
        QFile file(folder + QStringLiteral("/%1.pdf").arg(number));
        const std::string content = contentOf(random, static_cast<std::size_t>(size), number % 2 == 0);
        if (!file.open(QIODevice::WriteOnly) || file.write(content.data(), size) != size) std::abort();
        left -= size;
    }
}

/// A collection with so many megabytes of files; returns the folder around `data`. It goes with the program.
QString collection(qint64 megabytes)
{
    static const QTemporaryDir folder;
    QString made = folder.filePath(QStringLiteral("Collection%1").arg(megabytes));
    if (!QFileInfo::exists(made)) {
        addFiles(made + QStringLiteral("/data/documents"), megabytes);
        QFile::copy(largeDatabase(records), made + QStringLiteral("/data/large.sqlite"));
    }
    return made;
}

/// Runs this program again to do one thing. Returns the most memory that it took, in megabytes.
double runSelf(const QStringList& arguments)
{
    QProcess self;
    self.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    self.start(QCoreApplication::applicationFilePath(), arguments);
    if (!self.waitForFinished(-1) || self.exitCode() != 0) std::abort();
    return self.readAllStandardOutput().trimmed().toDouble();
}

void run(const QString& program, const QStringList& arguments, const QString& folder)
{
    QProcess process;
    process.setWorkingDirectory(folder);
    process.start(program, arguments);
    if (!process.waitForFinished(-1) || process.exitCode() != 0) std::abort();
}

/// What the processes that have ended took of the processors, user and system together.
double childSeconds()
{
    rusage usage{};
    getrusage(RUSAGE_CHILDREN, &usage);
    const auto secondsOf = [](const timeval& time) {
        return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) / 1e6;
    };
    return secondsOf(usage.ru_utime) + secondsOf(usage.ru_stime);
}

void backup(benchmark::State& state, const QString& ending, const QString& program,
            const QStringList& options)
{
    const QString from = collection(2000);
    const QString theirs = from + QStringLiteral("-theirs") + ending;
    const QString ours = from + QStringLiteral("-ours") + ending;
    double theirSeconds = 0;
    double ourSeconds = 0;
    compare(
        state,
        [&] {
            QFile::remove(theirs);
            const double before = childSeconds();
            run(program, QStringList(options) << theirs << QFileInfo(from).fileName(),
                QFileInfo(from).path());
            theirSeconds += childSeconds() - before;
        },
        [&] {
            const double before = childSeconds();
            runSelf({QStringLiteral("backup"), from, ours});
            ourSeconds += childSeconds() - before;
        });
    state.counters["cpu_ratio"] = ourSeconds / theirSeconds;
    state.counters["size_ratio"] =
        static_cast<double>(QFileInfo(ours).size()) / static_cast<double>(QFileInfo(theirs).size());
}

void restore(benchmark::State& state)
{
    const QString from = collection(2000);
    const QString archive = from + QStringLiteral(".tar.zst");
    runSelf({QStringLiteral("backup"), from, archive});
    const QString there = from + QStringLiteral("-restored");
    const auto makeRoom = [&there] {
        QDir(there).removeRecursively();
        QDir().mkpath(there);
    };
    compareTimed(
        state,
        [&] {
            makeRoom();
            return timeOf([&] {
                run(QStringLiteral("tar"), {QStringLiteral("--zstd"), QStringLiteral("-xf"), archive}, there);
            });
        },
        [&] {
            makeRoom();
            return timeOf([&] { runSelf({QStringLiteral("restore"), archive, there}); });
        });
    makeRoom();
}

void memory(benchmark::State& state, const QString& ending)
{
    for (auto _ : state) {
        for (const qint64 megabytes : {200, 2000}) {
            const QString from = collection(megabytes);
            state.counters["megabytes_of_" + std::to_string(megabytes)] =
                runSelf({QStringLiteral("backup"), from, from + ending});
        }
    }
}

int doOneThing(const QStringList& arguments)
{
    const QString& from = arguments[2];
    const QString& to = arguments[3];
    try {
        if (arguments[1] == QStringLiteral("backup")) {
            CollectionBackup work(from + QStringLiteral("/data/large.sqlite"), ProgramFolder(from), to,
                                  QDateTime::currentDateTime());
            while (work.step()) {
            }
        } else {
            CollectionRestore work(from, to);
            while (work.step()) {
            }
        }
    } catch (const Error& error) {
        std::fprintf(stderr, "%s\n", qUtf8Printable(error.description()));
        return EXIT_FAILURE;
    }
    QFile status(QStringLiteral("/proc/self/status"));
    if (!status.open(QIODevice::ReadOnly)) return EXIT_FAILURE;
    static const QRegularExpression most(QStringLiteral("VmHWM:\\s+(\\d+)"));
    const double kilobytes = most.match(QString::fromLatin1(status.readAll())).captured(1).toDouble();
    std::printf("%.1f\n", kilobytes / 1024);
    return EXIT_SUCCESS;
}

} // namespace

BENCHMARK_CAPTURE(backup, tar_zst, QStringLiteral(".tar.zst"), QStringLiteral("tar"),
                  QStringList{QStringLiteral("--zstd"), QStringLiteral("-cf")})
    ->Unit(benchmark::kMillisecond)
    ->UseManualTime()
    ->Iterations(3);
BENCHMARK_CAPTURE(backup, zip, QStringLiteral(".zip"), QStringLiteral("zip"),
                  QStringList{QStringLiteral("-q"), QStringLiteral("-r")})
    ->Unit(benchmark::kMillisecond)
    ->UseManualTime()
    ->Iterations(3);
BENCHMARK(restore)->Unit(benchmark::kMillisecond)->UseManualTime()->Iterations(3);
BENCHMARK_CAPTURE(memory, tar_zst, QStringLiteral(".tar.zst"))->Iterations(1);
BENCHMARK_CAPTURE(memory, zip, QStringLiteral(".zip"))->Iterations(1);

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    if (argc == 4 && !arguments[1].startsWith(u'-')) return doOneThing(arguments);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return EXIT_SUCCESS;
}

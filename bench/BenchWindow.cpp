// SPDX-License-Identifier: GPL-3.0-or-later

#include "BenchWindow.h"

#include "browse/window/frmMain.h"

#include <QApplication>
#include <QDialog>
#include <QDir>
#include <QProcess>
#include <QTimer>

#include <SQLiteCpp/SQLiteCpp.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <map>
#include <optional>

namespace {

[[noreturn]] void fail(const QString& text)
{
    std::fprintf(stderr, "%s\n", qPrintable(text));
    std::exit(EXIT_FAILURE);
}

/// A program folder for each size, kept until the program ends.
const QString& programFolder(int records)
{
    static QTemporaryDir folder;
    static std::map<int, QString> made;
    QString& root = made[records];
    if (!root.isEmpty()) return root;
    root = folder.filePath(QString::number(records));
    QDir().mkpath(root + QStringLiteral("/data/documents"));
    QDir().mkpath(root + QStringLiteral("/data/maps"));
    for (const char* name : {"states.shp", "states.shx", "states.dbf"})
        QFile::copy(QStringLiteral(ORVIK_MAPS "/") + QLatin1StringView(name),
                    root + QStringLiteral("/data/maps/") + QLatin1StringView(name));
    const QString target = root + QStringLiteral("/data/large.sqlite");
    const int status = QProcess::execute(
        QStringLiteral(ORVIK_LARGE),
        {QStringLiteral(ORVIK_SCHEMA), QStringLiteral(ORVIK_CITIES), target, QString::number(records)});
    if (status != 0) fail(QStringLiteral("the database cannot be made"));
    return root;
}

} // namespace

void NoMessages::show(const QString& text)
{
    fail(text);
}

bool NoMessages::ask(const QString& text, Question /*about*/)
{
    fail(text);
}

std::optional<int> NoMessages::choose(const QString& text, const QStringList& /*answers*/)
{
    fail(text);
}

void NoMessages::beep() {}

QString OneDatabase::value(const QString& path) const
{
    return path.endsWith(QStringLiteral("DBFile")) ? m_name : QString();
}

void OneDatabase::setValue(const QString& /*path*/, const QString& /*value*/) {}

QString NoFiles::openFile(const QString& title, const QString& /*filter*/)
{
    fail(title);
}

QString NoFiles::saveFile(const QString& title, const QString& /*proposed*/, const QString& /*filter*/)
{
    fail(title);
}

QString NoFiles::chooseFolder(const QString& title, const QString& /*start*/)
{
    fail(title);
}

DatabaseConverter::Result NoFiles::convert(const QString& source, const QString& /*target*/, bool /*replace*/)
{
    fail(source);
}

bool NoFiles::run(SteppedWork& /*work*/)
{
    return false;
}

bool NoFiles::open(const QUrl& url)
{
    fail(url.toString());
}

bool NoFiles::start(const QString& program, const QString& /*file*/)
{
    fail(program);
}

QString largeDatabase(int records)
{
    return programFolder(records) + QStringLiteral("/data/large.sqlite");
}

BenchWindow::BenchWindow(int records)
    : m_settings(QStringLiteral("large.sqlite")),
      m_platform{m_messages, m_settings, m_fileAttributes, m_files, m_clock,
                 m_volumes,  m_files,    m_otherWindows,   m_files, m_printing},
      m_program(m_platform, m_files, ProgramFolder(programFolder(records)), QString())
{
    m_program.Main();
    m_program.window()->resize(1280, 760);
}

Milliseconds timeOf(const std::function<void()>& work)
{
    const auto begin = std::chrono::steady_clock::now();
    work();
    return std::chrono::steady_clock::now() - begin;
}

Milliseconds timeToShown(const std::function<void()>& open)
{
    std::optional<std::chrono::steady_clock::time_point> shown;
    QTimer timer;
    timer.setSingleShot(true);
    QObject::connect(&timer, &QTimer::timeout, &timer, [&] {
        auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
        dialog->repaint();
        shown = std::chrono::steady_clock::now();
        dialog->done(QDialog::Rejected);
    });
    const auto begin = std::chrono::steady_clock::now();
    timer.start(0);
    open();
    return shown ? *shown - begin : Milliseconds(0);
}

double medianOf(std::vector<double> values)
{
    if (values.empty()) return 0;
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

void compare(benchmark::State& state, const std::function<void()>& plain, const std::function<void()>& ours)
{
    compareTimed(
        state, [&] { return timeOf(plain); }, [&] { return timeOf(ours); });
}

void compareTimed(benchmark::State& state, const Timed& plain, const Timed& ours)
{
    std::vector<double> plainTimes;
    std::vector<double> ourTimes;
    std::vector<double> ratios;
    for (auto _ : state) {
        plainTimes.push_back(plain().count());
        ourTimes.push_back(ours().count());
        ratios.push_back(ourTimes.back() / plainTimes.back());
        state.SetIterationTime(ourTimes.back() / 1000);
    }
    state.counters["plain_ms"] = medianOf(plainTimes);
    state.counters["ours_ms"] = medianOf(ourTimes);
    state.counters["ratio"] = medianOf(ratios);
}

std::int64_t stepPlain(const QString& file, const QString& statement)
{
    static std::map<QString, std::unique_ptr<SQLite::Database>> open;
    auto& database = open[file];
    if (!database) {
        database = std::make_unique<SQLite::Database>(file.toStdString(),
                                                      SQLite::OPEN_READONLY | SQLite::OPEN_NOMUTEX);
        database->exec("PRAGMA cache_size = -16000");
    }
    SQLite::Statement rows(*database, statement.toStdString());
    std::int64_t count = 0;
    while (rows.executeStep())
        ++count;
    return count;
}

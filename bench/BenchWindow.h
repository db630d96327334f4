// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "app/Main_Mod.h"
#include "opening/DatabaseConverter.h"
#include "platform/Clock.h"
#include "platform/FileAttributes.h"
#include "platform/FileDialogs.h"
#include "platform/Messages.h"
#include "platform/OtherWindows.h"
#include "platform/Printing.h"
#include "platform/SettingsStore.h"
#include "platform/Shell.h"
#include "platform/Volumes.h"
#include "platform/WorkRunner.h"

#include <QString>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

#include <chrono>
#include <functional>
#include <vector>

/// Messages have no place in a benchmark: each ends the program with its text.
class NoMessages final : public Messages
{
public:
    void show(const QString& text) override;
    [[nodiscard]] bool ask(const QString& text, Question about) override;
    [[nodiscard]] std::optional<int> choose(const QString& text, const QStringList& answers) override;
    void beep() override;
};

/// Settings that name one database and store nothing.
class OneDatabase final : public SettingsStore
{
public:
    explicit OneDatabase(QString name) : m_name(std::move(name)) {}
    [[nodiscard]] QString value(const QString& path) const override;
    void setValue(const QString& path, const QString& value) override;

private:
    QString m_name;
};

/// No file is asked for, none converted and none opened in a benchmark.
class NoFiles final : public FileDialogs, public DatabaseConverter, public WorkRunner, public Shell
{
public:
    [[nodiscard]] QString openFile(const QString& title, const QString& filter) override;
    [[nodiscard]] QString saveFile(const QString& title, const QString& proposed,
                                   const QString& filter) override;
    [[nodiscard]] QString chooseFolder(const QString& title, const QString& start) override;
    [[nodiscard]] Result convert(const QString& source, const QString& target, bool replace) override;
    [[nodiscard]] bool run(SteppedWork& work) override;
    [[nodiscard]] bool open(const QUrl& url) override;
    [[nodiscard]] bool start(const QString& program, const QString& file) override;
};

/// A database with so many records of each kind; made once in a run, in a folder that goes with the program.
QString largeDatabase(int records);

/// The program with its window on a large database, shown.
class BenchWindow
{
public:
    explicit BenchWindow(int records);

    [[nodiscard]] Main_Mod& program() { return m_program; }
    [[nodiscard]] const Platform& platform() const { return m_platform; }

private:
    NoMessages m_messages;
    OneDatabase m_settings;
    SystemFileAttributes m_fileAttributes;
    NoFiles m_files;
    SystemClock m_clock;
    SystemVolumes m_volumes;
    NoOtherWindows m_otherWindows;
    NoPrinting m_printing;
    Platform m_platform;
    Main_Mod m_program;
};

using Milliseconds = std::chrono::duration<double, std::milli>;

Milliseconds timeOf(const std::function<void()>& work);
/// The time until the dialog that `open` opens is painted; closes it then.
Milliseconds timeToShown(const std::function<void()>& open);
double medianOf(std::vector<double> values);

using Timed = std::function<Milliseconds()>;

/// Runs both in turn for as long as the benchmark wants, and reports the medians of what they took and of
/// their ratio.
void compareTimed(benchmark::State& state, const Timed& plain, const Timed& ours);

/// Runs both in turn for as long as the benchmark wants, and reports the medians and their ratio.
void compare(benchmark::State& state, const std::function<void()>& plain, const std::function<void()>& ours);

/// Steps a statement through SQLite alone, without the program's rules; returns the number of rows.
std::int64_t stepPlain(const QString& file, const QString& statement);

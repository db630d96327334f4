// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QByteArray>
#include <QProcess>
#include <QString>
#include <QStringList>
#include <QTimer>

#include <chrono>
#include <functional>
#include <memory>

/// What a program may use before it is ended.
struct ProcessLimits
{
    std::chrono::milliseconds time{60'000}; ///< on the clock, and of the processor
    qint64 memory = 1LL << 30;              ///< bytes of addresses, if the system can limit them
    qint64 output = 64LL << 20;             ///< bytes on its standard output
};

/// A program that reads a file of unknown origin in a process of its own, so that a file that makes it crash,
/// hang or swell does no harm. The process ends with this object, and on Linux with the process that started
/// it.
class LimitedProcess
{
public:
    struct Result
    {
        QByteArray output;
        QByteArray errors; ///< the beginning of what the program wrote on its error output
        QString failure;   ///< why the program did not do its work; empty if it did
        bool hasStarted = true;
    };

    explicit LimitedProcess(const ProcessLimits& limits = {});
    ~LimitedProcess();
    LimitedProcess(const LimitedProcess&) = delete;
    LimitedProcess& operator=(const LimitedProcess&) = delete;

    /// Starts a program that does not run yet. `finished` is called once from the event loop, also if the
    /// program cannot be started; it may delete this object or start the next program.
    void start(const QString& program, const QStringList& arguments,
               std::function<void(const Result&)> finished);

    [[nodiscard]] bool isRunning() const { return m_process && m_process->state() != QProcess::NotRunning; }

    /// Ends the program; `finished` is not called.
    void stop();

private:
    void makeProcess();
    void takeOutput();
    void takeErrors();
    void endEarly(const QString& failure);
    void end();
    void report();
    [[nodiscard]] QString failureOf() const;

    ProcessLimits m_limits;
    std::unique_ptr<QProcess> m_process; ///< of the program that was started last
    QTimer m_timer;                      ///< runs while the program may
    QTimer m_report;                     ///< runs from the program's end until `finished` is called
    Result m_result;
    std::function<void(const Result&)> m_finished;
};

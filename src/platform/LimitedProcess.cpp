// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/LimitedProcess.h"

#include "platform/PlatformTexts.h"

#include <algorithm>
#include <utility>

#ifdef Q_OS_UNIX
#include <sys/resource.h>
#endif
#ifdef Q_OS_LINUX
#include <csignal>
#include <sys/prctl.h>
#endif

namespace {

constexpr qsizetype mostErrors = 4000; ///< bytes
constexpr int killPatience = 5'000;    ///< milliseconds; a process that waits for a dead disk outlasts a kill

#ifdef Q_OS_UNIX
/// Limits a resource of the process that calls it; a limit that is lower already stays.
void limit(int resource, qint64 amount)
{
    rlimit held{};
    if (getrlimit(static_cast<__rlimit_resource_t>(resource), &held) != 0) return;
    held.rlim_cur = std::min(held.rlim_max, static_cast<rlim_t>(amount));
    setrlimit(static_cast<__rlimit_resource_t>(resource), &held);
}

/// Is called in the new process, between fork and exec: only what is safe in a signal handler.
void applyLimits(qint64 seconds, qint64 memory)
{
    limit(RLIMIT_AS, memory);
    limit(RLIMIT_CPU, seconds);
    limit(RLIMIT_CORE, 0);
#ifdef Q_OS_LINUX
    prctl(PR_SET_PDEATHSIG, SIGKILL);
#endif
}
#endif

} // namespace

LimitedProcess::LimitedProcess(const ProcessLimits& limits) : m_limits(limits)
{
    m_timer.setSingleShot(true);
    m_timer.callOnTimeout([this] { endEarly(PlatformTexts::tr("It took too long.")); });
    m_report.setSingleShot(true);
    m_report.callOnTimeout([this] { report(); });
    QObject::connect(&m_process, &QProcess::readyReadStandardOutput, [this] { takeOutput(); });
    QObject::connect(&m_process, &QProcess::readyReadStandardError, [this] { takeErrors(); });
    QObject::connect(&m_process, &QProcess::finished, [this] { end(); });
    QObject::connect(&m_process, &QProcess::errorOccurred, [this](QProcess::ProcessError error) {
        if (error == QProcess::FailedToStart) end();
    });
}

LimitedProcess::~LimitedProcess()
{
    stop();
}

void LimitedProcess::prepare(const QString& program, const QStringList& arguments)
{
    m_result = {};
    m_process.setProgram(program);
    m_process.setArguments(arguments);
    m_process.setStandardInputFile(QProcess::nullDevice());
#ifdef Q_OS_UNIX
    // one more than on the clock, which can tell what happened
    const qint64 seconds = std::chrono::ceil<std::chrono::seconds>(m_limits.time).count() + 1;
    m_process.setChildProcessModifier([seconds, memory = m_limits.memory] { applyLimits(seconds, memory); });
#endif
    m_process.start(QIODevice::ReadOnly);
}

void LimitedProcess::start(const QString& program, const QStringList& arguments,
                           std::function<void(const Result&)> finished)
{
    m_finished = std::move(finished);
    m_timer.start(m_limits.time);
    prepare(program, arguments);
}

LimitedProcess::Result LimitedProcess::run(const QString& program, const QStringList& arguments)
{
    m_finished = nullptr;
    prepare(program, arguments);
    if (!m_process.waitForFinished(static_cast<int>(m_limits.time.count())) && isRunning()) {
        endEarly(PlatformTexts::tr("It took too long."));
        m_process.waitForFinished(killPatience);
    }
    return std::move(m_result);
}

void LimitedProcess::stop()
{
    m_finished = nullptr;
    m_timer.stop();
    m_report.stop();
    if (!isRunning()) return;
    m_process.kill();
    m_process.waitForFinished(killPatience);
}

void LimitedProcess::takeOutput()
{
    const QByteArray more = m_process.readAllStandardOutput();
    if (!m_result.failure.isEmpty()) return;
    if (m_result.output.size() + more.size() <= m_limits.output)
        m_result.output += more;
    else
        endEarly(PlatformTexts::tr("It is too large."));
}

void LimitedProcess::takeErrors()
{
    m_result.errors += m_process.readAllStandardError();
    m_result.errors.truncate(mostErrors);
}

void LimitedProcess::endEarly(const QString& failure)
{
    m_result.failure = failure;
    m_process.kill();
}

void LimitedProcess::end()
{
    m_timer.stop();
    m_result.hasStarted = m_process.error() != QProcess::FailedToStart;
    if (m_result.failure.isEmpty()) m_result.failure = failureOf();
    if (!m_result.failure.isEmpty()) m_result.output.clear();
    // not from within a signal of the process, which whoever is called may delete
    if (m_finished) m_report.start(0);
}

void LimitedProcess::report()
{
    const auto finished = std::exchange(m_finished, nullptr);
    const Result result = std::exchange(m_result, {});
    finished(result);
}

QString LimitedProcess::failureOf() const
{
    if (!m_result.hasStarted)
        return PlatformTexts::tr("The program that reads it is not installed: %1").arg(m_process.program());
    const bool isCrash = m_process.exitStatus() == QProcess::CrashExit;
    if (!isCrash && m_process.exitCode() == 0) return {};
    // as most programs say, and the standard library of C++
    if (m_result.errors.contains("memory") || m_result.errors.contains("bad_alloc"))
        return PlatformTexts::tr("It takes too much memory.");
    // as pdftotext and our own program say
    if (m_result.errors.contains("Incorrect password")) return PlatformTexts::tr("A password protects it.");
    return isCrash ? PlatformTexts::tr("The program that reads it failed.")
                   : PlatformTexts::tr("It is damaged.");
}

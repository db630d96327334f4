// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/LimitedProcess.h"

#include "platform/EndedProcess.h"
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

#ifdef Q_OS_UNIX
/// Limits a resource of the process that calls it; a limit that is lower already stays.
void limit(int resource, qint64 amount)
{
    rlimit held{};
    if (getrlimit(resource, &held) != 0) return;
    held.rlim_cur = std::min(held.rlim_max, static_cast<rlim_t>(amount));
    setrlimit(resource, &held);
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
}

LimitedProcess::~LimitedProcess()
{
    stop();
}

void LimitedProcess::makeProcess()
{
    endProcess(std::move(m_process));
    m_process = std::make_unique<QProcess>();
    m_process->setStandardInputFile(QProcess::nullDevice());
#ifdef Q_OS_UNIX
    // one more than on the clock, which can tell what happened
    const qint64 seconds = std::chrono::ceil<std::chrono::seconds>(m_limits.time).count() + 1;
    m_process->setChildProcessModifier([seconds, memory = m_limits.memory] { applyLimits(seconds, memory); });
#endif
    const QProcess* const process = m_process.get();
    QObject::connect(process, &QProcess::readyReadStandardOutput, [this] { takeOutput(); });
    QObject::connect(process, &QProcess::readyReadStandardError, [this] { takeErrors(); });
    QObject::connect(process, &QProcess::finished, [this] { end(); });
    QObject::connect(process, &QProcess::errorOccurred, [this](QProcess::ProcessError error) {
        if (error == QProcess::FailedToStart) end();
    });
}

void LimitedProcess::start(const QString& program, const QStringList& arguments,
                           std::function<void(const Result&)> finished)
{
    m_finished = std::move(finished);
    m_result = {};
    makeProcess();
    m_timer.start(m_limits.time);
    m_process->start(program, arguments, QIODevice::ReadOnly);
}

void LimitedProcess::stop()
{
    m_finished = nullptr;
    m_timer.stop();
    m_report.stop();
    endProcess(std::move(m_process));
}

void LimitedProcess::takeOutput()
{
    const QByteArray more = m_process->readAllStandardOutput();
    if (!m_result.failure.isEmpty()) return;
    if (m_result.output.size() + more.size() <= m_limits.output)
        m_result.output += more;
    else
        endEarly(PlatformTexts::tr("It is too large."));
}

void LimitedProcess::takeErrors()
{
    m_result.errors += m_process->readAllStandardError();
    m_result.errors.truncate(mostErrors);
}

void LimitedProcess::endEarly(const QString& failure)
{
    m_result.failure = failure;
    m_process->kill();
}

void LimitedProcess::end()
{
    m_timer.stop();
    m_result.hasStarted = m_process->error() != QProcess::FailedToStart;
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
        return PlatformTexts::tr("The program that reads it is not installed: %1").arg(m_process->program());
    const bool isCrash = m_process->exitStatus() == QProcess::CrashExit;
    if (!isCrash && m_process->exitCode() == 0) return {};
    // as most programs say, and the standard library of C++
    if (m_result.errors.contains("memory") || m_result.errors.contains("bad_alloc"))
        return PlatformTexts::tr("It takes too much memory.");
    // as pdftotext and our own program say
    if (m_result.errors.contains("Incorrect password")) return PlatformTexts::tr("A password protects it.");
    return isCrash ? PlatformTexts::tr("The program that reads it failed.")
                   : PlatformTexts::tr("It is damaged.");
}

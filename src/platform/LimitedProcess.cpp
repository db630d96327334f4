// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/LimitedProcess.h"

#include "platform/PlatformTexts.h"

#include <utility>

#ifdef Q_OS_UNIX
#include <sys/resource.h>
#endif

namespace {

#ifdef Q_OS_UNIX
/// Limits a resource of the process that calls it; a limit that is lower already stays.
void limit(int resource, qint64 amount)
{
    rlimit held{};
    if (getrlimit(static_cast<__rlimit_resource_t>(resource), &held) != 0) return;
    held.rlim_cur = std::min(held.rlim_max, static_cast<rlim_t>(amount));
    setrlimit(static_cast<__rlimit_resource_t>(resource), &held);
}
#endif

} // namespace

LimitedProcess::LimitedProcess(const ProcessLimits& limits) : m_limits(limits)
{
    m_timer.setSingleShot(true);
    m_timer.callOnTimeout([this] { endEarly(PlatformTexts::tr("It took too long.")); });
    QObject::connect(&m_process, &QProcess::readyReadStandardOutput, [this] { takeOutput(); });
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
    m_process.setStandardErrorFile(QProcess::nullDevice());
    m_process.setStandardInputFile(QProcess::nullDevice());
#ifdef Q_OS_UNIX
    m_process.setChildProcessModifier([limits = m_limits] {
        const auto seconds = std::chrono::ceil<std::chrono::seconds>(limits.time).count();
        limit(RLIMIT_AS, limits.memory);
        limit(RLIMIT_CPU, seconds);
        limit(RLIMIT_CORE, 0);
    });
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
    if (!m_process.waitForFinished(static_cast<int>(m_limits.time.count())) && isRunning())
        endEarly(PlatformTexts::tr("It took too long."));
    return m_result;
}

void LimitedProcess::stop()
{
    m_finished = nullptr;
    m_timer.stop();
    if (!isRunning()) return;
    m_process.kill();
    m_process.waitForFinished();
}

void LimitedProcess::takeOutput()
{
    m_result.output += m_process.readAllStandardOutput();
    if (m_result.output.size() > m_limits.output) endEarly(PlatformTexts::tr("It is too large."));
}

void LimitedProcess::endEarly(const QString& failure)
{
    if (!m_result.failure.isEmpty()) return;
    m_result.failure = failure;
    m_process.kill();
    m_process.waitForFinished();
}

void LimitedProcess::end()
{
    m_timer.stop();
    if (m_process.state() == QProcess::NotRunning && m_process.error() != QProcess::FailedToStart)
        m_result.output += m_process.readAllStandardOutput();
    if (m_result.failure.isEmpty()) m_result.failure = failureOf();
    if (!m_finished) return;
    // what it does may delete this object
    const auto finished = std::exchange(m_finished, nullptr);
    const Result result = std::move(m_result);
    finished(result);
}

QString LimitedProcess::failureOf() const
{
    if (m_process.error() == QProcess::FailedToStart)
        return PlatformTexts::tr("The program that reads it is not installed: %1").arg(m_process.program());
    if (m_process.exitStatus() == QProcess::CrashExit)
        return PlatformTexts::tr("The program that reads it failed.");
    if (m_process.exitCode() != 0) return PlatformTexts::tr("It is damaged.");
    return {};
}

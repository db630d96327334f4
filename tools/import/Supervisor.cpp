// SPDX-License-Identifier: GPL-3.0-or-later

#include "Supervisor.h"

#include <cerrno>
#include <string>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace accessimport {

namespace {

constexpr int stopSignals[] = {SIGTERM, SIGINT, SIGHUP};

[[noreturn]] void runHere(const std::function<ExitStatus()>& work, const sigset_t& signals, pid_t parent)
{
    ::prctl(PR_SET_PDEATHSIG, SIGKILL);
    if (::getppid() != parent) ::_exit(static_cast<int>(ExitStatus::Stopped));
    // A crash on a damaged file is expected and leaves no core file behind.
    constexpr rlimit none = {0, 0};
    ::setrlimit(RLIMIT_CORE, &none);
    // A file that may not grow is an error of writing like any other.
    std::signal(SIGXFSZ, SIG_IGN);
    ::pthread_sigmask(SIG_SETMASK, &signals, nullptr);
    ::_exit(static_cast<int>(work()));
}

ImportError stopped()
{
    return {ExitStatus::Stopped, "The import was stopped."};
}

ExitStatus judge(int status)
{
    if (WIFSIGNALED(status)) {
        if (WTERMSIG(status) == SIGKILL)
            throw ImportError(ExitStatus::Stopped, "The system ended the import.");
        throw ImportError(ExitStatus::Damaged,
                          "The file is damaged: it could not be read to its end (signal " +
                              std::to_string(WTERMSIG(status)) + ").");
    }
    const int code = WEXITSTATUS(status);
    if (code < 0 || code > static_cast<int>(ExitStatus::Internal) ||
        code == static_cast<int>(ExitStatus::Usage))
        throw ImportError(ExitStatus::Damaged, "The file is damaged: it could not be read to its end.");
    return static_cast<ExitStatus>(code);
}

} // namespace

Supervisor::Supervisor()
{
    ::sigemptyset(&m_watched);
    for (const int number : stopSignals)
        ::sigaddset(&m_watched, number);
    ::sigaddset(&m_watched, SIGCHLD);
    ::pthread_sigmask(SIG_BLOCK, &m_watched, &m_before);
}

Supervisor::~Supervisor()
{
    ::pthread_sigmask(SIG_SETMASK, &m_before, nullptr);
}

ExitStatus Supervisor::run(const std::function<ExitStatus()>& work)
{
    // With an ignored SIGCHLD, as some callers leave it, the end of the other process would go unnoticed.
    std::signal(SIGCHLD, SIG_DFL);
    const pid_t parent = ::getpid();
    const pid_t child = ::fork();
    if (child < 0) throw ImportError(ExitStatus::Internal, "The system cannot start another process.");
    if (child == 0) runHere(work, m_before, parent);

    while (true) {
        const int number = ::sigwaitinfo(&m_watched, nullptr);
        if (number < 0) continue;
        int status = 0;
        if (number != SIGCHLD) {
            ::kill(child, SIGKILL);
            ::waitpid(child, &status, 0);
            throw stopped();
        }
        if (::waitpid(child, &status, WNOHANG) == child) return judge(status);
    }
}

void Supervisor::checkStopped() const
{
    sigset_t pending;
    ::sigpending(&pending);
    for (const int number : stopSignals)
        if (::sigismember(&pending, number) == 1) throw stopped();
}

} // namespace accessimport

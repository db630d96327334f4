// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "ImportError.h"

#include <csignal>
#include <functional>

namespace accessimport {

/// Runs work in a process of its own and waits for it, so that a crash in it is a failure like any other and
/// a request to stop takes effect at once.
///
/// While a supervisor exists, SIGTERM, SIGINT and SIGHUP wait until run() looks for them: nothing outside of
/// it is ever cut in half.
class Supervisor
{
public:
    Supervisor();
    ~Supervisor();
    Supervisor(const Supervisor&) = delete;
    Supervisor& operator=(const Supervisor&) = delete;

    /// Runs `work` in another process and returns what it returned there. `work` must not throw. Throws
    /// ImportError: Stopped after a signal to stop, Damaged if the other process crashed or ran in circles.
    ExitStatus run(const std::function<ExitStatus()>& work);

    /// Throws ImportError(Stopped) if a signal to stop is waiting.
    void checkStopped() const;

private:
    sigset_t m_watched;
    sigset_t m_before;
};

} // namespace accessimport

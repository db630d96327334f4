// SPDX-License-Identifier: GPL-3.0-or-later

#include "ConsoleWorks.h"

#include "Output.h"
#include "platform/SteppedWork.h"
#include "platform/WorkRate.h"
#include "util/Error.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <cstdio>

#ifdef Q_OS_WIN
#include <io.h>
#else
#include <sys/ioctl.h>
#include <unistd.h>
#endif

using namespace Qt::StringLiterals;

namespace console {

namespace {

constexpr qint64 pauseBetweenLines = 100; ///< milliseconds

constexpr std::array signalsThatEnd{SIGINT, SIGTERM,
#ifdef SIGHUP
                                    SIGHUP
#endif
};

// a handler of signals can reach nothing else
volatile std::sig_atomic_t wasInterrupted = 0;

void interrupt(int /*signal*/)
{
    wasInterrupted = 1;
}

bool isErrorOutputTerminal()
{
#ifdef Q_OS_WIN
    return _isatty(_fileno(stderr)) != 0;
#else
    return isatty(STDERR_FILENO) != 0;
#endif
}

/// How many characters of the terminal's line can be written over: a longer line would go on in the next one
/// each time. In characters; of no terminal, that of a usual one.
qsizetype lineLength()
{
    constexpr qsizetype usual = 78;
#ifndef Q_OS_WIN
    winsize size{};
    if (ioctl(STDERR_FILENO, TIOCGWINSZ, &size) == 0 && size.ws_col > 1)
        return std::min<qsizetype>(usual, size.ws_col - 1);
#endif
    return usual;
}

} // namespace

ConsoleWorks::ConsoleWorks() : m_isTerminal(isErrorOutputTerminal())
{
    for (const int each : signalsThatEnd) {
        // what was started to outlive its terminal still does
        if (std::signal(each, interrupt) == SIG_IGN) std::signal(each, SIG_IGN);
    }
}

ConsoleWorks::~ConsoleWorks()
{
    clear();
}

bool ConsoleWorks::isInterrupted()
{
    return wasInterrupted != 0;
}

void ConsoleWorks::stop()
{
    throw Error(EINTR, u"Stopped; nothing was left behind."_s);
}

bool ConsoleWorks::run(SteppedWork& work)
{
    QElapsedTimer begun;
    begun.start();
    WorkRate rate;
    while (!isInterrupted()) {
        if (!work.step()) {
            clear();
            return true;
        }
        if (!m_isTerminal) continue;
        if (const auto bytes = work.bytes()) rate.note(begun.elapsed(), *bytes);
        show(rate.text().isEmpty() ? work.text() : rate.text(), work.percent());
    }
    while (work.undoStep())
        ;
    clear();
    return false;
}

void ConsoleWorks::show(const QString& text, std::optional<int> percent)
{
    if (!m_isTerminal || (m_shown.isValid() && m_shown.elapsed() < pauseBetweenLines)) return;
    m_shown.start();
    const QString share = percent ? u"%1 %  "_s.arg(*percent, 3) : QString();
    const qsizetype length = lineLength();
    const QString line = Output::printable(share + text).left(length).leftJustified(length);
    std::fprintf(stderr, "\r%s\r", line.toUtf8().constData());
    std::fflush(stderr);
}

void ConsoleWorks::clear()
{
    if (!m_shown.isValid()) return;
    m_shown.invalidate();
    std::fprintf(stderr, "\r%*s\r", static_cast<int>(lineLength()), "");
    std::fflush(stderr);
}

} // namespace console

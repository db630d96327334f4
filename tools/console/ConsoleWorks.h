// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "platform/WorkRunner.h"

#include <QElapsedTimer>
#include <QString>

#include <optional>

namespace console {

/// Does long work while the user watches how far it is, if the error output is a terminal. As long as it
/// lives, Ctrl+C and the signals that end a process cancel the work, which is then taken back. There is one
/// at a time.
class ConsoleWorks final : public WorkRunner
{
public:
    ConsoleWorks();
    ~ConsoleWorks() override;
    ConsoleWorks(const ConsoleWorks&) = delete;
    ConsoleWorks& operator=(const ConsoleWorks&) = delete;

    [[nodiscard]] bool run(SteppedWork& work) override;

    /// Whether the user wants the process to end.
    [[nodiscard]] static bool isInterrupted();

    /// What a command throws whose work was cancelled.
    [[noreturn]] static void stop();

    /// Shows how far work is, some times a second.
    void show(const QString& text, std::optional<int> percent);

private:
    void clear();

    bool m_isTerminal;
    QElapsedTimer m_shown; ///< when it was shown last; invalid if it never was
};

} // namespace console

// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "Command.h"

#include <QString>
#include <QStringList>

namespace console {

/// What the arguments of the tool mean: a command to run or, if there is none, a text to print.
struct CommandLine
{
    /// Reads the arguments without the name of the program. Throws Error if they make no sense.
    [[nodiscard]] static CommandLine read(const QStringList& arguments);

    const Command* command = nullptr; ///< null if there is a text
    Invocation called;
    QString text;
};

} // namespace console

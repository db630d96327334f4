// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>
#include <QStringList>

#include <vector>

class Output;

namespace console {

/// How a run of the tool ends, as its exit status.
enum class ExitStatus
{
    Done = 0,
    Findings = 1, ///< what was looked at is not as it should be
    Failure = 2   ///< the error output has one line that says why
};

/// What a command was called with.
struct Invocation
{
    QStringList operands; ///< as many as the command names
    QStringList options;  ///< those of the command itself, such as `--files`
    bool isJson = false;  ///< whether the result is for programs

    [[nodiscard]] bool has(const QString& option) const { return options.contains(option); }
};

/// An option that only one command has.
struct Option
{
    QString name; ///< with its dashes
    QString text; ///< what it does, in one line of the help
};

/// A command of the tool. What it is called with and what `--help` says of it come from here, and so does
/// what the man page and the completion are compared with.
struct Command
{
    QString name;
    QStringList operands; ///< in their order; the last may end in `...` if it may be several words
    std::vector<Option> options;
    QString summary;     ///< in one line of the help
    QString description; ///< the rest of the command's own help, in lines of at most 79 characters

    /// Writes the result, only once it is complete. Throws Error; nothing may have been written then.
    ExitStatus (*run)(const Invocation& called, Output& output);
};

/// All of them, in the order of the help.
const std::vector<Command>& allCommands();

} // namespace console

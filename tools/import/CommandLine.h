// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <optional>
#include <string>

namespace accessimport {

/// What the process was asked to do.
struct CommandLine
{
    std::string source;
    std::string target;
    bool replace = false; ///< an existing target is replaced
    bool salvage = false; ///< tables that hold fewer rows than they state are taken as they are
    bool help = false;
};

/// std::nullopt if the arguments make no sense.
std::optional<CommandLine> parseCommandLine(int count, const char* const* arguments);

/// The whole help, with the line protocol and the exit statuses.
const char* helpText();

} // namespace accessimport

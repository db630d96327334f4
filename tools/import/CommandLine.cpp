// SPDX-License-Identifier: GPL-3.0-or-later

#include "CommandLine.h"

#include <string_view>

namespace accessimport {

namespace {

/// Returns false for an option that does not exist.
bool setOption(std::string_view option, CommandLine& line)
{
    if (option == "--replace") {
        line.replace = true;
    } else if (option == "--salvage") {
        line.salvage = true;
    } else if (option == "--help" || option == "-h") {
        line.help = true;
    } else {
        return false;
    }
    return true;
}

} // namespace

std::optional<CommandLine> parseCommandLine(int count, const char* const* arguments)
{
    CommandLine line;
    int names = 0;
    bool onlyNames = false;
    for (int at = 1; at < count; ++at) {
        const std::string_view argument = arguments[at];
        if (!onlyNames && argument.starts_with('-')) {
            onlyNames = argument == "--";
            if (!onlyNames && !setOption(argument, line)) return std::nullopt;
            continue;
        }
        if (++names > 2 || argument.empty()) return std::nullopt;
        (names == 1 ? line.source : line.target) = argument;
    }
    if (!line.help && names != 2) return std::nullopt;
    return line;
}

const char* helpText()
{
    return R"(Usage: orvik-import [--replace] [--salvage] SOURCE TARGET

Converts the Access database SOURCE (Access 2000 or later, not encrypted) into the Orvik database TARGET.
SOURCE is only read. TARGET appears when it is complete and verified, or not at all.

  --replace   replace TARGET if it exists
  --salvage   take what can be read if a table holds fewer rows than it states
  -h, --help  show this help

Output: one line for each fact, its fields divided by TABs; in a field, TAB, LF, CR and backslash are written
as \t \n \r \\.

  phase     reading, copying, indexing or verifying
  progress  PERCENT  ROWS-DONE  ROWS-IN-ALL  TABLE
  summary   source          KIND                        the kind of Access database
  summary   tables          COUNT
  summary   rows            COUNT
  summary   table           NAME  ROWS  NAME-IN-TARGET
  summary   known           COUNT                       tables of the program that SOURCE has
  summary   unknown-table   NAME  NAME-IN-TARGET        carried over as it is
  summary   unknown-column  TABLE  COLUMN  NAME-IN-TARGET
  summary   missing-table   NAME                        stays empty
  summary   missing-column  TABLE  COLUMN               stays empty
  summary   linked-table    NAME                        its rows are in another file, not imported
  summary   hidden          TABLE  DELETED  NO-STATUS   records that the program does not show
  summary   orphans         TABLE  COLUMN  PARENT  COUNT
                            references to records that do not exist
  summary   repeated        TABLE  COUNT  NAME-IN-TARGET
                            rows with a missing or repeated key, kept in that table
  summary   unfit           TABLE  COLUMN  COUNT  NAME-IN-TARGET
                            values that the column cannot hold, kept whole in that table
  summary   warning         TEXT
  done      TARGET

On failure the error output has one line: error  MESSAGE

Exit status:
   0  done
   1  wrong command line
   2  SOURCE is missing, cannot be read or is no Access database
   3  SOURCE is of a version that is not supported, such as Access 97
   4  SOURCE is encrypted or has a database password
   5  SOURCE is damaged or cut short
   6  TARGET cannot be written
   7  what was written does not agree with SOURCE
   8  TARGET exists, and --replace was not given
   9  stopped
  10  any other failure
)";
}

} // namespace accessimport

// SPDX-License-Identifier: GPL-3.0-or-later

#include "CommandLine.h"
#include "ImportError.h"
#include "Importer.h"
#include "Report.h"
#include "SourceFile.h"
#include "Supervisor.h"
#include "TemporaryTarget.h"

#include <SQLiteCpp/SQLiteCpp.h>
#include <sqlite3.h>

#include <cstdio>
#include <cstdlib>
#include <exception>
#include <fcntl.h>
#include <filesystem>
#include <new>
#include <unistd.h>

using namespace accessimport;

namespace {

ExitStatus statusOf(const SQLite::Exception& error)
{
    switch (error.getErrorCode()) {
    case SQLITE_FULL:
    case SQLITE_IOERR:
    case SQLITE_CANTOPEN:
    case SQLITE_READONLY:
    case SQLITE_PERM:
        return ExitStatus::TargetUnwritable;
    default:
        return ExitStatus::Internal;
    }
}

/// Runs a step, reports its failure and returns the status to exit with.
template <typename Step>
ExitStatus guarded(Report& report, const Step& step)
{
    try {
        return step();
    } catch (const ImportError& error) {
        report.error(error.what());
        return error.status();
    } catch (const SQLite::Exception& error) {
        const ExitStatus status = statusOf(error);
        const char* start = status == ExitStatus::TargetUnwritable ? "The new database cannot be written: "
                                                                   : "The new database cannot be made: ";
        report.error(std::string(start) + error.what() + '.');
        return status;
    } catch (const std::bad_alloc&) {
        report.error("There is not enough memory.");
        return ExitStatus::Internal;
    } catch (const std::exception& error) {
        report.error(error.what());
        return ExitStatus::Internal;
    }
}

/// What libraries print is not for our readers: the standard outputs lead nowhere, the report keeps copies.
Report takeOutputs()
{
    const int output = ::fcntl(STDOUT_FILENO, F_DUPFD_CLOEXEC, 3);
    const int errorOutput = ::fcntl(STDERR_FILENO, F_DUPFD_CLOEXEC, 3);
    const int nowhere = ::open("/dev/null", O_WRONLY);
    if (nowhere >= 0) {
        ::dup2(nowhere, STDOUT_FILENO);
        ::dup2(nowhere, STDERR_FILENO);
        if (nowhere > STDERR_FILENO) ::close(nowhere);
    }
    return {output, errorOutput};
}

bool isSameFile(const CommandLine& line)
{
    std::error_code ignored;
    return std::filesystem::equivalent(line.source, line.target, ignored);
}

ExitStatus convert(const CommandLine& line, Report& report)
{
    // Judged here once before anything is written, so that a wrong file costs nothing.
    SourceFile{line.source}; // NOLINT(bugprone-unused-raii): its constructor judges
    if (isSameFile(line))
        throw ImportError(ExitStatus::TargetExists, "The source and the target are the same file.");

    Supervisor supervisor;
    TemporaryTarget temporary(line.target, line.replace);
    const ExitStatus status = supervisor.run([&line, &temporary, &report] {
        return guarded(report, [&] {
            importDatabase(line, temporary.path(), report);
            return ExitStatus::Success;
        });
    });
    if (status != ExitStatus::Success) return status;
    supervisor.checkStopped();
    temporary.publish();
    report.done(line.target);
    return ExitStatus::Success;
}

} // namespace

int main(int argumentCount, char** arguments)
{
    const std::optional<CommandLine> line = parseCommandLine(argumentCount, arguments);
    if (!line) {
        std::fputs("Usage: orvik-import [--replace] [--salvage] SOURCE TARGET\n", stderr);
        return static_cast<int>(ExitStatus::Usage);
    }
    if (line->help) {
        std::fputs(helpText(), stdout);
        return static_cast<int>(ExitStatus::Success);
    }
    // These would change how libmdb reads texts and what it prints.
    for (const char* variable : {"MDBOPTS", "MDBICONV", "MDB_JET3_CHARSET"})
        ::unsetenv(variable);
    std::signal(SIGPIPE, SIG_IGN);
    Report report = takeOutputs();
    return static_cast<int>(guarded(report, [&] { return convert(*line, report); }));
}

// SPDX-License-Identifier: GPL-3.0-or-later

#include "support/OtherPrograms.h"

#include <QProcess>

ProgramRun runProgram(const QString& program, const QStringList& arguments, const QByteArray& input)
{
    constexpr int patience = 120'000; // milliseconds
    QProcess process;
    process.start(program, arguments);
    process.write(input);
    process.closeWriteChannel();
    ProgramRun run;
    run.hasEndedWell = process.waitForFinished(patience) && process.exitStatus() == QProcess::NormalExit &&
                       process.exitCode() == 0;
    run.output = process.readAllStandardOutput();
    run.errors = process.readAllStandardError();
    if (!run.hasEndedWell) run.errors += "It did not end well: " + process.errorString().toUtf8();
    return run;
}

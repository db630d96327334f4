// SPDX-License-Identifier: GPL-3.0-or-later

#include "export/OtherPrograms.h"

#include <QProcess>

ProgramRun runProgram(const QString& program, const QStringList& arguments, const QByteArray& input)
{
    constexpr int patience = 120'000; // milliseconds
    QProcess process;
    process.start(program, arguments);
    process.write(input);
    process.closeWriteChannel();
    ProgramRun run;
    const bool hasEnded = process.waitForFinished(patience);
    run.output = process.readAllStandardOutput();
    run.errors = process.readAllStandardError();
    if (!hasEnded || process.exitStatus() != QProcess::NormalExit || process.exitCode() != 0)
        run.errors += "It did not end well: " + process.errorString().toUtf8();
    return run;
}
